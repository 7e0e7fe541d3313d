#include "windows/support/dispatch.h"

#include <algorithm>
#include <string>

namespace kebu::windows {

DISPID Dispatch::identifier(std::wstring_view name) const {
  if (!object_)
    throw RuntimeError::objectNotSet();
  const auto known =
      std::find_if(identifiers_.begin(), identifiers_.end(),
                   [&](const auto &entry) { return entry.first == name; });
  if (known != identifiers_.end())
    return known->second;

  std::wstring copy(name);
  LPOLESTR names = copy.data();
  DISPID found = DISPID_UNKNOWN;
  const HRESULT result =
      object_->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &found);
  if (FAILED(result)) {
    const RuntimeError error = errorOf(result);
    throw RuntimeError(error.number(),
                       error.description() + ": " + toUtf8(name),
                       error.source());
  }
  identifiers_.emplace_back(name, found);
  return found;
}

Variant Dispatch::invoke(DISPID member, WORD kind,
                         DISPPARAMS &parameters) const {
  // What is called may let this object go.
  const ComPtr<IDispatch> callee = object_;
  Variant answer;
  EXCEPINFO raised = {};
  UINT badArgument = 0;
  const bool puts = kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF);
  const HRESULT result =
      callee->Invoke(member, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters,
                     puts ? nullptr : answer.put(), &raised, &badArgument);
  if (FAILED(result))
    throw errorOf(result, raised);
  return answer;
}

Variant Dispatch::call(std::wstring_view name, Arguments arguments) const {
  const DISPID member = identifier(name);
  // Arguments go from the last to the first; who passes them keeps them.
  std::vector<VARIANT> reversed;
  reversed.reserve(arguments.size());
  for (const Variant &argument : arguments)
    reversed.push_back(argument.get());
  std::reverse(reversed.begin(), reversed.end());
  DISPPARAMS parameters = {reversed.data(), nullptr,
                           static_cast<UINT>(reversed.size()), 0};
  return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, parameters);
}

void Dispatch::put(std::wstring_view name, const Variant &value) const {
  const DISPID member = identifier(name);
  VARIANT argument = value.get();
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {&argument, &named, 1, 1};
  const bool isObject =
      value.type() == VT_DISPATCH || value.type() == VT_UNKNOWN;
  invoke(member, isObject ? DISPATCH_PROPERTYPUTREF : DISPATCH_PROPERTYPUT,
         parameters);
}

Dispatch Dispatch::get(std::wstring_view name, Arguments arguments) const {
  return Dispatch(call(name, arguments).object());
}

} // namespace kebu::windows
