#include "windows/views/layout/frame_layout.h"

#include <algorithm>

#include "controls/navigator_bar.h"
#include "controls/notice_list.h"
#include "windows/views/layout/notice_layout.h"

namespace kebu::windows::layout {

namespace {

// In 96ths of an inch.
constexpr int sideBarWidth = 190;
constexpr int margin = 18;
constexpr int gap = 12;

template <class Kind>
std::vector<const controls::Control*> shown(const controls::Form& form) {
  std::vector<const controls::Control*> found;
  for (const controls::Control* control : form.controls()) {
    if (controls::as<Kind>(*control) && !control->container() && control->isVisible()) {
      found.push_back(control);
    }
  }
  return found;
}

int widthOf(const controls::Button& button, const Metrics& metrics) {
  const std::string key(controls::keyOf(button));
  const int shown = key.empty() ? 0 : metrics.textWidth(key) + metrics.px(10);
  return std::max(metrics.textWidth(button.caption()) + shown + metrics.px(32), metrics.px(110));
}

/// Puts buttons in front of the right end of the status bar, before its size grip.
void placeOnStatusBar(const std::vector<const controls::Button*>& buttons, const Metrics& metrics,
                      const Rect& bar, Placements& placements) {
  constexpr int grip = 20;
  const int inset = metrics.px(2);
  int right = bar.right() - metrics.px(grip);
  for (const auto* button : buttons) {
    const int width = widthOf(*button, metrics);
    right -= width;
    placements[button].bounds = {right, bar.top + inset, width, bar.height - 2 * inset};
    right -= metrics.px(partGap);
  }
}

/// Puts a dialog's buttons into one line: those that end the dialog to the right, others to the
/// left.
void placeButtons(const std::vector<const controls::Button*>& buttons, const Metrics& metrics,
                  const Rect& line, Placements& placements) {
  const int gapBetween = metrics.px(partGap);
  const auto endsDialog = [](const controls::Button& button) {
    return button.isDefault() || button.isCancel();
  };
  int endingWidth = -gapBetween;
  for (const auto* button : buttons) {
    if (endsDialog(*button)) endingWidth += widthOf(*button, metrics) + gapBetween;
  }
  int left = line.left;
  int endingLeft = std::max(line.right() - endingWidth, line.left);
  for (const auto* button : buttons) {
    int& at = endsDialog(*button) ? endingLeft : left;
    const int width = widthOf(*button, metrics);
    placements[button].bounds = {at, line.top, width, line.height};
    at += width + gapBetween;
  }
}

}  // namespace

std::vector<const controls::Button*> outerButtons(const controls::Form& form) {
  std::vector<const controls::Button*> buttons;
  for (const auto* button : shown<controls::Button>(form)) {
    buttons.push_back(controls::as<controls::Button>(*button));
  }
  return buttons;
}

FrameLayout placeFrame(const controls::Form& form, const Metrics& metrics, const Rect& area) {
  FrameLayout frame;
  Rect rest = area;
  std::vector<const controls::Button*> buttons = outerButtons(form);
  for (const auto* bar : shown<controls::StatusBar>(form)) {
    const int height = metrics.lineHeight + metrics.px(9);
    frame.bars[bar].bounds = {rest.left, rest.bottom() - height, rest.width, height};
    placeOnStatusBar(buttons, metrics, frame.bars[bar].bounds, frame.bars);
    rest.height -= height;
    buttons.clear();
  }
  for (const auto* bar : shown<controls::SideBar>(form)) {
    const int width = metrics.px(sideBarWidth);
    frame.bars[bar].bounds = {rest.left, rest.top, width, rest.height};
    rest.left += width;
    rest.width -= width;
  }
  const int edge = metrics.px(margin);
  rest = {rest.left + edge, rest.top + metrics.px(gap), rest.width - 2 * edge,
          rest.height - metrics.px(gap) - metrics.px(gap)};
  const auto dockToTop = [&](const controls::Control* bar, int height) {
    frame.bars[bar].bounds = {rest.left, rest.top, rest.width, height};
    rest.top += height + metrics.px(gap);
    rest.height -= height + metrics.px(gap);
  };
  for (const auto* bar : shown<controls::TitleBar>(form)) {
    dockToTop(bar, metrics.lineHeight * 2 + metrics.px(2));
  }
  for (const auto* bar : shown<controls::NoticeList>(form)) {
    const auto* const list = controls::as<controls::NoticeList>(*bar);
    dockToTop(bar, placeNotices(*list, metrics, rest.width).height);
  }
  for (const auto* bar : shown<controls::NavigatorBar>(form)) {
    dockToTop(bar, metrics.fieldHeight() + metrics.px(6));
  }
  if (!buttons.empty()) {
    const int height = metrics.fieldHeight() + metrics.px(6);
    placeButtons(buttons, metrics, {rest.left, rest.bottom() - height, rest.width, height},
                 frame.bars);
    rest.height -= height + metrics.px(gap);
  }
  rest.width = std::max(rest.width, 0);
  rest.height = std::max(rest.height, 0);
  frame.page = rest;
  return frame;
}

}  // namespace kebu::windows::layout
