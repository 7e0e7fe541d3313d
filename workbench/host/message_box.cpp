#include "workbench/host/message_box.h"

#include <algorithm>
#include <array>
#include <utility>

#include "common/convert.h"

namespace kebu::workbench {

namespace {

constexpr std::int32_t buttonsMask = 0x0F;
constexpr std::int32_t iconMask = 0xF0;
constexpr std::int32_t defaultMask = 0x300;

constexpr std::array okOnly{msgbox::ok};
constexpr std::array okCancel{msgbox::ok, msgbox::cancel};
constexpr std::array abortRetryIgnore{msgbox::abort, msgbox::retry, msgbox::ignore};
constexpr std::array yesNoCancel{msgbox::yes, msgbox::no, msgbox::cancel};
constexpr std::array yesNo{msgbox::yes, msgbox::no};

constexpr std::array<std::pair<msgbox::Answer, std::string_view>, 7> names{{
    {msgbox::ok, "ok"},
    {msgbox::cancel, "cancel"},
    {msgbox::abort, "abort"},
    {msgbox::retry, "retry"},
    {msgbox::ignore, "ignore"},
    {msgbox::yes, "yes"},
    {msgbox::no, "no"},
}};

}  // namespace

std::span<const msgbox::Answer> buttonsOf(std::int32_t style) {
  switch (style & buttonsMask) {
    case msgbox::okCancel:
      return okCancel;
    case msgbox::abortRetryIgnore:
      return abortRetryIgnore;
    case msgbox::yesNoCancel:
      return yesNoCancel;
    case msgbox::yesNo:
      return yesNo;
    default:
      return okOnly;
  }
}

bool offers(std::int32_t style, std::int32_t answer) {
  const auto buttons = buttonsOf(style);
  return std::find(buttons.begin(), buttons.end(), answer) != buttons.end();
}

msgbox::Answer defaultButton(std::int32_t style) {
  const auto buttons = buttonsOf(style);
  const auto index = static_cast<std::size_t>((style & defaultMask) / msgbox::defaultButton2);
  return index < buttons.size() ? buttons[index] : buttons.front();
}

msgbox::Answer wayOut(std::int32_t style) {
  for (const auto answer : {msgbox::abort, msgbox::cancel, msgbox::no}) {
    if (offers(style, answer)) return answer;
  }
  return msgbox::ok;
}

std::string answerName(std::int32_t answer) {
  const auto at =
      std::find_if(names.begin(), names.end(), [&](const auto& n) { return n.first == answer; });
  return at == names.end() ? std::to_string(answer) : std::string(at->second);
}

std::optional<msgbox::Answer> answerByName(std::string_view name) {
  const auto at = std::find_if(names.begin(), names.end(),
                               [&](const auto& n) { return equalsIgnoringCase(n.second, name); });
  return at == names.end() ? std::nullopt : std::optional(at->first);
}

std::string describeIcon(std::int32_t style) {
  std::string words;
  switch (style & iconMask) {
    case msgbox::critical:
      words = "critical";
      break;
    case msgbox::question:
      words = "question";
      break;
    case msgbox::exclamation:
      words = "exclamation";
      break;
    case msgbox::information:
      words = "information";
      break;
    default:
      words = "plain";
      break;
  }
  if (style & msgbox::systemModal) words += ", system-modal";
  return words;
}

}  // namespace kebu::workbench
