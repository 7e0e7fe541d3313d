#include "windows/views/window/user_guide.h"

#include "windows/support/module.h"
// After the header that includes Windows'.
#include <shellapi.h>

namespace kebu::windows {

namespace {

std::wstring folderOf(const std::wstring& path) {
  const std::size_t end = path.find_last_of(L"\\/");
  return end == std::wstring::npos ? std::wstring() : path.substr(0, end);
}

bool isFile(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

}  // namespace

std::optional<std::wstring> userGuideFile(const std::wstring& page) {
  const std::wstring beside = folderOf(modulePath());
  for (const std::wstring& name : {page, std::wstring(L"index")}) {
    for (const std::wstring& folder : {beside, folderOf(beside)}) {
      const std::wstring file = folder + L"\\guida\\" + name + L".html";
      if (isFile(file)) return file;
    }
  }
  return std::nullopt;
}

bool openUserGuide(HWND owner, const std::wstring& file) {
  // Above 32 it is no error.
  return reinterpret_cast<INT_PTR>(
             ShellExecuteW(owner, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL)) > 32;
}

}  // namespace kebu::windows
