#pragma once

#include <initializer_list>
#include <vector>

#include "windows/support/windows_api.h"

namespace kebu::tests {

/// While it lives, this thread sees these keys held down.
class HeldKeys {
 public:
  HeldKeys(std::initializer_list<int> keys) : HeldKeys(std::vector<int>(keys)) {}
  explicit HeldKeys(std::vector<int> keys) : keys_(std::move(keys)) { set(0x80); }
  ~HeldKeys() { set(0); }
  HeldKeys(const HeldKeys&) = delete;
  HeldKeys& operator=(const HeldKeys&) = delete;

 private:
  void set(BYTE state) const {
    BYTE all[256] = {};
    GetKeyboardState(all);
    for (const int key : keys_) all[key] = state;
    SetKeyboardState(all);
  }

  std::vector<int> keys_;
};

}  // namespace kebu::tests
