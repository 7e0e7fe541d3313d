#pragma once

#include <tuple>
#include <type_traits>

#include "windows/support/com_error.h"
#include "windows/support/com_ptr.h"
#include "windows/support/module.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Reference count and QueryInterface of a COM object with the interfaces listed. It begins with
/// one reference, which belongs to its creator, and lives in one apartment.
template <class... Interfaces>
class ComObject : public Interfaces... {
 public:
  ComObject(const ComObject&) = delete;
  ComObject& operator=(const ComObject&) = delete;

  STDMETHODIMP QueryInterface(REFIID wanted, void** object) override {
    if (!object) return E_POINTER;
    *object = find(wanted);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
  STDMETHODIMP_(ULONG) Release() override {
    const ULONG left = --references_;
    if (left == 0) {
      // The destructor may add and release references again; that must not delete it twice.
      references_ = ending;
      delete this;
    }
    return left;
  }

 protected:
  using First = std::tuple_element_t<0, std::tuple<Interfaces...>>;

  ComObject() = default;
  virtual ~ComObject() = default;

  IUnknown* identity() { return static_cast<First*>(this); }
  /// The interface, without a reference of its own; null for one that the object does not have.
  virtual void* find(REFIID wanted) {
    void* found = wanted == IID_IUnknown ? identity() : nullptr;
    ((found = found || wanted != __uuidof(Interfaces) ? found : static_cast<Interfaces*>(this)),
     ...);
    return found;
  }

 private:
  static constexpr ULONG ending = 1UL << 30;

  ModuleLock lock_;
  ULONG references_ = 1;
};

/// The same for an object whose first interface is a dual one of the type library, so that it can
/// also be called by names.
template <class Dual, class... Interfaces>
class DualObject : public ComObject<Dual, Interfaces...> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT index, LCID /*locale*/, ITypeInfo** info) override {
    if (index != 0) return DISP_E_BADINDEX;
    return hresultOf([&] { check(copyTo(typeInfo().get(), info)); });
  }
  STDMETHODIMP GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count, LCID /*locale*/,
                             DISPID* identifiers) override {
    HRESULT result = S_OK;
    const HRESULT described =
        hresultOf([&] { result = typeInfo()->GetIDsOfNames(names, count, identifiers); });
    return FAILED(described) ? described : result;
  }
  STDMETHODIMP Invoke(DISPID member, REFIID /*reserved*/, LCID /*locale*/, WORD kind,
                      DISPPARAMS* parameters, VARIANT* answer, EXCEPINFO* raised,
                      UINT* badArgument) override {
    const ComPtr<IUnknown> alive(this->identity());
    const auto call = [&](WORD as) {
      return typeInfo()->Invoke(static_cast<Dual*>(this), member, as, parameters, answer, raised,
                                badArgument);
    };
    HRESULT result = S_OK;
    const HRESULT described = hresultOf([&] {
      result = call(kind);
      // Some callers do not distinguish "Set" from "Let": the one that exists is called.
      constexpr WORD either = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;
      if (result == DISP_E_MEMBERNOTFOUND && (kind & either)) result = call(kind ^ either);
    });
    return FAILED(described) ? described : result;
  }

 protected:
  void* find(REFIID wanted) override {
    if (wanted == IID_IDispatch) return static_cast<IDispatch*>(static_cast<Dual*>(this));
    return ComObject<Dual, Interfaces...>::find(wanted);
  }
  const ComPtr<ITypeInfo>& typeInfo() {
    if (!typeInfo_) typeInfo_ = typeInfoOf(__uuidof(Dual));
    return typeInfo_;
  }

 private:
  ComPtr<ITypeInfo> typeInfo_;
};

}  // namespace kebu::windows
