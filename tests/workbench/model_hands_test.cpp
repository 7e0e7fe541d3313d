#include "workbench/player/model_hands.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "tests/support/test_user.h"
#include "tests/workbench/sample_form.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {
namespace {

class ModelHandsTest : public testing::Test {
 protected:
  /// The message of the refused gesture; "" when it could be made.
  static std::string refusalOf(const std::function<void()>& gesture) {
    try {
      gesture();
      return "";
    } catch (const std::exception& refusal) {
      return refusal.what();
    }
  }

  tests::TestUser user;
  ModelDesktop desktop{user};
  ModelHands hands{desktop};
  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>(desktop);
};

TEST_F(ModelHandsTest, WithoutAWindowNothingCanBeDone) {
  EXPECT_EQ(refusalOf([&] { hands.clickButton("BTN_GO"); }), "no window is open");
  EXPECT_EQ(refusalOf([&] { hands.look("FRM_SAMPLE", {}); }), "no window is open");
}

TEST_F(ModelHandsTest, GesturesReachTheControls) {
  form->Show(false);
  hands.openPage(2);
  EXPECT_EQ(form->page, 2);
  hands.press("inav_main", "Conferma");
  EXPECT_EQ(form->pressed, "Conferma");
  hands.clickButton("BTN_GO");
  EXPECT_EQ(form->clicks, 1);
  hands.type("TXT_CODE", "020");
  EXPECT_EQ(hands.value("TXT_CODE"), "020");
  hands.choose("CMB_KIND", "0");
  EXPECT_EQ(hands.value("CMB_KIND"), "0");
  hands.tick("CHK_FLAG", true);
  EXPECT_EQ(hands.value("CHK_FLAG"), "1");
}

TEST_F(ModelHandsTest, WhatAPersonCouldNotDoIsRefused) {
  form->Show(false);
  const std::pair<std::function<void()>, const char*> cases[] = {
      {[&] { hands.type("TXT_NONE", "x"); }, "FRM_SAMPLE has no control TXT_NONE"},
      {[&] { hands.type("BTN_GO", "x"); }, "BTN_GO is not an edit box"},
      {[&] { hands.type("TXT_PWD", "x"); }, "TXT_PWD cannot be edited"},
      {[&] { hands.choose("CMB_KIND", "1"); }, "CMB_KIND has no entry \"1\""},
      {[&] { hands.press("INAV_MAIN", "Annulla"); }, "\"Annulla\" of INAV_MAIN is disabled"},
      {[&] { hands.press("INAV_MAIN", "Nuovo"); }, "INAV_MAIN has no button \"Nuovo\""},
      {[&] { hands.lookup("TXT_CODE"); }, "TXT_CODE has no look-up"},
      {[&] { hands.selectRow("GRP_BOXES", 1); }, "GRP_BOXES is not a grid"},
      {[&] { hands.value("BTN_GO"); }, "BTN_GO holds no value"},
      {[&] { hands.isButtonEnabled("INAV_MAIN", "Nuovo"); }, "INAV_MAIN has no button \"Nuovo\""},
  };
  for (const auto& [gesture, refusal] : cases) EXPECT_EQ(refusalOf(gesture), refusal);

  form->group.setEnabled(false);
  EXPECT_EQ(refusalOf([&] { hands.type("TXT_CODE", "x"); }), "TXT_CODE is disabled");
  form->group.setVisible(false);
  EXPECT_EQ(refusalOf([&] { hands.tick("CHK_FLAG", true); }), "CHK_FLAG is not visible");
  EXPECT_EQ(refusalOf([&] { hands.openPage(3); }), "SBAR_MAIN has no link to view 3");
}

TEST_F(ModelHandsTest, TheGroupsStateCountsForWhatStandsInIt) {
  form->Show(false);
  form->group.setEnabled(false);
  EXPECT_FALSE(hands.look("TXT_CODE", {}).enabled);
  EXPECT_TRUE(hands.look("TXT_CODE", {}).visible);
  form->group.setEnabled(true);
  form->group.setVisible(false);
  EXPECT_TRUE(hands.look("TXT_CODE", {}).enabled);
  EXPECT_FALSE(hands.look("TXT_CODE", {}).visible);

  EXPECT_TRUE(hands.isButtonEnabled("INAV_MAIN", "Conferma"));
  form->bar.setEnabled(false);
  EXPECT_FALSE(hands.isButtonEnabled("INAV_MAIN", "Conferma"));
}

TEST_F(ModelHandsTest, TheWindowInFrontIsTheOneThatCounts) {
  form->Show(false);
  const auto dialog = std::make_shared<SampleForm>(desktop);
  dialog->setName("FRM_DIALOG");
  dialog->Show(false);
  hands.clickButton("BTN_GO");
  EXPECT_EQ(dialog->clicks, 1);
  EXPECT_TRUE(dialog->Unload());
  hands.clickButton("BTN_GO");
  EXPECT_EQ(form->clicks, 1);
  EXPECT_EQ(refusalOf([&] { hands.look("FRM_DIALOG", {}); }),
            "FRM_SAMPLE has no control FRM_DIALOG");
}

}  // namespace
}  // namespace kebu::workbench
