#include "workbench/windows/late_bound.h"

#include <algorithm>
#include <iterator>

#include "common/convert.h"
#include "windows/views/wide_text.h"
#include "workbench/windows/automation.h"

namespace kebu::workbench {

namespace {

RuntimeError failed(HRESULT result, const char* member) {
  constexpr std::int32_t notSupported = 438;
  if (result == DISP_E_UNKNOWNNAME || result == DISP_E_MEMBERNOTFOUND) {
    return {notSupported, std::string("Object doesn't support this property or method: ") + member};
  }
  if (result == DISP_E_TYPEMISMATCH) return RuntimeError::typeMismatch();
  return {static_cast<std::int32_t>(result), std::string("Automation error in ") + member};
}

}  // namespace

Variant LateBound::invoke(const char* member, WORD flags,
                          std::initializer_list<Variant> arguments) const {
  if (!object_) throw RuntimeError::objectNotSet();
  std::wstring name = windows::toWide(member);
  LPOLESTR names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  HRESULT result = object_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(result)) throw failed(result, member);

  std::vector<VARIANT> backward;  // only lent: the arguments stay the caller's
  std::transform(std::make_reverse_iterator(arguments.end()),
                 std::make_reverse_iterator(arguments.begin()), std::back_inserter(backward),
                 [](const Variant& argument) { return argument.get(); });
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  DISPPARAMS parameters{backward.data(), isPut ? &put : nullptr, static_cast<UINT>(backward.size()),
                        isPut ? 1U : 0U};
  Variant answer;
  EXCEPINFO exception{};
  result = object_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                           isPut ? nullptr : answer.out(), &exception, nullptr);
  if (result == DISP_E_EXCEPTION) {
    if (exception.pfnDeferredFillIn) exception.pfnDeferredFillIn(&exception);
    const RuntimeError error = toError(exception);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
    throw error;
  }
  if (FAILED(result)) throw failed(result, member);
  return answer;
}

std::string ForeignObject::Name() const {
  return toText(object_.value("Name"));
}

void ForeignObject::setName(const std::string& name) {
  object_.put("Name", Variant(name));
}

Ref<host::NamedObject> ForeignObject::of(const ComRef<IDispatch>& object) {
  if (!object) return nullptr;
  return makeRef<ForeignObject>(object);
}

ComRef<IDispatch> ForeignObject::behind(const Ref<host::NamedObject>& object) {
  const auto own = std::dynamic_pointer_cast<ForeignObject>(object.shared());
  return own ? own->object() : nullptr;
}

}  // namespace kebu::workbench
