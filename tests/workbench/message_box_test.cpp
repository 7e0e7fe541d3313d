#include "workbench/host/message_box.h"

#include <gtest/gtest.h>

namespace kebu::workbench {
namespace {

TEST(ShownMessage, DefaultButtonFollowsTheStyle) {
  const std::pair<std::int32_t, msgbox::Answer> cases[] = {
      {0, msgbox::ok},       {1, msgbox::ok},   {257, msgbox::cancel}, {2, msgbox::abort},
      {4370, msgbox::retry}, {3, msgbox::yes},  {3 + 256, msgbox::no}, {3 + 512, msgbox::cancel},
      {4 + 32, msgbox::yes}, {292, msgbox::no}, {256, msgbox::ok},  // there is no second button
  };
  for (const auto& [style, answer] : cases) EXPECT_EQ(defaultButton(style), answer) << style;
}

TEST(ShownMessage, WayOutIsTheButtonThatDoesTheLeast) {
  EXPECT_EQ(wayOut(msgbox::okOnly), msgbox::ok);
  EXPECT_EQ(wayOut(msgbox::abortRetryIgnore), msgbox::abort);
  EXPECT_EQ(wayOut(msgbox::yesNoCancel), msgbox::cancel);
  EXPECT_EQ(wayOut(msgbox::yesNo), msgbox::no);
}

TEST(ShownMessage, StylesInWords) {
  EXPECT_EQ(describeIcon(4370), "critical, system-modal");
  EXPECT_EQ(describeIcon(48), "exclamation");
  EXPECT_EQ(describeIcon(64), "information");
  EXPECT_EQ(describeIcon(4 + 32 + 256), "question");
  EXPECT_EQ(describeIcon(0), "plain");
}

TEST(ShownMessage, AnswersByName) {
  for (const auto answer : {msgbox::ok, msgbox::cancel, msgbox::abort, msgbox::retry,
                            msgbox::ignore, msgbox::yes, msgbox::no}) {
    EXPECT_EQ(answerByName(answerName(answer)), answer);
  }
  EXPECT_EQ(answerByName("Yes"), msgbox::yes);
  EXPECT_EQ(answerByName("maybe"), std::nullopt);
}

}  // namespace
}  // namespace kebu::workbench
