#include "windows/views/layout/notice_layout.h"

#include <algorithm>
#include <sstream>

namespace kebu::windows::layout {

namespace {

// In 96ths of an inch.
constexpr int margin = 6;
constexpr int textLeft = 14;
constexpr int leastButton = 90;
constexpr int gapBetween = 4;

}  // namespace

int lineCount(const std::string& text, const Metrics& metrics, int width) {
  std::istringstream words(text);
  std::string line;
  int lines = 1;
  for (std::string word; words >> word;) {
    const std::string longer = line.empty() ? word : line + " " + word;
    if (line.empty() || metrics.textWidth(longer) <= width) {
      line = longer;
    } else {
      line = word;
      ++lines;
    }
  }
  return lines;
}

NoticeLayout placeNotices(const controls::NoticeList& list, const Metrics& metrics, int width) {
  NoticeLayout layout;
  const int edge = metrics.px(margin);
  const int left = metrics.px(textLeft);
  for (const controls::Notice& notice : list.notices()) {
    int button = 0;
    if (!notice.action.empty()) {
      button = std::max(metrics.textWidth(notice.action) + metrics.px(28), metrics.px(leastButton));
    }
    const int room = width - left - edge - (button ? button + edge : 0);
    const int textHeight = lineCount(notice.text, metrics, room) * metrics.lineHeight;
    const int inside = std::max(textHeight, button ? metrics.fieldHeight() : 0);
    if (!layout.lines.empty()) layout.height += metrics.px(gapBetween);
    NoticeLine line;
    line.bounds = {0, layout.height, width, inside + 2 * edge};
    line.text = {left, layout.height + edge + (inside - textHeight) / 2, std::max(room, 0),
                 textHeight};
    if (button) {
      line.button = {width - edge - button, layout.height + edge, button, metrics.fieldHeight()};
    }
    layout.height += line.bounds.height;
    layout.lines.push_back(line);
  }
  return layout;
}

}  // namespace kebu::windows::layout
