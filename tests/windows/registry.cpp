#include "tests/windows/registry.h"

#include <vector>

#include "windows/support/handles.h"

namespace kebu::tests {

namespace {

constexpr DWORD longestName = 16384;

void readKey(HKEY parent, const std::wstring& path, RegistryContents& contents) {
  HKEY opened = nullptr;
  if (RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
  windows::OwnedKey key(opened);
  contents[path + L"|"];
  std::vector<wchar_t> name(longestName);
  std::vector<BYTE> data(1 << 16);
  for (DWORD i = 0;; ++i) {
    auto nameLength = longestName;
    auto size = static_cast<DWORD>(data.size());
    DWORD type = 0;
    const LSTATUS result =
        RegEnumValueW(key.get(), i, name.data(), &nameLength, nullptr, &type, data.data(), &size);
    if (result == ERROR_NO_MORE_ITEMS) break;
    std::wstring& value = contents[path + L"|" + name.data()];
    if (result != ERROR_SUCCESS) continue;
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
    const auto* const units = reinterpret_cast<const wchar_t*>(data.data());
    value = isText ? std::wstring(units, size / sizeof(wchar_t))
                   : std::wstring(data.begin(), data.begin() + size);
    while (isText && !value.empty() && value.back() == 0) value.pop_back();
  }
  std::vector<std::wstring> children;
  for (DWORD i = 0;; ++i) {
    auto nameLength = longestName;
    if (RegEnumKeyExW(key.get(), i, name.data(), &nameLength, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      break;
    }
    children.emplace_back(name.data());
  }
  key.reset();  // before the keys below are opened in turn
  for (const auto& child : children) {
    readKey(parent, path.empty() ? child : path + L"\\" + child, contents);
  }
}

}  // namespace

RegistryContents registeredClasses() {
  RegistryContents contents;
  readKey(HKEY_CLASSES_ROOT, L"", contents);
  return contents;
}

RegistryContents added(const RegistryContents& before, const RegistryContents& after) {
  RegistryContents result;
  for (const auto& [place, value] : after) {
    const auto known = before.find(place);
    if (known == before.end() || known->second != value) result.emplace(place, value);
  }
  return result;
}

}  // namespace kebu::tests
