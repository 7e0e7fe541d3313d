#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// A key below HKEY_CLASSES_ROOT with its values and all keys below it, as they were when it was
/// read.
class RegistryTree {
 public:
  explicit RegistryTree(std::wstring path);

  /// Makes the key what it was; one that was not there is deleted. RuntimeError when that fails.
  void restore() const;

 private:
  struct Value {
    std::wstring name;
    DWORD type = REG_NONE;
    std::vector<BYTE> data;
  };
  struct Key {
    std::vector<Value> values;
    std::map<std::wstring, Key> keys;
  };

  static Key read(HKEY key);
  static void write(HKEY parent, const std::wstring& name, const Key& key);

  std::wstring path_;
  std::optional<Key> root_;  ///< nothing when the key was not there
};

/// Deletes a key below HKEY_CLASSES_ROOT with all that is in it; a missing one is no error.
void deleteTree(const std::wstring& path);
/// A text value of a key below HKEY_CLASSES_ROOT; nothing when there is none. `view` chooses the
/// registry of 32-bit or 64-bit programs: KEY_WOW64_32KEY, KEY_WOW64_64KEY, or 0 for this one's.
std::optional<std::wstring> textValue(const std::wstring& path, REGSAM view = 0);

}  // namespace kebu::windows
