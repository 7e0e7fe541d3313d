#include "workbench/windows/settings_aside.h"

#include "windows/support/windows_api.h"

namespace kebu::workbench {

namespace {

constexpr const wchar_t* settings = L"Software\\KEBU_ANAGKELMORIA\\Impostazioni";
constexpr const wchar_t* aside = L"Software\\KEBU_ANAGKELMORIA\\ImpostazioniDaParte";

bool exists(const wchar_t* path) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, &key) != ERROR_SUCCESS) return false;
  RegCloseKey(key);
  return true;
}

void move(const wchar_t* from, const wchar_t* to) {
  HKEY source = nullptr;
  HKEY target = nullptr;
  if (RegOpenKeyExW(HKEY_CURRENT_USER, from, 0, KEY_READ, &source) != ERROR_SUCCESS) return;
  if (RegCreateKeyExW(HKEY_CURRENT_USER, to, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &target,
                      nullptr) == ERROR_SUCCESS) {
    const bool isCopied = RegCopyTreeW(source, nullptr, target) == ERROR_SUCCESS;
    RegCloseKey(target);
    RegCloseKey(source);
    if (isCopied) RegDeleteTreeW(HKEY_CURRENT_USER, from);
    return;
  }
  RegCloseKey(source);
}

}  // namespace

SettingsAside::SettingsAside() {
  // Another run that ended early may have left the user's aside; they must not be replaced.
  if (exists(aside)) {
    RegDeleteTreeW(HKEY_CURRENT_USER, settings);
  } else {
    move(settings, aside);
  }
}

SettingsAside::~SettingsAside() {
  RegDeleteTreeW(HKEY_CURRENT_USER, settings);
  move(aside, settings);
}

}  // namespace kebu::workbench
