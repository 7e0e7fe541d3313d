#pragma once

#include <exception>

#include "controls/control.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Runs `work` in a window procedure, which no error may leave: an error beeps. Whether it
/// succeeded.
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
