#pragma once

#include "windows/support/windows_api.h"

namespace kebu::workbench {

/// COM on this thread, as the ERP's user-interface thread has it: single-threaded,
/// numbers and dates in Italian.
class Apartment {
 public:
  Apartment() {
    constexpr LCID italian = 0x0410;
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    SetThreadLocale(italian);
  }
  ~Apartment() { CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

}  // namespace kebu::workbench
