#pragma once

#include <mutex>
#include <optional>
#include <unordered_map>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// What belongs to windows, by their handles: the same as a window property, but in our own memory.
/// A control looks it up with each message, and under Wine each look at a property is a call of
/// another process. Windows of all threads stand in it. An entry must be removed when its window
/// ends, since Windows uses handles again.
template <class Value>
class WindowTable {
 public:
  void put(HWND window, const Value& value) {
    const std::lock_guard lock(guard_);
    values_.insert_or_assign(window, value);
  }
  std::optional<Value> find(HWND window) const {
    const std::lock_guard lock(guard_);
    const auto at = values_.find(window);
    return at == values_.end() ? std::nullopt : std::optional(at->second);
  }
  void remove(HWND window) {
    const std::lock_guard lock(guard_);
    values_.erase(window);
  }

 private:
  mutable std::mutex guard_;
  std::unordered_map<HWND, Value> values_;
};

}  // namespace kebu::windows
