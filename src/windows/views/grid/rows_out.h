#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Puts a text on the clipboard; false when another program holds it.
bool copyToClipboard(HWND owner, const std::string& text);

/// Asks the user where to write a CSV file; nothing when the dialog is left. An existing file is
/// overwritten only when the user agrees.
std::optional<std::wstring> askForCsvFile(HWND owner, const std::wstring& suggestedName);

/// A file that appears under its name only when it is complete. Until then, and when it is not
/// completed, a file of that name stays as it was.
class FileInTheMaking {
 public:
  /// RuntimeError 75 when it cannot be created.
  explicit FileInTheMaking(std::wstring path);
  ~FileInTheMaking();
  FileInTheMaking(const FileInTheMaking&) = delete;
  FileInTheMaking& operator=(const FileInTheMaking&) = delete;

  /// RuntimeError 61 when there is no room.
  void write(std::string_view piece);
  /// RuntimeError 75 when the name cannot be taken.
  void complete();

 private:
  std::wstring path_;
  std::wstring temporary_;
  HANDLE file_;
};

}  // namespace kebu::windows
