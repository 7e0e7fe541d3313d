#pragma once

#include <memory>
#include <type_traits>

#include "windows/support/windows_api.h"

namespace kebu::windows {

template <auto close>
struct CloseWith {
  template <class Handle>
  void operator()(Handle handle) const {
    close(handle);
  }
};
/// Owns a handle, which the function `close` closes at the end; null for none.
template <class Handle, auto close>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, CloseWith<close>>;

/// A window that is destroyed with its owner, not only with its parent.
using OwnedWindow = Owned<HWND, DestroyWindow>;
using OwnedKey = Owned<HKEY, RegCloseKey>;
using OwnedModule = Owned<HMODULE, FreeLibrary>;
using OwnedHook = Owned<HHOOK, UnhookWindowsHookEx>;
/// A device context of CreateCompatibleDC.
using OwnedMemoryDc = Owned<HDC, DeleteDC>;
using OwnedBitmap = Owned<HBITMAP, DeleteObject>;
using OwnedBrush = Owned<HBRUSH, DeleteObject>;
using OwnedFont = Owned<HFONT, DeleteObject>;
using OwnedEvent = Owned<HANDLE, CloseHandle>;

}  // namespace kebu::windows
