#include "windows/support/module.h"

#include <atomic>
#include <vector>

#include "windows/support/com_error.h"
#include "windows/support/windows_api.h"

// The linker puts it at the start of the module.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kebu::windows {

namespace {

std::atomic<long> locks = 0;

}  // namespace

HINSTANCE moduleHandle() {
  return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::wstring modulePath() {
  std::wstring path(MAX_PATH, L'\0');
  DWORD length = 0;
  while ((length = GetModuleFileNameW(moduleHandle(), path.data(),
                                      static_cast<DWORD>(path.size()))) == path.size()) {
    path.resize(path.size() * 2);
  }
  path.resize(length);
  return path;
}

ComPtr<ITypeInfo> typeInfoOf(REFIID type) {
  ComPtr<ITypeLib> library;
  check(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, library.put()));
  ComPtr<ITypeInfo> info;
  check(library->GetTypeInfoOfGuid(type, info.put()));
  return info;
}

void ModuleLock::add() {
  ++locks;
}

void ModuleLock::remove() {
  --locks;
}

bool ModuleLock::anyHeld() {
  return locks > 0;
}

}  // namespace kebu::windows
