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

constexpr msgbox::Answer okOnly[] = {msgbox::ok};
constexpr msgbox::Answer okCancel[] = {msgbox::ok, msgbox::cancel};
constexpr msgbox::Answer abortRetryIgnore[] = {msgbox::abort, msgbox::retry, msgbox::ignore};
constexpr msgbox::Answer yesNoCancel[] = {msgbox::yes, msgbox::no, msgbox::cancel};
constexpr msgbox::Answer yesNo[] = {msgbox::yes, msgbox::no};

/// By the buttons' part of a style.
constexpr std::span<const msgbox::Answer> buttonSets[] = {okOnly, okCancel, abortRetryIgnore,
                                                          yesNoCancel, yesNo};

constexpr std::pair<std::int32_t, std::string_view> icons[] = {
    {msgbox::critical, "critical"},
    {msgbox::question, "question"},
    {msgbox::exclamation, "exclamation"},
    {msgbox::information, "information"},
};

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
  const auto index = static_cast<std::size_t>(style & buttonsMask);
  return index < std::size(buttonSets) ? buttonSets[index] : okOnly;
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
  std::string words = "plain";
  for (const auto& [icon, name] : icons) {
    if ((style & iconMask) == icon) words = name;
  }
  if (style & msgbox::systemModal) words += ", system-modal";
  return words;
}

}  // namespace kebu::workbench
