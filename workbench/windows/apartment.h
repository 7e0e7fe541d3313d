#pragma once

#include <windows.h>

#include <objbase.h>

namespace kebu::workbench {

/// COM on this thread, as a user-interface thread has it.
class Apartment {
 public:
  Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~Apartment() { CoUninitialize(); }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
};

}  // namespace kebu::workbench
