#include "workbench/windows/user_classes.h"

#include "workbench/cli/command_line.h"

namespace kebu::workbench {

namespace {

/// Otherwise RegisterTypeLib does not follow the redirection. Known since Windows Vista SP1.
void letTypeLibrariesFollow() {
  const auto enable = reinterpret_cast<void(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"oleaut32.dll"), "OaEnablePerUserTLibRegistration")));
  if (enable) enable();
}

}  // namespace

UserClasses::UserClasses() {
  HKEY key = nullptr;
  LSTATUS result = RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0,
                                   KEY_ALL_ACCESS, nullptr, &key, nullptr);
  classes_.reset(key);
  if (result == ERROR_SUCCESS) result = RegOverridePredefKey(HKEY_CLASSES_ROOT, key);
  if (result != ERROR_SUCCESS) throw CommandError("the user's classes cannot be written");
  letTypeLibrariesFollow();
}

UserClasses::~UserClasses() {
  RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
}

}  // namespace kebu::workbench
