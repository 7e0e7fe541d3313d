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

}  // namespace

FrameLayout placeFrame(const controls::Form& form, const Metrics& metrics, const Rect& area) {
  FrameLayout frame;
  Rect rest = area;
  for (const auto* bar : shown<controls::StatusBar>(form)) {
    const int height = metrics.lineHeight + metrics.px(9);
    frame.bars[bar].bounds = {rest.left, rest.bottom() - height, rest.width, height};
    rest.height -= height;
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
  rest.width = std::max(rest.width, 0);
  rest.height = std::max(rest.height, 0);
  frame.page = rest;
  return frame;
}

}  // namespace kebu::windows::layout
