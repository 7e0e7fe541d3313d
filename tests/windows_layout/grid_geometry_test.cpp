#include "windows/views/layout/grid_geometry.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace kebu::windows::layout {

std::ostream& operator<<(std::ostream& out, const Rect& rect) {
  return out << rect.left << ", " << rect.top << ", " << rect.width << " x " << rect.height;
}

namespace {

/// At 96 dpi: heads of 30 pixels, rows of 26, a gutter of 4; 500 x 300 pixels show ten rows and a
/// part of the eleventh.
class GridGeometryTest : public testing::Test {
 protected:
  GridGeometryTest() {
    geometry.setContents({columns, 100, false});
    geometry.setSize(500, 300);
  }

  static constexpr std::size_t text = 0;
  static constexpr std::size_t hidden = 1;
  static constexpr std::size_t check = 2;
  static constexpr std::size_t wide = 3;
  static constexpr std::size_t last = 4;

  const std::vector<GridColumn> columns{{100}, {0}, {60, true}, {400}, {10}};
  Metrics metrics;
  GridGeometry geometry{metrics};
};

TEST_F(GridGeometryTest, PlacesColumnsSideBySide) {
  const struct {
    std::size_t column;
    int left;
    int width;
  } cases[] = {{text, 4, 100},
               {hidden, 104, 0},
               {check, 104, 60},
               {wide, 164, 400},
               {last, 564, 28}};  // never narrower than that
  for (const auto& [column, left, width] : cases) {
    EXPECT_EQ(geometry.headBounds(column), (Rect{left, 0, width, 30})) << "column " << column;
  }
  EXPECT_EQ(geometry.totalWidth(), 592);
}

TEST_F(GridGeometryTest, TakesTheWidestOfWhatAColumnNeedsUntilTheUserDecides) {
  geometry.setRequiredWidth(text, 130);
  geometry.setRequiredWidth(wide, 130);
  EXPECT_EQ(geometry.columnWidth(text), 130);
  EXPECT_EQ(geometry.columnWidth(wide), 400);
  geometry.moveEdge(text, 4 + 50);
  EXPECT_EQ(geometry.columnWidth(text), 50);
  geometry.moveEdge(text, -300);
  EXPECT_EQ(geometry.columnWidth(text), 28);
  // The same columns with other rows keep what the user chose, other columns do not.
  geometry.setContents({columns, 3, false});
  EXPECT_EQ(geometry.columnWidth(text), 28);
  geometry.setContents({{{100}}, 3, false});
  EXPECT_EQ(geometry.columnWidth(text), 100);
}

TEST_F(GridGeometryTest, KeepsAUserWidthInInchesOnAFinerScreen) {
  metrics.dpi = 144;
  geometry.moveEdge(text, geometry.columnLeft(text) + 150);
  EXPECT_EQ(geometry.columnWidth(text), 150);
  metrics.dpi = 192;
  EXPECT_EQ(geometry.columnWidth(text), 200);
}

TEST_F(GridGeometryTest, StepsOverHiddenColumns) {
  const struct {
    std::size_t from;
    int step;
    std::size_t to;
  } cases[] = {{text, 1, check},
               {check, -1, text},
               {text, -1, text},
               {last, 1, last},
               {columns.size(), -1, last}};
  for (const auto& [from, step, to] : cases) {
    EXPECT_EQ(geometry.shownFrom(from, step), to) << "from " << from << " by " << step;
  }
}

TEST_F(GridGeometryTest, PlacesTheRowsInSight) {
  EXPECT_EQ(geometry.visibleRows(), 10);
  EXPECT_EQ(geometry.bottomRow(), 11);
  geometry.scrollToRow(21);
  const struct {
    std::int32_t row;
    Rect bounds;
  } cases[] = {{20, {}}, {21, {0, 30, 500, 26}}, {31, {0, 290, 500, 26}}, {32, {}}};
  for (const auto& [row, bounds] : cases) {
    EXPECT_EQ(geometry.rowBounds(row), bounds) << "row " << row;
  }
  geometry.setContents({columns, 2, false});
  geometry.clampPosition();
  EXPECT_EQ(geometry.topRow(), 1);
  EXPECT_EQ(geometry.rowBounds(3), Rect{}) << "beyond the last row";
}

TEST_F(GridGeometryTest, ARowThatOnlyTouchesTheLowerEdgeIsOutOfSight) {
  geometry.setSize(500, 30 + 10 * 26);
  EXPECT_EQ(geometry.visibleRows(), 10);
  EXPECT_EQ(geometry.rowBounds(11), Rect{});
}

TEST_F(GridGeometryTest, CellsAreWhereTheirRowAndColumnCross) {
  EXPECT_EQ(geometry.cellBounds(2, check), (Rect{104, 56, 60, 26}));
  EXPECT_EQ(geometry.cellBounds(2, hidden), Rect{});
  EXPECT_EQ(geometry.cellBounds(2, last), Rect{}) << "to the right of the window";
  EXPECT_EQ(geometry.cellBounds(50, check), Rect{}) << "below the window";
  geometry.scrollToOffset(92);
  EXPECT_EQ(geometry.cellBounds(2, text), (Rect{4, 56, 100, 26})) << "it stays";
  EXPECT_EQ(geometry.cellBounds(2, check), Rect{}) << "under the first column";
  EXPECT_EQ(geometry.cellBounds(2, wide), (Rect{72, 56, 400, 26})) << "partly under it";
  EXPECT_EQ(geometry.seenPart(wide, geometry.cellBounds(2, wide)), (Rect{104, 56, 368, 26}));
  EXPECT_EQ(geometry.cellBounds(2, last), (Rect{472, 56, 28, 26}));
}

TEST_F(GridGeometryTest, TellsWhatAPointLiesOn) {
  geometry.scrollToRow(5);
  const struct {
    int x, y;
    std::int32_t row;
    int column;
    bool onEdge;
  } cases[] = {{50, 10, 0, 0, false},  {104, 10, 0, 0, true},    {100, 10, 0, 0, true},
               {108, 10, 0, 0, true},  {109, 10, 0, 2, false},   {104, 29, 0, 0, true},
               {104, 30, 5, 2, false}, {103, 55, 5, 0, false},   {103, 56, 6, 0, false},
               {2, 40, 5, -1, false},  {300, 299, 15, 3, false}, {300, -20, 0, 3, false}};
  for (const auto& [x, y, row, column, onEdge] : cases) {
    const GridHit hit = geometry.hitTest(x, y);
    const std::string at = std::to_string(x) + ", " + std::to_string(y);
    EXPECT_EQ(hit.row, row) << at;
    EXPECT_EQ(hit.column, column) << at;
    EXPECT_EQ(hit.onEdge, onEdge) << at;
  }
  geometry.setContents({columns, 6, false});
  geometry.clampPosition();
  EXPECT_EQ(geometry.hitTest(50, 30 + 6 * 26 - 1).row, 6);
  EXPECT_EQ(geometry.hitTest(50, 30 + 6 * 26).row, -1);
}

TEST_F(GridGeometryTest, TheFirstColumnStaysUnlessItIsTooWide) {
  geometry.scrollToOffset(92);
  EXPECT_TRUE(geometry.isFrozen(text));
  EXPECT_FALSE(geometry.isFrozen(check));
  EXPECT_EQ(geometry.frozenRight(), 104);
  EXPECT_EQ(geometry.hitTest(50, 40).column, 0);
  EXPECT_EQ(geometry.hitTest(103, 40).column, 0);
  EXPECT_EQ(geometry.hitTest(104, 40).column, 3);
  EXPECT_FALSE(geometry.hitTest(72, 10).onEdge) << "the edge is under the first column";
  geometry.setSize(200, 300);
  EXPECT_FALSE(geometry.isFrozen(text));
  EXPECT_EQ(geometry.frozenRight(), 4);
  EXPECT_EQ(geometry.columnLeft(text), 4 - 92);
}

TEST_F(GridGeometryTest, TakesAnEarlierWidthUntilTheUserChangesIt) {
  std::vector<GridColumn> given = columns;
  given[text].given = 200;
  geometry.setContents({given, 100, false});
  geometry.setRequiredWidth(text, 300);
  EXPECT_EQ(geometry.columnWidth(text), 200);
  EXPECT_EQ(geometry.userWidth(text), 0);
  geometry.fit(text, 77);
  EXPECT_EQ(geometry.columnWidth(text), 77);
  EXPECT_EQ(geometry.userWidth(text), 77);
}

TEST_F(GridGeometryTest, OnlyAColumnOfChecksHasABoxInItsHead) {
  EXPECT_EQ(geometry.tickAllBounds(check), (Rect{110, 0, 16, 30}));
  EXPECT_EQ(geometry.tickAllBounds(text), Rect{});
}

TEST_F(GridGeometryTest, MarksMakeRoomBeforeTheFirstColumn) {
  geometry.setContents({columns, 100, true});
  EXPECT_EQ(geometry.columnLeft(text), 22);
}

TEST_F(GridGeometryTest, ScrollsNoFartherThanTheEnds) {
  const struct {
    std::int32_t wanted;
    std::int32_t row;
  } rows[] = {{-5, 1}, {50, 50}, {91, 91}, {92, 91}, {1000, 91}};
  for (const auto& [wanted, row] : rows) {
    geometry.scrollToRow(wanted);
    EXPECT_EQ(geometry.topRow(), row) << wanted;
    EXPECT_EQ(geometry.verticalRange().position, row);
  }
  const struct {
    int wanted;
    int offset;
  } offsets[] = {{-5, 0}, {50, 50}, {92, 92}, {93, 92}};
  for (const auto& [wanted, offset] : offsets) {
    geometry.scrollToOffset(wanted);
    EXPECT_EQ(geometry.horizontalRange().position, offset) << wanted;
  }
  const ScrollRange down = geometry.verticalRange();
  EXPECT_EQ(down.first, 1);
  EXPECT_EQ(down.last, 100);
  EXPECT_EQ(down.page, 10);
  const ScrollRange sideways = geometry.horizontalRange();
  EXPECT_EQ(sideways.first, 0);
  EXPECT_EQ(sideways.last, 591);
  EXPECT_EQ(sideways.page, 500);
  geometry.setSize(1000, 300);
  geometry.clampPosition();
  EXPECT_EQ(geometry.columnLeft(text), 4) << "there is room for all of it now";
}

TEST_F(GridGeometryTest, ScrollsARowIntoView) {
  const struct {
    std::int32_t top, row, newTop;
  } cases[] = {{20, 5, 5}, {20, 20, 20}, {20, 29, 20}, {20, 30, 21}, {20, 100, 91}};
  for (const auto& [top, row, newTop] : cases) {
    geometry.scrollToRow(top);
    EXPECT_EQ(geometry.isInView(row), top == newTop);
    geometry.showRow(row);
    EXPECT_EQ(geometry.topRow(), newTop) << "row " << row << " from " << top;
    EXPECT_TRUE(geometry.isInView(row));
  }
}

TEST_F(GridGeometryTest, ScrollsAColumnIntoView) {
  geometry.setSize(300, 300);
  const struct {
    int offset;
    std::size_t column;
    int left;
  } cases[] = {{0, text, 4},
               {50, text, 4},
               {0, check, 104},
               {0, last, 272},
               {0, wide, 104}};  // wider than the window; beside the first column
  for (const auto& [offset, column, left] : cases) {
    geometry.scrollToOffset(offset);
    geometry.showColumn(column);
    EXPECT_EQ(geometry.columnLeft(column), left) << "column " << column << " from " << offset;
  }
}

TEST_F(GridGeometryTest, HoldsInAWindowWithoutRoomOrContents) {
  geometry.setSize(0, 0);
  EXPECT_EQ(geometry.visibleRows(), 1);
  EXPECT_EQ(geometry.rowBounds(1), Rect{});
  geometry.setSize(500, 300);
  geometry.setContents({});
  geometry.clampPosition();
  EXPECT_EQ(geometry.topRow(), 1);
  EXPECT_EQ(geometry.hitTest(50, 50).row, -1);
  EXPECT_EQ(geometry.verticalRange().last, 1);
  EXPECT_EQ(geometry.shownFrom(0, -1), 0U);
}

}  // namespace

}  // namespace kebu::windows::layout
