#include "windows/support/com_error.h"

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <string>

#include "windows/support/bstr.h"
#include "windows/support/com_ptr.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

namespace {

/// The run time's numbers for HRESULTs of COM.
struct KnownError {
  HRESULT result;
  std::int32_t number;
  const char* description;
};
constexpr KnownError knownErrors[] = {
    {DISP_E_UNKNOWNNAME, 438, "Object doesn't support this property or method"},
    {DISP_E_MEMBERNOTFOUND, 438, "Object doesn't support this property or method"},
    {DISP_E_TYPEMISMATCH, 13, "Type mismatch"},
    {DISP_E_OVERFLOW, 6, "Overflow"},
    {DISP_E_DIVBYZERO, 11, "Division by zero"},
    {DISP_E_BADINDEX, 9, "Subscript out of range"},
    {DISP_E_BADPARAMCOUNT, 450, "Wrong number of arguments or invalid property assignment"},
    {DISP_E_PARAMNOTOPTIONAL, 449, "Argument not optional"},
    {E_OUTOFMEMORY, 7, "Out of memory"},
    {E_INVALIDARG, 5, "Invalid procedure call or argument"},
    {REGDB_E_CLASSNOTREG, 429, "ActiveX component can't create object"},
    {CLASS_E_CLASSNOTAVAILABLE, 429, "ActiveX component can't create object"},
    {CONNECT_E_NOCONNECTION, 459, "Object or class does not support the set of events"},
    {CONNECT_E_CANNOTCONNECT, 459, "Object or class does not support the set of events"},
    {E_NOINTERFACE, 430,
     "Class does not support Automation or does not support expected interface"},
    {RPC_E_DISCONNECTED, 462, "The remote server machine does not exist or is unavailable"},
};

std::string systemText(HRESULT result) {
  wchar_t buffer[512] = {};
  DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                static_cast<DWORD>(result), 0, buffer,
                                static_cast<DWORD>(std::size(buffer)), nullptr);
  while (length > 0 && buffer[length - 1] <= L' ') --length;
  if (length > 0) return toUtf8(std::wstring_view(buffer, length));
  char text[32];
  std::snprintf(text, sizeof text, "Error 0x%08lX", static_cast<unsigned long>(result));
  return text;
}

RuntimeError make(HRESULT result, std::string description, std::string source) {
  const auto* const known = std::ranges::find(knownErrors, result, &KnownError::result);
  const bool isKnown = known != std::end(knownErrors);
  std::int32_t number = isKnown ? known->number : static_cast<std::int32_t>(result);
  if (HRESULT_FACILITY(result) == FACILITY_CONTROL) number = HRESULT_CODE(result);
  if (description.empty()) description = isKnown ? known->description : systemText(result);
  if (source.empty()) source = "KEBU_ANAGKELMORIA";
  return {number, std::move(description), std::move(source)};
}

void leaveBehind(const RuntimeError& error) {
  ComPtr<ICreateErrorInfo> creator;
  if (FAILED(CreateErrorInfo(creator.put()))) return;
  creator->SetDescription(Bstr(error.description()).get());
  creator->SetSource(Bstr(error.source()).get());
  if (const auto info = creator.as<IErrorInfo>()) SetErrorInfo(0, info.get());
}

HRESULT resultFor(std::int32_t number) {
  if (number < 0) return static_cast<HRESULT>(number);
  if (number == 0 || number > 0xFFFF) return E_FAIL;
  return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

}  // namespace

// No function that this library calls by an HRESULT alone sets a description: one that is there
// would belong to an earlier call.
RuntimeError errorOf(HRESULT result) {
  return make(result, {}, {});
}

RuntimeError errorIn(EXCEPINFO& raised) {
  if (raised.pfnDeferredFillIn) raised.pfnDeferredFillIn(&raised);
  std::string description = Bstr::utf8Of(raised.bstrDescription);
  std::string source = Bstr::utf8Of(raised.bstrSource);
  SysFreeString(raised.bstrDescription);
  SysFreeString(raised.bstrSource);
  SysFreeString(raised.bstrHelpFile);
  // Either of the two numbers is filled in, never both.
  const HRESULT number = raised.scode ? raised.scode : resultFor(raised.wCode);
  raised = {};
  return make(number, std::move(description), std::move(source));
}

HRESULT resultOf(const RuntimeError& error) {
  return resultFor(error.number());
}

void fill(EXCEPINFO& raised, const RuntimeError& error) {
  raised = {};
  raised.scode = resultOf(error);
  raised.bstrDescription = Bstr(error.description()).detach();
  raised.bstrSource = Bstr(error.source()).detach();
}

HRESULT reportCurrentError() noexcept {
  try {
    const RuntimeError error = RuntimeError::current();
    leaveBehind(error);
    return resultOf(error);
  } catch (...) {
    return E_OUTOFMEMORY;
  }
}

}  // namespace kebu::windows
