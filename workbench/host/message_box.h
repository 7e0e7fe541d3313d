#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "common/platform.h"

namespace kebu::workbench {

/// A message box as it is put before the user; the style as Windows counts it.
struct ShownMessage {
  std::string title;
  std::string text;
  std::int32_t style = msgbox::okOnly;

  friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};

/// The buttons that a style offers, from left to right.
std::span<const msgbox::Answer> buttonsOf(std::int32_t style);
bool offers(std::int32_t style, std::int32_t answer);
/// The button that the Enter key presses.
msgbox::Answer defaultButton(std::int32_t style);
/// What a user chooses who wants to get out: the button that does the least.
msgbox::Answer wayOut(std::int32_t style);

/// "ok", "cancel", ...; the number of an answer that has no name.
std::string answerName(std::int32_t answer);
std::optional<msgbox::Answer> answerByName(std::string_view name);
/// The icon and the behaviour in words: "critical, system-modal".
std::string describeIcon(std::int32_t style);

}  // namespace kebu::workbench
