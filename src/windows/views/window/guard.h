#pragma once

#include <windows.h>

#include <exception>

#include "controls/control.h"

namespace kebu::windows {

/// No error may leave a window procedure. What a person could not have done
/// beeps; whether `work` was done.
template <class Work>
bool guarded(Work&& work) noexcept {
  try {
    work();
    return true;
  } catch (const controls::GestureRefused&) {
    MessageBeep(MB_OK);
  } catch (const std::exception& error) {
    OutputDebugStringA(error.what());
    MessageBeep(MB_ICONERROR);
  }
  return false;
}

}  // namespace kebu::windows
