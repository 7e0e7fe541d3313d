#pragma once

#include <new>
#include <string>
#include <string_view>
#include <utility>

#include "windows/support/text.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Owns a BSTR.
class Bstr {
 public:
  Bstr() = default;
  explicit Bstr(std::wstring_view text)
      : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
    if (!text_) throw std::bad_alloc();
  }
  explicit Bstr(std::string_view utf8) : Bstr(std::wstring_view(toWide(utf8))) {}
  Bstr(Bstr&& other) noexcept : text_(std::exchange(other.text_, nullptr)) {}
  Bstr& operator=(Bstr&& other) noexcept {
    std::swap(text_, other.text_);
    return *this;
  }
  Bstr(const Bstr&) = delete;
  Bstr& operator=(const Bstr&) = delete;
  ~Bstr() { SysFreeString(text_); }

  BSTR get() const { return text_; }
  BSTR detach() { return std::exchange(text_, nullptr); }
  BSTR* put() {
    *this = Bstr();
    return &text_;
  }
  std::string toUtf8() const { return utf8Of(text_); }

  /// A BSTR that belongs to somebody else; the null one is the empty text.
  static std::string utf8Of(BSTR text) {
    return windows::toUtf8(std::wstring_view(text ? text : L"", SysStringLen(text)));
  }

 private:
  BSTR text_ = nullptr;
};

}  // namespace kebu::windows
