#include "windows/support/automation.h"

#include "common/convert.h"
#include "windows/support/com_error.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

namespace {

/// An interface that only this module's objects have: those of another module that is built from
/// the same sources may have another layout.
const IID& ownKind() {
  static const IID id = [] {
    IID fresh{};
    CoCreateGuid(&fresh);
    return fresh;
  }();
  return id;
}

}  // namespace

bool Arguments::has(std::size_t index) const {
  return index < count() && followed(parameters_.rgvarg[count() - 1 - index]).vt != VT_ERROR;
}

const VARIANT& Arguments::at(std::size_t index) const {
  if (!has(index)) throw errorOf(DISP_E_PARAMNOTOPTIONAL);
  return parameters_.rgvarg[count() - 1 - index];
}

std::string Arguments::text(std::size_t index) const {
  return toText(value(index));
}

std::vector<std::string> Arguments::textsFrom(std::size_t index) const {
  std::vector<std::string> texts;
  for (; index < count(); ++index) texts.push_back(text(index));
  return texts;
}

std::int32_t Arguments::number(std::size_t index) const {
  return toInt32(value(index));
}

std::int32_t Arguments::number(std::size_t index, std::int32_t usual) const {
  return has(index) ? number(index) : usual;
}

bool Arguments::flag(std::size_t index) const {
  return toBoolean(value(index));
}

void Arguments::giveBack(std::size_t index, const Value& value) const {
  const VARIANT& argument = at(index);
  if (argument.vt == (VT_BYREF | VT_VARIANT)) {
    VariantClear(argument.pvarVal);
    *argument.pvarVal = toVariant(value).detach();
  } else if (argument.vt == (VT_BYREF | VT_BOOL)) {
    *argument.pboolVal = toBoolean(value) ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (argument.vt == (VT_BYREF | VT_I4)) {
    *argument.plVal = toInt32(value);
  }
}

AutomationObject* AutomationObject::behind(IUnknown* object) {
  void* own = nullptr;
  if (!object || FAILED(object->QueryInterface(ownKind(), &own))) return nullptr;
  auto* const result = static_cast<AutomationObject*>(own);
  result->Release();  // the caller's reference holds it
  return result;
}

void* AutomationObject::find(REFIID wanted) {
  return wanted == ownKind() ? this : ComObject<IDispatch>::find(wanted);
}

STDMETHODIMP AutomationObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 0;
  return S_OK;
}

STDMETHODIMP AutomationObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) {
  if (info) *info = nullptr;
  return E_NOTIMPL;
}

STDMETHODIMP AutomationObject::GetIDsOfNames(REFIID /*reserved*/, LPOLESTR* names, UINT count,
                                             LCID /*locale*/, DISPID* ids) {
  if (!names || !ids) return E_POINTER;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  if (count == 0) return S_OK;
  const std::size_t member = indexOf(names[0]);
  if (member == memberCount()) return DISP_E_UNKNOWNNAME;
  const bool isNewEnum = lstrcmpiW(names[0], newEnumMember) == 0;
  ids[0] = isNewEnum ? DISPID_NEWENUM : static_cast<DISPID>(member) + 1;
  return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
}

std::size_t AutomationObject::indexOf(const wchar_t* name) const {
  std::size_t member = 0;
  while (member < memberCount() && lstrcmpiW(name, memberName(member)) != 0) ++member;
  return member;
}

std::size_t AutomationObject::indexOf(DISPID id) const {
  if (id == DISPID_VALUE) return 0;
  return id == DISPID_NEWENUM ? indexOf(newEnumMember) : static_cast<std::size_t>(id - 1);
}

STDMETHODIMP AutomationObject::Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD flags,
                                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                      UINT* /*wrongArgument*/) {
  if (!parameters) return E_POINTER;
  const std::size_t index = indexOf(id);
  if (index >= memberCount()) return DISP_E_MEMBERNOTFOUND;
  const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  const ComPtr<IDispatch> keptAlive(this);
  try {
    Variant answer;
    if (!invoke(index, put, Arguments(*parameters), answer)) return DISP_E_MEMBERNOTFOUND;
    if (result) *result = answer.detach();
    return S_OK;
  } catch (...) {
    if (exception) fill(*exception, RuntimeError::current());
    return DISP_E_EXCEPTION;
  }
}

}  // namespace kebu::windows
