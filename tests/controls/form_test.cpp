#include "controls/form.h"

#include <gtest/gtest.h>

#include "controls/key_table.h"
#include "controls/lookup_list.h"
#include "tests/support/no_desktop.h"

namespace kebu::controls {
namespace {

class FormWithPages : public Form {
 public:
  explicit FormWithPages(Desktop& desktop) : Form("FORM", desktop) {
    for (GroupBox* page : {&first, &second, &staying}) addPage(*page);
    first.add(onFirst);
    staying.add(onStaying);
  }

  GroupBox first{"FIRST"};
  GroupBox second{"SECOND"};
  GroupBox staying{"STAYING"};
  Button onFirst{"ON_FIRST"};
  Button onStaying{"ON_STAYING"};
};

TEST(Form, ThePageThatAppearedLastStandsInFront) {
  NoDesktop desktop;
  FormWithPages form(desktop);
  EXPECT_EQ(form.pageInFront(), &form.first) << "of those that are there from the beginning";
  form.onFirst.click();
  EXPECT_THROW(form.onStaying.click(), GestureRefused);
  form.first.setVisible(false);
  form.second.setVisible(false);
  EXPECT_EQ(form.pageInFront(), &form.staying);
  form.onStaying.click();
  int changes = 0;
  form.staying.changed.on([&] { ++changes; });
  form.first.setVisible(true);
  EXPECT_EQ(form.pageInFront(), &form.first);
  EXPECT_EQ(changes, 0) << "it looks as before and is not drawn anew";
  EXPECT_TRUE(form.staying.isVisible());
  EXPECT_THROW(form.onStaying.click(), GestureRefused);
  // One page goes and the next one comes.
  form.first.setVisible(false);
  form.second.setVisible(true);
  EXPECT_EQ(form.pageInFront(), &form.second);
  EXPECT_TRUE(form.staying.isCovered());
  form.second.setVisible(false);
  EXPECT_EQ(form.pageInFront(), &form.staying);
  form.onStaying.click();
  form.staying.setVisible(false);
  EXPECT_EQ(form.pageInFront(), nullptr);
}

class WatchedDesktop : public NoDesktop {
 public:
  void show(Form& /*form*/, const std::function<void()>& /*setUp*/) override { ++shown; }
  void hide(Form& /*form*/) override { --shown; }
  void runLookup(LookupList& list) override {
    for (std::int32_t row = 1; row <= list.rowCount(); ++row) {
      texts.push_back(list.cellText(row, 1));
    }
  }

  int shown = 0;
  std::vector<std::string> texts;  ///< of the second column of a list
};

TEST(Form, TheListOfKeysTellsWhereTheyAct) {
  WatchedDesktop desktop;
  FormWithPages form(desktop);
  form.showKeys();
  ASSERT_EQ(desktop.texts.size(), std::size(keyTable));
  for (std::size_t i = 0; i < std::size(keyTable); ++i) {
    const std::string& text = desktop.texts[i];
    EXPECT_EQ(text.starts_with("in una griglia: "), keyTable[i].place == KeyPlace::Grid) << text;
    EXPECT_EQ(text.starts_with("nel riepilogo: "), keyTable[i].place == KeyPlace::Summary) << text;
  }
}

TEST(Form, OneThatWasNotClosedLeavesTheScreenAtItsEnd) {
  class Plain : public Form {
   public:
    explicit Plain(Desktop& desktop) : Form("FORM", desktop) {}
  };
  WatchedDesktop desktop;
  {
    Plain form(desktop);
    form.Show(false);
    EXPECT_EQ(desktop.shown, 1);
  }
  EXPECT_EQ(desktop.shown, 0);
}

}  // namespace
}  // namespace kebu::controls
