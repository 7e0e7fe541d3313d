#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "common/date.h"
#include "common/guid.h"
#include "common/setting_store.h"

namespace kebu {

/// Message-box codes as Windows counts them.
namespace msgbox {
enum Style : std::int32_t {
  okOnly = 0,
  okCancel = 1,
  abortRetryIgnore = 2,
  yesNoCancel = 3,
  yesNo = 4,
  critical = 16,
  question = 32,
  exclamation = 48,
  information = 64,
  defaultButton2 = 256,
  systemModal = 4096
};
enum Answer : std::int32_t {
  ok = 1,
  cancel = 2,
  abort = 3,
  retry = 4,
  ignore = 5,
  yes = 6,
  no = 7
};
}  // namespace msgbox

/// What the plug-in asks of the operating system.
class Platform : public SettingStore {
 public:
  /// A new GUID; nothing when the system cannot make one.
  virtual std::optional<Guid> createGuid() = 0;
  /// Writes a line to the debugger's output.
  virtual void outputDebugString(const std::string& text) = 0;
  /// The system's own message box; `buttons` from msgbox::Style, answers a msgbox::Answer.
  virtual std::int32_t messageBox(const std::string& prompt, std::int32_t buttons,
                                  const std::string& title) = 0;
  virtual Date now() = 0;
  /// Whether the system's ANSI code page has every character of the text (UTF-8). Columns of type
  /// char and varchar are taken to be in it: they keep no others.
  virtual bool fitsCodePage(const std::string& text) = 0;
};

}  // namespace kebu
