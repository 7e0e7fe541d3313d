#include "controls/sheet.h"

#include <gtest/gtest.h>

namespace kebu::controls {
namespace {

using Role = SheetLine::Role;

TEST(Share, IsFullAndEmptyOnlyForTheWholeAndForNothing) {
  struct Case {
    Share share;
    std::int32_t of100;
    std::int32_t of20;
  };
  const Case cases[] = {
      {{0, 260}, 0, 0},      {{1, 1000}, 1, 1},
      {{57, 100}, 57, 11},   {{225, 260}, 87, 17},
      {{999, 1000}, 99, 19}, {{1000, 1000}, 100, 20},
      {{0, 0}, 0, 0},        {{3, 2}, 100, 20},
      {{-1, 5}, 0, 0},       {{3'000'000'000, 4'000'000'000}, 75, 15},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(std::to_string(each.share.part) + " of " + std::to_string(each.share.whole));
    EXPECT_EQ(each.share.of(100), each.of100);
    EXPECT_EQ(each.share.of(20), each.of20);
  }
}

TEST(Sheet, IsWrittenInColumnsWithBars) {
  Sheet sheet("SHEET", "Riepilogo");
  sheet.setLines({{Role::Heading, "Città"},
                  {Role::Entry, "Già lette", "3 di 4", Share{3, 4}},
                  {Role::Entry, "Altre voci", "nessuna"},
                  {Role::Entry, "Senza valore"},
                  {Role::Warning, "Attenzione."}});
  EXPECT_EQ(sheet.text(),
            "Riepilogo\r\n"
            "=========\r\n"
            "\r\n"
            "Città\r\n"
            "-----\r\n"
            "Già lette   3 di 4  [###############.....] 75 %\r\n"
            "Altre voci  nessuna\r\n"
            "Senza valore\r\n"
            "! Attenzione.\r\n");
  EXPECT_EQ(sheet.fileText(), "\xEF\xBB\xBF" + sheet.text());
}

TEST(Sheet, LongLabelsAndValuesPushWhatFollowsToTheRight) {
  const std::string label(61, 'l');
  const std::string value(31, 'v');
  Sheet sheet("SHEET");
  sheet.setLines({{Role::Entry, label, "1"},
                  {Role::Entry, "a", "2", Share{1, 1}},
                  {Role::Entry, "b", value, Share{0, 1}}});
  const std::string text = sheet.text();
  EXPECT_NE(text.find(label + "  1\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("\r\na" + std::string(61, ' ') + "2" + std::string(31, ' ') + "[#"),
            std::string::npos)
      << text;
  EXPECT_NE(text.find(value + "  [."), std::string::npos) << text;
}

TEST(Sheet, ALineIsReadWithItsPercentageInPlaceOfTheBar) {
  EXPECT_EQ(readingOf({Role::Entry, "Pubblicati", "225 di 260", Share{225, 260}}),
            "Pubblicati: 225 di 260 (87 %)");
  EXPECT_EQ(readingOf({Role::Note, "Nessun avviso."}), "Nessun avviso.");
}

TEST(Sheet, IsCopiedAndSavedOnlyWhileItIsSeen) {
  Sheet sheet("SHEET", "Riepilogo");
  int copied = 0;
  sheet.CopyWanted.on([&](const std::string&) { ++copied; });
  sheet.copy();
  EXPECT_EQ(copied, 1);
  sheet.setVisible(false);
  EXPECT_THROW(sheet.copy(), GestureRefused);
  EXPECT_THROW(sheet.save(), GestureRefused);
}

}  // namespace
}  // namespace kebu::controls
