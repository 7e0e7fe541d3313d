#include "windows/ado/ado_objects.h"

namespace kebu::windows {

ado::Errors readErrors(IDispatch* collection) {
  ado::Errors errors;
  if (!collection) return errors;
  const Dispatch list{ComPtr<IDispatch>(collection)};
  const std::int32_t count = list.number(L"Count");
  for (std::int32_t i = 0; i < count; ++i) {
    const Dispatch entry = list.get(L"Item", {i});
    errors.push_back({entry.number(L"Number"), entry.text(L"Description"), entry.text(L"Source"),
                      entry.number(L"NativeError"), entry.text(L"SQLState")});
  }
  return errors;
}

}  // namespace kebu::windows
