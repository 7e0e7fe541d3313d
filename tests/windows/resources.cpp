#include "tests/windows/resources.h"

#include <windows.h>
// After windows.h, which it builds on.
#include <psapi.h>

namespace kebu::tests {

namespace {

BOOL CALLBACK countChild(HWND /*window*/, LPARAM context) {
  ++*reinterpret_cast<int*>(context);
  return TRUE;
}

BOOL CALLBACK countWindow(HWND window, LPARAM context) {
  countChild(window, context);
  EnumChildWindows(window, countChild, context);
  return TRUE;
}

/// A system that does not tell (Wine) finds an object by its number alone.
int findGdiObjects() {
  constexpr ULONG_PTR numbers = 0x10000;
  int found = 0;
  for (ULONG_PTR number = 1; number < numbers; ++number) {
    if (GetObjectType(reinterpret_cast<HGDIOBJ>(number))) ++found;
  }
  return found;
}

}  // namespace

Resources usedResources() {
  Resources used;
  EnumThreadWindows(GetCurrentThreadId(), countWindow, reinterpret_cast<LPARAM>(&used.windows));
  used.gdiObjects = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS));
  used.userObjects = static_cast<int>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS));
  if (used.gdiObjects == 0) used.gdiObjects = findGdiObjects();
  DWORD handles = 0;
  GetProcessHandleCount(GetCurrentProcess(), &handles);
  used.handles = static_cast<int>(handles);
  PROCESS_MEMORY_COUNTERS_EX memory{};
  memory.cb = sizeof memory;
  GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory),
                       sizeof memory);
  used.privateBytes = memory.PrivateUsage;
  return used;
}

std::ostream& operator<<(std::ostream& out, const Resources& used) {
  constexpr std::size_t kilobyte = 1024;
  return out << used.windows << " windows, " << used.gdiObjects << " GDI objects, "
             << used.userObjects << " USER objects, " << used.handles << " handles, "
             << used.privateBytes / kilobyte << " KB";
}

}  // namespace kebu::tests
