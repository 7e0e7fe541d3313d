#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Puts a text on the clipboard; false when another program holds it.
bool copyToClipboard(HWND owner, const std::string& text);

/// A kind of file that the user can name.
struct FileKind {
  const wchar_t* filter;     ///< as the system's file dialog takes it
  const wchar_t* extension;  ///< of a name without one
};
inline constexpr FileKind csvFile{L"CSV (*.csv)\0*.csv\0", L"csv"};
inline constexpr FileKind textFile{L"TXT (*.txt)\0*.txt\0", L"txt"};

/// Asks the user where to write a file; nothing when the dialog is left. An existing file is
/// overwritten only when the user agrees.
std::optional<std::wstring> askForFile(HWND owner, const FileKind& kind,
                                       const std::wstring& suggestedName);

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
