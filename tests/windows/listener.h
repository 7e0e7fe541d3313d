#pragma once

#include <functional>
#include <vector>

#include "windows/support/com_object.h"
#include "windows/support/variant.h"

namespace kebu::tests {

/// An object of a host: receives events, and serves where only an object's identity counts.
class Listener final : public windows::ComObject<IDispatch> {
 public:
  struct Heard {
    DISPID event;
    windows::Variant argument;
  };
  std::vector<Heard> heard;
  /// Called after an event was recorded.
  std::function<void()> then;

  STDMETHODIMP GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  STDMETHODIMP Invoke(DISPID event, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                      EXCEPINFO*, UINT*) override {
    heard.push_back(
        {event, parameters->cArgs == 1 ? copy(parameters->rgvarg[0]) : windows::Variant()});
    if (then) then();
    return S_OK;
  }

 private:
  static windows::Variant copy(const VARIANT& value) { return windows::Variant::copyOf(value); }
};

}  // namespace kebu::tests
