#pragma once

#include <string>
#include <vector>

#include "controls/notice_list.h"
#include "windows/views/layout/metrics.h"

namespace kebu::windows::layout {

/// Where the parts of one notice stand, in the list's own area.
struct NoticeLine {
  Rect bounds;
  Rect text;
  Rect button;  ///< empty without an action
};

struct NoticeLayout {
  std::vector<NoticeLine> lines;  ///< in the list's order
  int height = 0;
};

/// How many lines a text takes when it is broken at blanks.
int lineCount(const std::string& text, const Metrics& metrics, int width);

/// The notices one below the other in an area of that width.
NoticeLayout placeNotices(const controls::NoticeList& list, const Metrics& metrics, int width);

}  // namespace kebu::windows::layout
