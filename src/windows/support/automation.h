#pragma once

#include <memory>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

#include "common/value.h"
#include "windows/support/com_object.h"
#include "windows/support/values.h"
#include "windows/support/variant.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// The arguments of a late-bound call, in the order in which they are written.
class Arguments {
 public:
  explicit Arguments(const DISPPARAMS& parameters) : parameters_(parameters) {}

  std::size_t count() const { return parameters_.cArgs; }
  bool has(std::size_t index) const;
  /// RuntimeError 449 when it was omitted.
  const VARIANT& at(std::size_t index) const;
  Value value(std::size_t index) const { return toValue(at(index)); }
  std::string text(std::size_t index) const;
  /// That argument and all after it.
  std::vector<std::string> textsFrom(std::size_t index) const;
  std::int32_t number(std::size_t index) const;
  std::int32_t number(std::size_t index, std::int32_t usual) const;
  bool flag(std::size_t index) const;
  ComPtr<IDispatch> object(std::size_t index) const { return objectIn(at(index)); }
  /// Assigns to an argument that was passed by reference; does nothing for another.
  void giveBack(std::size_t index, const Value& value) const;

 private:
  const DISPPARAMS& parameters_;
};

/// The member that "For Each" asks for its enumerator. Its identifier is DISPID_NEWENUM.
inline constexpr const wchar_t* newEnumMember = L"_NewEnum";

/// A member of an object. Reading a property and calling a method are the same; setting a property
/// passes the value as the last argument.
template <class Subject>
struct Member {
  const wchar_t* name;
  Variant (*call)(Subject& subject, const Arguments& arguments);
  void (*put)(Subject& subject, const Arguments& arguments) = nullptr;
};

/// The result of a member without one.
inline Variant nothing() {
  return {};
}

/// An object that is called by late binding. Its members are a table; the
/// first is also its default member.
class AutomationObject : public ComObject<IDispatch> {
 public:
  /// The object of this class behind a reference; null for one that another module made.
  static AutomationObject* behind(IUnknown* object);

  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

 protected:
  void* find(REFIID wanted) override;

 private:
  // memberCount() or more when there is no such member.
  std::size_t indexOf(const wchar_t* name) const;
  std::size_t indexOf(DISPID id) const;
  virtual std::size_t memberCount() const = 0;
  virtual const wchar_t* memberName(std::size_t index) const = 0;
  /// False when the member cannot be used so.
  virtual bool invoke(std::size_t index, bool put, const Arguments& arguments, Variant& result) = 0;
};

template <class Subject>
class Automated : public AutomationObject {
 public:
  Automated(std::shared_ptr<Subject> subject, std::span<const Member<Subject>> members)
      : subject_(std::move(subject)), members_(members) {}

  const std::shared_ptr<Subject>& subject() const { return subject_; }

 private:
  std::size_t memberCount() const override { return members_.size(); }
  const wchar_t* memberName(std::size_t index) const override { return members_[index].name; }
  bool invoke(std::size_t index, bool put, const Arguments& arguments, Variant& result) override {
    const Member<Subject>& member = members_[index];
    const auto keptAlive = subject_;
    if (put && member.put) {
      member.put(*keptAlive, arguments);
    } else if (!put && member.call) {
      result = member.call(*keptAlive, arguments);
    } else {
      return false;
    }
    return true;
  }

  std::shared_ptr<Subject> subject_;
  std::span<const Member<Subject>> members_;
};

/// A COM object for the subject; absent for a null one.
template <class Subject>
ComPtr<IDispatch> automated(const std::shared_ptr<Subject>& subject,
                            std::span<const Member<std::type_identity_t<Subject>>> members) {
  if (!subject) return nullptr;
  return ComPtr<IDispatch>::adopt(new Automated<Subject>(subject, members));
}

/// The subject of a COM object; null for an absent one and for one of another class.
template <class Subject>
std::shared_ptr<Subject> subjectOf(const ComPtr<IDispatch>& object) {
  auto* const own = dynamic_cast<Automated<Subject>*>(AutomationObject::behind(object.get()));
  return own ? own->subject() : nullptr;
}

}  // namespace kebu::windows
