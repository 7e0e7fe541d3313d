#pragma once

#include <memory>
#include <type_traits>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Owns a handle, which `Close` closes at the end; null for none.
template <class Handle, class Close>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, Close>;

struct CloseWindow {
  void operator()(HWND window) const { DestroyWindow(window); }
};
struct CloseKey {
  void operator()(HKEY key) const { RegCloseKey(key); }
};
struct CloseModule {
  void operator()(HMODULE module) const { FreeLibrary(module); }
};
struct CloseHook {
  void operator()(HHOOK hook) const { UnhookWindowsHookEx(hook); }
};
struct CloseMemoryDc {
  void operator()(HDC dc) const { DeleteDC(dc); }
};
struct CloseGdiObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct CloseKernelObject {
  void operator()(HANDLE object) const { CloseHandle(object); }
};

/// A window that is destroyed with its owner, not only with its parent.
using OwnedWindow = Owned<HWND, CloseWindow>;
using OwnedKey = Owned<HKEY, CloseKey>;
using OwnedModule = Owned<HMODULE, CloseModule>;
using OwnedHook = Owned<HHOOK, CloseHook>;
/// A device context of CreateCompatibleDC.
using OwnedMemoryDc = Owned<HDC, CloseMemoryDc>;
using OwnedBitmap = Owned<HBITMAP, CloseGdiObject>;
using OwnedBrush = Owned<HBRUSH, CloseGdiObject>;
using OwnedFont = Owned<HFONT, CloseGdiObject>;
using OwnedEvent = Owned<HANDLE, CloseKernelObject>;

}  // namespace kebu::windows
