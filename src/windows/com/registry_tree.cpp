#include "windows/com/registry_tree.h"

#include <utility>

#include "windows/support/com_error.h"
#include "windows/support/handles.h"

namespace kebu::windows {

namespace {

void checkRegistry(LSTATUS result) {
  check(HRESULT_FROM_WIN32(result));
}

/// Null when the key is not there.
OwnedKey open(HKEY parent, const std::wstring& path, REGSAM access) {
  HKEY key = nullptr;
  const LSTATUS result = RegOpenKeyExW(parent, path.c_str(), 0, access, &key);
  if (result != ERROR_FILE_NOT_FOUND) checkRegistry(result);
  return OwnedKey(key);
}

}  // namespace

RegistryTree::RegistryTree(std::wstring path) : path_(std::move(path)) {
  if (const OwnedKey key = open(HKEY_CLASSES_ROOT, path_, KEY_READ)) root_ = read(key.get());
}

RegistryTree::Key RegistryTree::read(HKEY key) {
  Key found;
  DWORD longestKey = 0;
  DWORD longestName = 0;
  DWORD mostData = 0;
  checkRegistry(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, &longestKey, nullptr,
                                 nullptr, &longestName, &mostData, nullptr, nullptr));
  for (DWORD i = 0;; ++i) {
    Value value{std::wstring(longestName + 1, L'\0'), REG_NONE, std::vector<BYTE>(mostData)};
    auto length = static_cast<DWORD>(value.name.size());
    DWORD size = mostData;
    const LSTATUS result = RegEnumValueW(key, i, value.name.data(), &length, nullptr, &value.type,
                                         value.data.data(), &size);
    if (result == ERROR_NO_MORE_ITEMS) break;
    checkRegistry(result);
    value.name.resize(length);
    value.data.resize(size);
    found.values.push_back(std::move(value));
  }
  for (DWORD i = 0;; ++i) {
    std::wstring name(longestKey + 1, L'\0');
    auto length = static_cast<DWORD>(name.size());
    const LSTATUS result =
        RegEnumKeyExW(key, i, name.data(), &length, nullptr, nullptr, nullptr, nullptr);
    if (result == ERROR_NO_MORE_ITEMS) break;
    checkRegistry(result);
    name.resize(length);
    if (const OwnedKey inner = open(key, name, KEY_READ)) found.keys[name] = read(inner.get());
  }
  return found;
}

void RegistryTree::write(HKEY parent, const std::wstring& name, const Key& key) {
  HKEY made = nullptr;
  checkRegistry(
      RegCreateKeyExW(parent, name.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &made, nullptr));
  const OwnedKey owned(made);
  for (const Value& value : key.values) {
    checkRegistry(RegSetValueExW(made, value.name.c_str(), 0, value.type, value.data.data(),
                                 static_cast<DWORD>(value.data.size())));
  }
  for (const auto& [innerName, inner] : key.keys) write(made, innerName, inner);
}

void RegistryTree::restore() const {
  deleteTree(path_);
  if (root_) write(HKEY_CLASSES_ROOT, path_, *root_);
}

void deleteTree(const std::wstring& path) {
  const LSTATUS result = RegDeleteTreeW(HKEY_CLASSES_ROOT, path.c_str());
  if (result != ERROR_FILE_NOT_FOUND) checkRegistry(result);
}

std::optional<std::wstring> textValue(const std::wstring& path, REGSAM view) {
  // By way of the root's own handle, since a program may have redirected the root.
  const OwnedKey root = open(HKEY_CLASSES_ROOT, {}, KEY_READ);
  const OwnedKey key = root ? open(root.get(), path, KEY_READ | view) : nullptr;
  DWORD size = 0;
  if (!key || RegGetValueW(key.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
                  ERROR_SUCCESS) {
    return std::nullopt;
  }
  std::wstring text(size / sizeof(wchar_t), L'\0');
  checkRegistry(
      RegGetValueW(key.get(), nullptr, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size));
  text.resize(size / sizeof(wchar_t) - 1);  // the size counts the final zero
  return text;
}

}  // namespace kebu::windows
