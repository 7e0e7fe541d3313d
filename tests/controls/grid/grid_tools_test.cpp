#include "controls/grid/grid_tools.h"

#include <gtest/gtest.h>

#include <map>

#include "common/convert.h"
#include "common/error.h"

namespace kebu::controls {
namespace {

class Settings : public SettingStore {
 public:
  std::string setting(const std::string& name) override { return kept[name]; }
  void keepSetting(const std::string& name, const std::string& value) override {
    kept[name] = value;
  }
  std::map<std::string, std::string> kept;
};

/// A text, a number, a hidden column and a date; some rows hold nothing.
class SampleRows : public GridRows {
 public:
  std::int32_t rowCount() const override { return static_cast<std::int32_t>(rows.size()); }
  std::size_t columnCount() const override { return 4; }
  std::string field(std::size_t column) const override { return "F" + std::to_string(column); }
  bool isShown(std::size_t column) const override { return column != 2; }
  std::string head(std::size_t column) const override { return "Testa " + std::to_string(column); }
  std::vector<Value> cells(std::size_t column, std::int32_t first, std::int32_t count) override {
    if (failing) throw RuntimeError(3704, "closed");
    std::vector<Value> read;
    for (std::int32_t row = first; row < first + count && row <= rowCount(); ++row) {
      read.push_back(rows[static_cast<std::size_t>(row) - 1][column]);
    }
    return read;
  }
  std::string writtenText(std::int32_t row, std::size_t column) override {
    return toDisplay(rows[static_cast<std::size_t>(row) - 1][column]);
  }
  std::int32_t currentRow() const override { return current; }
  void selectRow(std::int32_t row) override { current = row; }

  std::vector<std::vector<Value>> rows;
  std::int32_t current = 1;
  bool failing = false;
};

class GridToolsTest : public testing::Test {
 protected:
  static Value decimal(const char* text) { return *Decimal::parse(text); }
  static Value day(int of) { return *Date::make(2024, 5, of, 0, 0, 0, 0); }

  void fillSample() {
    rows.rows = {
        {"ute", decimal("10"), "nascosto", day(2)},
        {"Èlite", decimal("9.5"), "x", Null{}},
        {"ELE", Null{}, "x", day(1)},
        {"UTE ", decimal("-3"), "x", day(3)},
        {Null{}, std::int32_t{9}, "x", day(2)},
        {"élan; \"rosso\"", decimal("100"), "x", day(1)},
    };
    tools.rowsChanged();
  }
  void fillMany(std::int32_t count) {
    for (std::int32_t i = 0; i < count; ++i) {
      rows.rows.push_back({"riga " + std::to_string(i), i * 7919 % 1000, Value(), Value()});
    }
    tools.rowsChanged();
  }
  std::vector<std::int32_t> order() const {
    std::vector<std::int32_t> all;
    for (std::int32_t place = 1; place <= rows.rowCount(); ++place)
      all.push_back(tools.rowAt(place));
    return all;
  }

  SampleRows rows;
  Settings settings;
  GridTools tools{rows, "GRID", &settings, [](const std::string& text) { return text; }};
};

using Rows = std::vector<std::int32_t>;

TEST_F(GridToolsTest, SortsByWhatCellsMeanInThreeStates) {
  fillSample();
  const struct {
    std::size_t column;
    Rows upwards;
    Rows downwards;
  } cases[] = {
      // Nothing first; accents and case aside; equal rows keep their order both ways.
      {0, {5, 6, 3, 2, 1, 4}, {1, 4, 2, 3, 6, 5}},
      {1, {3, 4, 5, 2, 1, 6}, {6, 1, 2, 5, 4, 3}},
      {3, {2, 3, 6, 1, 5, 4}, {4, 1, 5, 3, 6, 2}},
  };
  rows.current = 3;
  for (const auto& [column, upwards, downwards] : cases) {
    tools.sortBy(column);
    EXPECT_EQ(order(), upwards) << "column " << column;
    for (std::int32_t place = 1; place <= 6; ++place) {
      EXPECT_EQ(tools.placeOf(tools.rowAt(place)), place);
    }
    tools.sortBy(column);
    EXPECT_EQ(order(), downwards) << "column " << column;
    tools.sortBy(column);
    EXPECT_EQ(order(), (Rows{1, 2, 3, 4, 5, 6}));
    EXPECT_FALSE(tools.sortedBy());
  }
  EXPECT_EQ(rows.current, 3);
  EXPECT_THROW(tools.sortBy(2), GestureRefused);
  EXPECT_THROW(tools.sortBy(4), GestureRefused);
}

TEST_F(GridToolsTest, SortsManyRowsInSlicesAndKeepsEqualOnesInOrder) {
  fillMany(50001);
  tools.sortBy(1);
  EXPECT_TRUE(tools.isBusy());
  EXPECT_TRUE(tools.status().starts_with("Ordinamento... ")) << tools.status();
  EXPECT_FALSE(tools.isReordered());
  int slices = 1;
  for (; tools.isBusy(); ++slices) tools.work();
  EXPECT_GT(slices, 10);
  Rows expected = order();
  std::stable_sort(expected.begin(), expected.end());
  std::stable_sort(expected.begin(), expected.end(),
                   [&](auto a, auto b) { return (a - 1) * 7919 % 1000 < (b - 1) * 7919 % 1000; });
  EXPECT_EQ(order(), expected);
  EXPECT_EQ(tools.status(), "50.001 righe");
}

TEST_F(GridToolsTest, CanceledAndFailedSortsLeaveTheOrderOfBefore) {
  fillMany(50000);
  tools.sortBy(1);
  tools.cancel();
  EXPECT_FALSE(tools.isBusy());
  EXPECT_FALSE(tools.sortedBy());
  EXPECT_FALSE(tools.isReordered());
  EXPECT_EQ(settings.kept["GRID.F0"], "");
  tools.sortBy(1);
  rows.failing = true;
  EXPECT_THROW(tools.work(), RuntimeError);
  EXPECT_FALSE(tools.isBusy());
  EXPECT_FALSE(tools.sortedBy());
}

TEST_F(GridToolsTest, SortsOtherRowsAgainAlsoWhenTheyComeDuringTheSort) {
  fillMany(50000);
  tools.sortBy(1);
  rows.rows.resize(20);
  tools.rowsChanged();
  EXPECT_FALSE(tools.isBusy());
  EXPECT_EQ(tools.rowAt(20), 14);  // 13 * 7919 ends in 947, more than any other of them
  rows.rows.clear();
  tools.rowsChanged();
  EXPECT_EQ(tools.status(), "0 righe");
}

TEST_F(GridToolsTest, LeadsToTheCurrentRowOnlyAfterASortOfTheUsersOwn) {
  int moves = 0;
  const auto counting = tools.moved.connect([&] { ++moves; });
  fillSample();
  tools.sortBy(0);
  EXPECT_EQ(moves, 1);
  tools.rowsChanged();
  EXPECT_TRUE(tools.isReordered());
  EXPECT_EQ(moves, 1) << "new rows are looked at from the top";
}

TEST_F(GridToolsTest, FindsTheNextRowInTheOrderThatIsShown) {
  fillSample();
  tools.find("ute", std::nullopt);
  EXPECT_EQ(rows.current, 1);  // the current row counts
  EXPECT_EQ(tools.status(), "6 righe, trovate: 2");
  tools.findNext();
  EXPECT_EQ(rows.current, 4);
  tools.findNext();
  EXPECT_EQ(rows.current, 1);
  tools.find("el", 0);
  EXPECT_EQ(rows.current, 2);
  tools.sortBy(0);  // 5, 6, 3, 2, 1, 4
  tools.findNext();
  EXPECT_EQ(rows.current, 6);
  tools.findNext();
  EXPECT_EQ(rows.current, 3);
  tools.findPrevious();
  tools.findPrevious();
  EXPECT_EQ(rows.current, 2);
  const struct {
    const char* text;
    std::optional<std::size_t> column;
    std::int32_t row;  ///< 0 when nothing is found
  } cases[] = {{"9,5", {}, 2}, {"03/05/2024", {}, 4}, {"nascosto", {}, 0},
               {"100", 0, 0},  {"\"ROSSO", {}, 6},    {"x", {}, 0}};
  for (const auto& [text, column, row] : cases) {
    rows.current = 5;
    tools.find(text, column);
    EXPECT_EQ(rows.current, row == 0 ? 5 : row) << text;
    EXPECT_EQ(tools.status().ends_with("nessuna corrisponde"), row == 0) << tools.status();
  }
  rows.current = 2;
  for (const auto& [typed, row] :
       {std::pair{"E", 2}, {"EL", 2}, {"ELE", 3}, {"ELEN", 2}, {"E", 2}, {"ELA", 6}, {"EL", 2}}) {
    tools.find(typed, 0);
    EXPECT_EQ(rows.current, row) << typed;
  }
  rows.current = 5;
  tools.find("", std::nullopt);
  EXPECT_EQ(tools.status(), "6 righe");
  tools.findNext();
  EXPECT_EQ(rows.current, 5);
}

TEST_F(GridToolsTest, FindsWhatCellsHoldAfterAnEdit) {
  fillSample();
  tools.find("ute", std::nullopt);
  rows.rows[2][0] = "ute 3";
  tools.cellsChanged();
  EXPECT_EQ(tools.status(), "6 righe") << "how many there are now is not known";
  tools.findNext();
  EXPECT_EQ(rows.current, 3);
  EXPECT_EQ(tools.status(), "6 righe, trovate: 3");
}

TEST_F(GridToolsTest, GoesToAnEarlyHitBeforeAllRowsAreRead) {
  fillMany(50000);
  tools.find("riga 49000", 0);
  EXPECT_EQ(rows.current, 1);
  tools.finish();
  EXPECT_EQ(rows.current, 49001);
  rows.current = 1;
  tools.find("riga 77", 0);
  EXPECT_TRUE(tools.isBusy());
  EXPECT_EQ(rows.current, 78);
  tools.findNext();
  EXPECT_EQ(rows.current, 771);
  tools.findPrevious();  // waits, since a later row might come before
  EXPECT_EQ(rows.current, 771);
  tools.finish();
  EXPECT_EQ(rows.current, 78);
  tools.find("riga 49999", 0);
  EXPECT_EQ(rows.current, 78);
  tools.cancel();
  EXPECT_EQ(rows.current, 78);
  tools.findNext();  // begins again
  tools.finish();
  EXPECT_EQ(rows.current, 50000);
}

TEST_F(GridToolsTest, ASortEndsTheSearchBefore) {
  fillMany(50000);
  tools.find("riga 49999", 0);
  EXPECT_TRUE(tools.isBusy());
  tools.sortBy(1);
  tools.finish();
  EXPECT_EQ(tools.status(), "50.000 righe");
  EXPECT_EQ(rows.current, 1);
}

TEST_F(GridToolsTest, CopiesPlacesWithHeadsAsASpreadsheetTakesThem) {
  fillSample();
  tools.sortBy(0);
  std::string text;
  tools.copyRows(2, 3, [&](std::string copied) { text = std::move(copied); });
  EXPECT_EQ(text,
            "Testa 0\tTesta 1\tTesta 3\r\n"
            "\"élan; \"\"rosso\"\"\"\t100\t01/05/2024\r\n"
            "ELE\t\t01/05/2024\r\n");
}

TEST_F(GridToolsTest, QuotesCellsThatWouldBreakALine) {
  const struct {
    const char* cell;
    char separator;
    const char* written;
  } cases[] = {{"a;b", ';', "\"a;b\""},
               {"a;b", '\t', "a;b"},
               {"a\tb", '\t', "\"a\tb\""},
               {"6\" nero", ';', "\"6\"\" nero\""},
               {"a\r\nb", ';', "\"a\r\nb\""},
               {"", ';', ""},
               {" a ", ';', " a "}};
  for (const auto& [cell, separator, written] : cases) {
    EXPECT_EQ(quotedCell(cell, separator), written);
  }
}

TEST_F(GridToolsTest, ExportsAllRowsOrTellsThatItDidNot) {
  fillMany(30000);
  std::string file;
  std::optional<bool> complete;
  const auto begin = [&] {
    file.clear();
    complete.reset();
    tools.exportRows([&](std::string_view piece) { file += piece; },
                     [&](bool all) { complete = all; });
  };
  begin();
  EXPECT_FALSE(complete);
  tools.finish();
  EXPECT_EQ(complete, true);
  EXPECT_TRUE(file.starts_with("\xEF\xBB\xBFTesta 0;Testa 1;Testa 3\r\nriga 0;0;\r\n"));
  EXPECT_TRUE(file.ends_with("riga 29999;81;\r\n")) << file.substr(file.size() - 40);
  EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 30001);
  begin();
  tools.cancel();
  EXPECT_EQ(complete, false);
}

TEST_F(GridToolsTest, KeepsWidthsAndOrderForTheSameColumnsOnly) {
  fillSample();
  tools.setWidth(3, 120);
  tools.sortBy(1);
  tools.sortBy(1);
  EXPECT_EQ(settings.kept["GRID.F0"], "width 3 F3 120;sort 1 F1 down;");
  GridTools later(rows, "GRID", &settings, [](const std::string& text) { return text; });
  later.rowsChanged();
  EXPECT_EQ(later.width(3), 120);
  EXPECT_EQ(later.width(1), std::nullopt);
  EXPECT_EQ(later.rowAt(1), 6);
  // What is not understood, or is of columns that are not there, is skipped.
  settings.kept["GRID.F0"] =
      "width 3 G3 90;width 9 F9 90;width 1 F1 -5;width 1 F1 4001;"
      "width 2 F2 4000;width;sort 1 F1 aside;;?";
  GridTools other(rows, "GRID", &settings, [](const std::string& text) { return text; });
  other.rowsChanged();
  EXPECT_EQ(other.width(3), std::nullopt);
  EXPECT_EQ(other.width(1), std::nullopt);
  EXPECT_EQ(other.width(2), 4000);
  EXPECT_FALSE(other.sortedBy());
}

TEST(GroupedNumberTest, SeparatesThousands) {
  const struct {
    std::int64_t number;
    const char* text;
  } cases[] = {{0, "0"}, {999, "999"}, {1000, "1.000"}, {1234567, "1.234.567"}, {-100, "-100"}};
  for (const auto& [number, text] : cases) EXPECT_EQ(groupedNumber(number), text);
}

}  // namespace
}  // namespace kebu::controls
