#include "workbench/player/answers.h"

#include <gtest/gtest.h>

namespace kebu::workbench {
namespace {

const ShownMessage errorBox{"ERP", "Errore n. 13", 4370};
const ShownMessage question{"ERP", "Salvare?", msgbox::yesNoCancel | msgbox::question};

TEST(Answers, QueuedOnesComeFirstAndInOrder) {
  Answers answers;
  answers.queue(msgbox::no);
  answers.queue(msgbox::ignore);
  EXPECT_EQ(answers.decide(question).answer, msgbox::no);
  const auto second = answers.decide(errorBox);
  EXPECT_EQ(second.answer, msgbox::ignore);
  EXPECT_FALSE(second.byDefault);
  const auto third = answers.decide(question);
  EXPECT_EQ(third.answer, msgbox::yes);
  EXPECT_TRUE(third.byDefault);
}

TEST(Answers, AButtonThatIsNotThereIsComplainedOf) {
  Answers answers;
  answers.queue(msgbox::yes);
  const auto decision = answers.decide(errorBox);
  EXPECT_EQ(decision.answer, msgbox::abort);
  EXPECT_EQ(decision.complaint, "the message box \"ERP\" offers no yes");
}

TEST(Answers, RetryingTheSameErrorForEverIsAborted) {
  Answers answers;
  for (int i = 0; i < 10; ++i) {
    EXPECT_EQ(answers.decide(errorBox).answer, msgbox::retry);
  }
  const auto last = answers.decide(errorBox);
  EXPECT_EQ(last.answer, msgbox::abort);
  EXPECT_FALSE(last.complaint.empty());
}

TEST(Answers, DifferentErrorsAreNotOneForEver) {
  Answers answers;
  ShownMessage other = errorBox;
  other.text = "Errore n. 6";
  for (int i = 0; i < 30; ++i) {
    EXPECT_EQ(answers.decide(i % 2 ? errorBox : other).answer, msgbox::retry);
  }
}

TEST(Answers, AnAnswerInBetweenBeginsTheCountAnew) {
  Answers answers;
  for (int i = 0; i < 10; ++i) answers.decide(errorBox);
  EXPECT_EQ(answers.decide(question).answer, msgbox::yes);
  EXPECT_EQ(answers.decide(errorBox).answer, msgbox::retry);
}

}  // namespace
}  // namespace kebu::workbench
