#include "controls/fixed_rows.h"

#include <gtest/gtest.h>

#include "controls/query_grid.h"
#include "tests/support/no_host.h"

namespace kebu::controls {
namespace {

Ref<ado::Recordset> threeRows() {
  std::vector<RowValues> rows;
  for (const char* text : {"a", "b", "c"}) rows.emplace_back(std::vector<Value>{text, Null{}});
  return std::make_shared<FixedRows>(std::vector<ado::Field>{{.name = "ONE"}, {.name = "TWO"}},
                                     std::move(rows));
}

int errorOf(const std::function<void()>& use) {
  try {
    use();
  } catch (const RuntimeError& error) {
    return error.number();
  }
  return 0;
}

TEST(FixedRows, MovesAndReadsAsARecordsetDoes) {
  const Ref<ado::Recordset> rows = threeRows();
  EXPECT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  rows->setAbsolutePosition(2);
  EXPECT_EQ(rows->value("one"), Value("b"));
  const Ref<ado::Recordset> clone = rows->Clone();
  EXPECT_EQ(clone->AbsolutePosition(), 1);
  EXPECT_EQ(rows->GetRows(-1).size(), 2U);
  EXPECT_TRUE(rows->EOF_());
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_EQ(clone->GetRows(2, "ONE").back().front(), Value("b"));
  EXPECT_EQ(clone->value("ONE"), Value("c"));

  rows->setFilter("");
  EXPECT_EQ(rows->AbsolutePosition(), 1) << "a filter that is set leads to the first row";
  EXPECT_EQ(rows->GetRows(-1).size(), 3U);
  EXPECT_EQ(errorOf([&] { rows->setFilter("ONE = 'a'"); }), 3251);

  EXPECT_EQ(errorOf([&] { rows->GetRows(1); }), 3021);
  EXPECT_EQ(errorOf([&] { rows->MoveNext(); }), 3021);
  EXPECT_EQ(errorOf([&] { rows->setAbsolutePosition(4); }), 3021);
  EXPECT_EQ(errorOf([&] { static_cast<void>(clone->value("THREE")); }), 3265);
  EXPECT_EQ(errorOf([&] { clone->setValue("ONE", "x"); }), 3251);
  EXPECT_EQ(errorOf([&] { clone->Requery(); }), 3251);
  clone->Close();
  EXPECT_EQ(errorOf([&] { static_cast<void>(clone->RecordCount()); }), 3704);
  EXPECT_EQ(rows->RecordCount(), 3);
}

TEST(FixedRows, AreShownSortedAndFoundInAGrid) {
  tests::NoHost host;
  QueryGrid grid("GRID", host);
  grid.addColumn({.field = "ONE", .caption = "Uno", .width = 1000},
                 [](const std::string& text) { return text; });
  grid.setDataSource(threeRows());
  grid.tools().sortBy(0);
  grid.tools().sortBy(0);
  EXPECT_EQ(grid.cellText(grid.tools().rowAt(1), 0), "c");
  grid.tools().find("b", std::nullopt);
  EXPECT_EQ(grid.currentRow(), 2);
  EXPECT_THROW(grid.edit(1, "ONE", "x"), GestureRefused);
}

}  // namespace
}  // namespace kebu::controls
