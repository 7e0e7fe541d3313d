#include "tests/windows/resources.h"

#include <array>

#include "windows/support/windows_api.h"

namespace kebu::tests {

namespace {

constexpr ULONG_PTR lastNumber = 0xFFFF;

/// Counts objects by trying every number, where the system has no count: Wine finds an object by
/// the low bits of its handle alone.
template <class Exists>
int countByNumber(Exists&& exists) {
  int found = 0;
  for (ULONG_PTR number = 1; number <= lastNumber; ++number) {
    if (exists(reinterpret_cast<void*>(number))) ++found;
  }
  return found;
}

bool isGdiObject(void* number) {
  return GetObjectType(number) != 0;
}

/// A window of this process, a menu or an icon.
bool isUserObject(void* number) {
  DWORD process = 0;
  const auto window = static_cast<HWND>(number);
  if (GetWindowThreadProcessId(window, &process)) return process == GetCurrentProcessId();
  if (IsMenu(static_cast<HMENU>(number))) return true;
  ICONINFO icon{};
  if (!GetIconInfo(static_cast<HICON>(number), &icon)) return false;
  DeleteObject(icon.hbmColor);
  DeleteObject(icon.hbmMask);
  return true;
}

bool isHandle(void* number) {
  DWORD flags = 0;
  return reinterpret_cast<ULONG_PTR>(number) % 4 == 0 && GetHandleInformation(number, &flags);
}

/// The bytes in use in every heap of the process.
std::size_t allocatedBytes() {
  std::array<HANDLE, 64> heaps{};
  const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
  std::size_t bytes = 0;
  for (DWORD i = 0; i < count && i < heaps.size(); ++i) {
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heaps[i]);
    while (HeapWalk(heaps[i], &entry)) {
      if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
    }
    HeapUnlock(heaps[i]);
  }
  return bytes;
}

}  // namespace

Resources usedResources() {
  Resources used;
  HANDLE const process = GetCurrentProcess();
  used.gdiObjects = static_cast<int>(GetGuiResources(process, GR_GDIOBJECTS));
  if (used.gdiObjects == 0) used.gdiObjects = countByNumber(isGdiObject);
  used.userObjects = static_cast<int>(GetGuiResources(process, GR_USEROBJECTS));
  if (used.userObjects == 0) used.userObjects = countByNumber(isUserObject);
  DWORD handles = 0;
  GetProcessHandleCount(process, &handles);
  used.handles = handles > 0 ? static_cast<int>(handles) : countByNumber(isHandle);
  used.bytes = allocatedBytes();
  return used;
}

std::ostream& operator<<(std::ostream& out, const Resources& used) {
  return out << used.gdiObjects << " GDI objects, " << used.userObjects << " USER objects, "
             << used.handles << " handles, " << used.bytes << " bytes";
}

}  // namespace kebu::tests
