#include "workbench/windows/automation.h"

#include "common/convert.h"

namespace kebu::workbench {

namespace {

// {7B1C3F52-0B5E-4E0B-9B0C-2F4B6E1D8A37}: known to this program alone.
constexpr GUID ownKind = {
    0x7b1c3f52, 0x0b5e, 0x4e0b, {0x9b, 0x0c, 0x2f, 0x4b, 0x6e, 0x1d, 0x8a, 0x37}};

constexpr std::int32_t controlFacility = static_cast<std::int32_t>(0x800A0000);
constexpr std::int32_t facilityMask = static_cast<std::int32_t>(0xFFFF0000);

}  // namespace

bool Arguments::has(std::size_t index) const {
  return index < count() && followed(parameters_.rgvarg[count() - 1 - index]).vt != VT_ERROR;
}

const VARIANT& Arguments::at(std::size_t index) const {
  if (!has(index)) throw RuntimeError(449, "Argument not optional");
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
    *argument.pvarVal = Variant(value).detach();
  } else if (argument.vt == (VT_BYREF | VT_BOOL)) {
    *argument.pboolVal = toBoolean(value) ? VARIANT_TRUE : VARIANT_FALSE;
  } else if (argument.vt == (VT_BYREF | VT_I4)) {
    *argument.plVal = toInt32(value);
  }
}

AutomationObject* AutomationObject::behind(IUnknown* object) {
  void* own = nullptr;
  if (!object || FAILED(object->QueryInterface(ownKind, &own))) return nullptr;
  auto* const result = static_cast<AutomationObject*>(own);
  result->Release();  // the caller's reference holds it
  return result;
}

STDMETHODIMP AutomationObject::QueryInterface(REFIID wanted, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (wanted == IID_IUnknown || wanted == IID_IDispatch) {
    *object = static_cast<IDispatch*>(this);
  } else if (wanted == ownKind) {
    *object = this;
  } else {
    *object = furtherInterface(wanted);
  }
  if (!*object) return E_NOINTERFACE;
  AddRef();
  return S_OK;
}

IUnknown* AutomationObject::furtherInterface(REFIID /*wanted*/) {
  return nullptr;
}

STDMETHODIMP_(ULONG) AutomationObject::Release() {
  const ULONG left = --references_;
  if (left == 0) delete this;
  return left;
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
  for (std::size_t i = 0; i < memberCount(); ++i) {
    if (lstrcmpiW(names[0], memberName(i)) != 0) continue;
    ids[0] = static_cast<DISPID>(i) + 1;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
  }
  return DISP_E_UNKNOWNNAME;
}

STDMETHODIMP AutomationObject::Invoke(DISPID id, REFIID /*reserved*/, LCID /*locale*/, WORD flags,
                                      DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                      UINT* /*wrongArgument*/) {
  if (!parameters) return E_POINTER;
  const auto index = static_cast<std::size_t>(id == DISPID_VALUE ? 0 : id - 1);
  if (index >= memberCount()) return DISP_E_MEMBERNOTFOUND;
  const bool put = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  const ComRef<IDispatch> keptAlive(this);
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

void fill(EXCEPINFO& exception, const RuntimeError& error) {
  exception = {};
  const bool isSmall = error.number() > 0 && error.number() <= 0xFFFF;
  exception.scode = isSmall ? controlFacility | error.number() : error.number();
  exception.bstrDescription = newBstr(error.description());
  exception.bstrSource = newBstr(error.source());
}

RuntimeError toError(const EXCEPINFO& exception) {
  std::int32_t number = exception.wCode ? exception.wCode : exception.scode;
  if ((number & facilityMask) == controlFacility) number &= ~facilityMask;
  const auto text = [](BSTR value) { return value ? toUtf8(value, SysStringLen(value)) : ""; };
  return {number, text(exception.bstrDescription), text(exception.bstrSource)};
}

}  // namespace kebu::workbench
