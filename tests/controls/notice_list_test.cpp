#include "controls/notice_list.h"

#include <gtest/gtest.h>

namespace kebu::controls {
namespace {

TEST(NoticeList, KeepsOneNoticeForEachCauseInTheOrderOfTheCauses) {
  NoticeList list("NOTICES");
  int told = 0;
  list.changed.on([&] { ++told; });
  EXPECT_FALSE(list.isVisible());
  list.show({.cause = "a", .text = "first"});
  list.show({.cause = "b", .text = "second"});
  list.show({.cause = "a", .text = "first again"});
  EXPECT_TRUE(list.isVisible());
  EXPECT_EQ(list.caption(), "first again\nsecond");
  told = 0;
  list.show({.cause = "b", .text = "second"});
  list.remove("c");
  EXPECT_EQ(told, 0);  // nothing that a screen reader should read again
  list.remove("a");
  list.remove("b");
  EXPECT_FALSE(list.isVisible());
}

TEST(NoticeList, AButtonMayRemoveItsOwnNotice) {
  NoticeList list("NOTICES");
  int performed = 0;
  list.show({.cause = "a", .text = "no button"});
  list.show({.cause = "b", .text = "text", .action = "Ricarica", .perform = [&] {
               list.remove("b");
               ++performed;
             }});
  EXPECT_THROW(list.press(0), GestureRefused);
  list.press(1);
  EXPECT_EQ(performed, 1);
  EXPECT_THROW(list.press(1), GestureRefused);
}

}  // namespace
}  // namespace kebu::controls
