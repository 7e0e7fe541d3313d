#include "forms/changes/planned_changes.h"

#include <gtest/gtest.h>

namespace kebu::forms {
namespace {

ReadColumn column(const char* caption, const Value& value, const char* text) {
  return {caption, value, text};
}

TEST(PlannedChanges, ComparesValuesAsTheyAreRead) {
  const struct {
    Value before;
    Value after;
    bool isSame;
  } cases[] = {
      {Null{}, "", true},
      {Null{}, Value(), true},
      {Null{}, "   ", true},
      {Null{}, std::int16_t{0}, false},
      {"a", "a  ", true},
      {"a", "A", false},
      {" a", "a", false},
      {std::int16_t{1}, std::int32_t{1}, true},
      {std::int16_t{1}, *Decimal::parse("1.000"), true},
      {*Decimal::parse("19.90"), *Decimal::parse("19.9"), true},
      {*Decimal::parse("19.91"), *Decimal::parse("19.9"), false},
      {"1", std::int16_t{1}, true},
      {"1 ", std::int16_t{1}, true},
      {*Date::make(2024, 3, 5), *Date::make(2024, 3, 5), true},
      {*Date::make(2024, 3, 5), *Date::make(2024, 3, 5, 8), false},
  };
  int number = 0;
  for (const auto& [before, after, isSame] : cases) {
    EXPECT_EQ(readsTheSame(before, after), isSame) << number;
    EXPECT_EQ(readsTheSame(after, before), isSame) << number;
    ++number;
  }
}

TEST(PlannedChanges, ListsTheColumnsThatDifferAndCountsRows) {
  const ReadRow stored{column("Nota", "vecchia", "vecchia"), column("Tipo", std::int16_t{0}, "A"),
                       column("Codice", Null{}, "")};
  ReadRow edited = stored;
  edited[0] = column("Nota", "nuova", "nuova");
  edited[1] = column("Tipo", std::int16_t{1}, "B");
  PlannedChanges changes;
  changes.add("Uguale", stored, stored);
  changes.add("Mai stata", std::nullopt, std::nullopt);
  changes.add("Cambiata", stored, edited);
  changes.add("Nuova", std::nullopt, edited);
  changes.add("Vuota", std::nullopt, ReadRow{});
  changes.add("Tolta", stored, std::nullopt);
  const std::vector<PlannedChange> expected{
      {ChangeKind::Update, "Cambiata", "Nota", "vecchia", "nuova"},
      {ChangeKind::Update, "Cambiata", "Tipo", "A", "B"},
      {ChangeKind::Insert, "Nuova", "Nota", "", "nuova"},
      {ChangeKind::Insert, "Nuova", "Tipo", "", "B"},
      {ChangeKind::Insert, "Vuota", "", "", ""},
      {ChangeKind::Delete, "Tolta", "Nota", "vecchia", ""},
      {ChangeKind::Delete, "Tolta", "Tipo", "A", ""},
  };
  EXPECT_EQ(changes.lines(), expected);
  EXPECT_EQ(changes.rowsWith(ChangeKind::Update), 1);
  EXPECT_EQ(changes.rowsWith(ChangeKind::Insert), 2);
  EXPECT_EQ(changes.rowsWith(ChangeKind::Delete), 1);
}

}  // namespace
}  // namespace kebu::forms
