#include "windows/com/system_platform.h"

#include <algorithm>
#include <cwchar>
#include <iterator>

#include "windows/support/text.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

namespace {

/// Under it each setting is a value.
constexpr const wchar_t* settingsKey = L"Software\\KEBU_ANAGKELMORIA\\Impostazioni";

/// A separator; the non-ASCII blanks by which some locales group digits become a blank.
char separator(LCID locale, LCTYPE kind, char usual) {
  wchar_t text[8] = {};
  if (GetLocaleInfoW(locale, kind, text, static_cast<int>(std::size(text))) == 0) return usual;
  if (text[0] == 0) return usual;
  return text[0] < 0x80 ? static_cast<char>(text[0]) : ' ';
}

/// Whether the locale's date pattern names the day before the month.
bool isDayFirst(LCID locale) {
  wchar_t pattern[80] = {};
  if (GetLocaleInfoW(locale, LOCALE_SSHORTDATE, pattern, static_cast<int>(std::size(pattern))) == 0)
    return Locale().dayFirst;
  const wchar_t* const day = std::wcschr(pattern, L'd');
  const wchar_t* const month = std::wcschr(pattern, L'M');
  return day && month ? day < month : Locale().dayFirst;
}

}  // namespace

std::optional<Guid> SystemPlatform::createGuid() {
  GUID made{};
  if (FAILED(CoCreateGuid(&made))) return std::nullopt;
  Guid guid;
  guid.data1 = made.Data1;
  guid.data2 = made.Data2;
  guid.data3 = made.Data3;
  std::copy(std::begin(made.Data4), std::end(made.Data4), std::begin(guid.data4));
  return guid;
}

void SystemPlatform::outputDebugString(const std::string& text) {
  OutputDebugStringA(toAnsi(text).c_str());
}

std::int32_t SystemPlatform::messageBox(const std::string& prompt, std::int32_t buttons,
                                        const std::string& title) {
  // The constants of msgbox:: are those of Windows.
  return MessageBoxW(GetActiveWindow(), toWide(prompt).c_str(), toWide(title).c_str(),
                     static_cast<UINT>(buttons));
}

bool SystemPlatform::fitsCodePage(const std::string& text) {
  return fitsAnsi(text);
}

Date SystemPlatform::now() {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  return Date::make(time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute, time.wSecond,
                    time.wMilliseconds)
      .value_or(Date{});
}

std::string SystemPlatform::setting(const std::string& name) {
  const std::wstring wide = toWide(name);
  DWORD bytes = 0;
  const auto read = [&](void* into) {
    return RegGetValueW(HKEY_CURRENT_USER, settingsKey, wide.c_str(), RRF_RT_REG_SZ, nullptr, into,
                        &bytes);
  };
  if (read(nullptr) != ERROR_SUCCESS) return "";
  std::wstring value(bytes / sizeof(wchar_t), L'\0');
  if (read(value.data()) != ERROR_SUCCESS) return "";
  return toUtf8(value.c_str());
}

void SystemPlatform::keepSetting(const std::string& name, const std::string& value) {
  const std::wstring wide = toWide(name);
  if (value.empty()) {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, settingsKey, wide.c_str());
    return;
  }
  const std::wstring text = toWide(value);
  RegSetKeyValueW(HKEY_CURRENT_USER, settingsKey, wide.c_str(), REG_SZ, text.c_str(),
                  static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

Locale localeOf(LCID locale) {
  const Locale usual;
  return {separator(locale, LOCALE_SDECIMAL, usual.decimalSeparator),
          separator(locale, LOCALE_STHOUSAND, usual.groupSeparator),
          separator(locale, LOCALE_SDATE, usual.dateSeparator), isDayFirst(locale)};
}

}  // namespace kebu::windows
