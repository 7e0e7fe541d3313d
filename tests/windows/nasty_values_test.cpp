// The nasty values of tests/values in the DLL's own window.
#include "tests/values/nasty_values.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/convert.h"
#include "tests/values/entry_checks.h"
#include "tests/windows/dll_entry_window.h"
#include "tests/windows/held_keys.h"
#include "tests/windows/window_fixture.h"
#include "workbench/windows/gestures.h"

namespace kebu::tests {

namespace {

using windows::Inspected;
using workbench::textOf;
using workbench::WindowReader;

class NastyValuesTest : public OpenWindowTest {
 protected:
  void SetUp() override {
    open();
    window_.emplace(*host);
  }
  void TearDown() override {
    window_.reset();
    OpenWindowTest::TearDown();
  }

  std::optional<DllEntryWindow> window_;
};

TEST_F(NastyValuesTest, InTheBoxesOfTheProfile) {
  enterInBoxesOfTheProfile(*window_);
}

TEST_F(NastyValuesTest, InTheLevelsOfCategories) {
  enterInLevelsOfCategories(*window_, Share::Third);
}

TEST_F(NastyValuesTest, InTheConditionsOfFilters) {
  enterInConditionsOfFilters(*window_, Share::Third);
}

TEST_F(NastyValuesTest, InTheCellsOfPriceLists) {
  enterInCellsOfPriceLists(*window_, Share::Third);
}

TEST_F(NastyValuesTest, InThePositionOfARule) {
  enterInThePositionOfARule(*window_);
}

TEST_F(NastyValuesTest, InTheSearchOfAGrid) {
  window_->openPage(3);
  HWND const grid = windowOf("QGRID_DEP");
  SetFocus(grid);
  {
    const HeldKeys held({VK_CONTROL});
    workbench::pressKey(grid, 'F');
    pumpWaiting();
  }
  HWND const box = GetFocus();
  ASSERT_NE(box, grid);
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    DllEntryWindow::paste(box, value.text);
    pumpWaiting();
    EXPECT_GE(reader().control("QGRID_DEP").current, 1);
  }
  EXPECT_EQ(window_->told(), 0U);
}

TEST_F(NastyValuesTest, InTheSearchOfALookup) {
  std::size_t tried = 0;
  soon([&] {
    HWND const list = FindWindowW(L"kebu.lookup", nullptr);
    const WindowReader shown(list);
    const auto count = [&] { return shown.find(Inspected::Control, "", {}).value().count; };
    std::vector<std::string> rows;
    for (std::int32_t row = 1; row <= count(); ++row) {
      std::string line;
      for (std::int32_t i = 0; i < 2; ++i) {
        line += textOf(shown.find(Inspected::Cell, "", {"", i, row}).value()) + '\n';
      }
      rows.push_back(toUpperAscii(line));
    }
    HWND const box = FindWindowExW(list, nullptr, L"Edit", nullptr);
    for (const NastyValue& value : nastyValues()) {
      SCOPED_TRACE(value.name);
      const std::string sought = toUpperAscii(DllEntryWindow::paste(box, value.text));
      const auto matching = std::ranges::count_if(
          rows, [&](const std::string& row) { return row.find(sought) != std::string::npos; });
      EXPECT_EQ(count(), matching);
      ++tried;
    }
    workbench::pressKey(box, VK_ESCAPE);
  });
  SetFocus(windowOf("TXT_GM04_CODDOCWEB_MG36"));
  workbench::pressKey(GetFocus(), VK_F4);
  pumpWaiting();
  EXPECT_EQ(tried, nastyValues().size());
}

}  // namespace

}  // namespace kebu::tests
