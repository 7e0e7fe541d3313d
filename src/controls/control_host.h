#pragma once

#include <cstdint>
#include <string>

#include "common/trap.h"

namespace kebu::controls {

/// What controls ask of the window that they stand in: to report errors, and
/// to put a message or question to the user.
class ControlHost : public ErrorReporter {
 public:
  /// `text` in Italian; style and answer use the message-box codes.
  virtual std::int32_t message(const std::string& text, std::int32_t style) = 0;
  /// A part of a message in the user's language.
  virtual std::string translated(const std::string& text) { return text; }
};

}  // namespace kebu::controls
