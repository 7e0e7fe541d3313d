#include "windows/views/layout/notice_layout.h"

#include <gtest/gtest.h>

namespace kebu::windows::layout {
namespace {

/// Every character is 10 pixels wide.
Metrics metrics() {
  return {.dpi = 96, .lineHeight = 15, .textWidth = [](const std::string& text) {
            return static_cast<int>(text.size()) * 10;
          }};
}

TEST(NoticeLayout, CountsTheLinesOfABrokenText) {
  EXPECT_EQ(lineCount("", metrics(), 100), 1);
  EXPECT_EQ(lineCount("one two", metrics(), 70), 1);
  EXPECT_EQ(lineCount("one two", metrics(), 69), 2);
  EXPECT_EQ(lineCount("a-word-wider-than-the-line b", metrics(), 50), 2);
}

TEST(NoticeLayout, PutsNoticesBelowEachOtherAndButtonsBesideTheTexts) {
  controls::NoticeList list("NOTICES");
  EXPECT_EQ(placeNotices(list, metrics(), 400).height, 0);
  list.show({.cause = "a", .text = "a text that takes more than one line here"});
  list.show({.cause = "b", .text = "short", .action = "Ricarica"});
  const NoticeLayout layout = placeNotices(list, metrics(), 400);
  ASSERT_EQ(layout.lines.size(), 2U);
  EXPECT_TRUE(layout.lines[0].button.isEmpty());
  EXPECT_EQ(layout.lines[0].text.height, 30);
  EXPECT_GE(layout.lines[1].bounds.top, layout.lines[0].bounds.bottom());
  EXPECT_LE(layout.lines[1].text.right(), layout.lines[1].button.left);
  EXPECT_LE(layout.lines[1].button.right(), 400);
  EXPECT_EQ(layout.lines[1].bounds.bottom(), layout.height);
}

}  // namespace
}  // namespace kebu::windows::layout
