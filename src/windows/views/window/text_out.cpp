#include "windows/views/window/text_out.h"

#include <commdlg.h>

#include <cstring>
#include <utility>

#include "common/error.h"
#include "windows/support/text.h"

namespace kebu::windows {

bool copyToClipboard(HWND owner, const std::string& text) {
  const std::wstring wide = toWide(text);
  const std::size_t bytes = (wide.size() + 1) * sizeof(wchar_t);
  HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (!memory) throw RuntimeError::outOfMemory();
  std::memcpy(GlobalLock(memory), wide.c_str(), bytes);
  GlobalUnlock(memory);
  bool isSet = false;
  if (OpenClipboard(owner)) {
    EmptyClipboard();
    isSet = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
  }
  if (!isSet) GlobalFree(memory);
  return isSet;
}

std::optional<std::wstring> askForFile(HWND owner, const FileKind& kind,
                                       const std::wstring& suggestedName) {
  constexpr DWORD longestPath = 32768;
  std::wstring path = suggestedName;
  path.resize(longestPath);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = GetAncestor(owner, GA_ROOT);
  dialog.lpstrFilter = kind.filter;
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = longestPath;
  dialog.lpstrDefExt = kind.extension;
  dialog.Flags = OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  if (!GetSaveFileNameW(&dialog)) return std::nullopt;
  return std::wstring(path.c_str());
}

FileInTheMaking::FileInTheMaking(std::wstring path)
    : path_(std::move(path)),
      temporary_(path_ + L".parziale"),
      file_(CreateFileW(temporary_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                        FILE_ATTRIBUTE_NORMAL, nullptr)) {
  if (file_ == INVALID_HANDLE_VALUE) throw RuntimeError(75, "Path/File access error");
}

FileInTheMaking::~FileInTheMaking() {
  if (file_ == INVALID_HANDLE_VALUE) return;
  CloseHandle(file_);
  DeleteFileW(temporary_.c_str());
}

void FileInTheMaking::write(std::string_view piece) {
  DWORD written = 0;
  const auto size = static_cast<DWORD>(piece.size());
  if (!WriteFile(file_, piece.data(), size, &written, nullptr) || written != size) {
    throw RuntimeError(61, "Disk full");
  }
}

void FileInTheMaking::complete() {
  CloseHandle(std::exchange(file_, INVALID_HANDLE_VALUE));
  if (MoveFileExW(temporary_.c_str(), path_.c_str(), MOVEFILE_REPLACE_EXISTING)) return;
  DeleteFileW(temporary_.c_str());
  throw RuntimeError(75, "Path/File access error");
}

}  // namespace kebu::windows
