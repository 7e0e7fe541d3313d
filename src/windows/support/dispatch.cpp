#include "windows/support/dispatch.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>

#include "common/convert.h"
#include "windows/support/safe_array.h"
#include "windows/support/values.h"

namespace kebu::windows {

namespace {

RuntimeError about(std::wstring_view name, const RuntimeError& error) {
  return {error.number(), error.description() + ": " + toUtf8(name), error.source()};
}

/// Converts a result; an error names the member that it came from.
template <class Convert>
auto converted(std::wstring_view name, const Variant& answer, Convert&& convert) {
  try {
    return convert(answer.get());
  } catch (const RuntimeError& error) {
    throw about(name, error);
  }
}

}  // namespace

HRESULT Dispatch::find(std::wstring_view name, DISPID& identifier) const {
  if (!object_) throw RuntimeError::objectNotSet();
  for (const auto& [known, its] : identifiers_) {
    if (known != name) continue;
    identifier = its;
    return S_OK;
  }
  std::wstring copy(name);
  LPOLESTR names = copy.data();
  const HRESULT result =
      object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &identifier);
  if (SUCCEEDED(result)) identifiers_.emplace_back(name, identifier);
  return result;
}

bool Dispatch::has(std::wstring_view name) const {
  DISPID identifier = DISPID_UNKNOWN;
  return SUCCEEDED(find(name, identifier));
}

Variant Dispatch::invoke(std::wstring_view name, WORD kind, DISPPARAMS& parameters) const {
  DISPID member = DISPID_UNKNOWN;
  const HRESULT found = find(name, member);
  if (FAILED(found)) throw about(name, errorOf(found));
  // The call may release this object.
  const ComPtr<IDispatch> callee = object_;
  const bool puts = kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  Variant answer;
  EXCEPINFO raised = {};
  UINT badArgument = 0;
  const HRESULT result = callee->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                                        puts ? nullptr : answer.put(), &raised, &badArgument);
  if (result == DISP_E_EXCEPTION) throw errorIn(raised);
  if (FAILED(result)) throw about(name, errorOf(result));
  return answer;
}

Variant Dispatch::call(std::wstring_view name, const Arguments& arguments) const {
  // Arguments are passed in reverse order and stay the caller's.
  std::array<VARIANT, 8> reversed;
  if (arguments.size() > reversed.size()) throw RuntimeError::invalidCall();
  std::transform(std::make_reverse_iterator(arguments.end()),
                 std::make_reverse_iterator(arguments.begin()), reversed.begin(),
                 [](const Variant& argument) { return argument.get(); });
  DISPPARAMS parameters = {reversed.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
  return invoke(name, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters);
}

void Dispatch::put(std::wstring_view name, const Variant& value) const {
  VARIANT argument = value.get();
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {&argument, &named, 1, 1};
  const bool isObject = value.type() == VT_DISPATCH || value.type() == VT_UNKNOWN;
  invoke(name, isObject ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT, parameters);
}

Dispatch Dispatch::get(std::wstring_view name, const Arguments& arguments) const {
  return Dispatch(converted(name, call(name, arguments), objectIn));
}

Value Dispatch::value(std::wstring_view name, const Arguments& arguments) const {
  return converted(name, call(name, arguments), toValue);
}

std::string Dispatch::text(std::wstring_view name, const Arguments& arguments) const {
  return converted(name, call(name, arguments),
                   [](const VARIANT& answer) { return toText(toValue(answer)); });
}

std::int32_t Dispatch::number(std::wstring_view name, const Arguments& arguments) const {
  return converted(name, call(name, arguments),
                   [](const VARIANT& answer) { return toInt32(toValue(answer)); });
}

bool Dispatch::flag(std::wstring_view name, const Arguments& arguments) const {
  return converted(name, call(name, arguments),
                   [](const VARIANT& answer) { return toBoolean(toValue(answer)); });
}

std::vector<std::string> Dispatch::texts(std::wstring_view name, const Arguments& arguments) const {
  return converted(name, call(name, arguments), [](const VARIANT& answer) {
    std::vector<std::string> result;
    for (const Value& element : vectorIn(answer)) result.push_back(toText(element));
    return result;
  });
}

}  // namespace kebu::windows
