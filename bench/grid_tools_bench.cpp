#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/benchmarks.h"
#include "bench/made_up_rows.h"
#include "common/convert.h"
#include "controls/query_grid.h"
#include "tests/support/no_host.h"

namespace kebu::bench {

namespace {

constexpr std::int32_t rowCount = 1'000'000;

constexpr controls::GridColumn columns[] = {
    {"CODE", "Codice", 1500, controls::ColumnKind::Text},
    {"DESCR", "Descrizione", 3600, controls::ColumnKind::Text},
    {"QUANTITY", "Quantità", 1200, controls::ColumnKind::Figure},
};
constexpr std::size_t description = 1;
constexpr std::size_t quantity = 2;

/// A grid of a million rows that are made up as they are read.
struct LargeGrid {
  LargeGrid() {
    for (const controls::GridColumn& column : columns) {
      grid.addColumn(column, [](const std::string& text) { return text; });
    }
    grid.setDataSource(rows);
  }
  /// The work of a gesture to its end, in slices as the window does it; `longest` is the longest
  /// slice.
  Nanoseconds work(const std::function<void(controls::GridTools&)>& gesture) {
    return timeOf([&] {
      longest = std::max(longest, timeOf([&] { gesture(grid.tools()); }));
      while (grid.tools().isBusy()) {
        longest = std::max(longest, timeOf([&] { grid.tools().work(); }));
      }
    });
  }
  /// Reads a field of all rows.
  std::vector<Value> read(std::string_view field) const {
    const Ref<ado::Recordset> clone = rows->Clone();
    std::vector<Value> values;
    for (const RowValues& row : clone->GetRows(-1, field)) values.push_back(row.front());
    return values;
  }

  tests::NoHost host;
  Ref<ado::Recordset> rows = Ref<ado::Recordset>(std::make_shared<MadeUpRows>(rowCount));
  controls::QueryGrid grid{"QGRID", host};
  Nanoseconds longest{};
};

void printLongest(const LargeGrid& large) {
  const auto slice = std::chrono::duration_cast<std::chrono::milliseconds>(large.longest);
  std::cout << "  the longest slice took " << slice.count() << " ms\n";
}

void measureSorting(PairedRunner& runner, const char* name, std::size_t column) {
  if (!runner.wants(name)) return;
  LargeGrid large;
  const std::string_view field = columns[column].field;
  runner.compare({
      .name = name,
      .floorName = "reading it, and a plain sort of its texts",
      .subject =
          [&] {
            const Nanoseconds time =
                large.work([&](controls::GridTools& tools) { tools.sortBy(column); });
            if (!large.grid.tools().isReordered()) throw std::logic_error("nothing was sorted");
            // Downwards, then as read.
            large.grid.tools().sortBy(column);
            large.grid.tools().sortBy(column);
            return time;
          },
      .floor =
          [&] {
            return timeOf([&] {
              std::vector<std::string> texts;
              for (const Value& value : large.read(field)) texts.push_back(toDisplay(value));
              std::stable_sort(texts.begin(), texts.end());
            });
          },
      .pairs = 5,
  });
  printLongest(large);
}

void measureFinding(PairedRunner& runner, const char* name, std::optional<std::size_t> column) {
  if (!runner.wants(name)) return;
  LargeGrid large;
  runner.compare({
      .name = name,
      .floorName = "reading a column",
      .subject =
          [&] {
            const Nanoseconds time = large.work(
                [&](controls::GridTools& tools) { tools.find("numero 999999", column); });
            if (large.grid.currentRow() != 999'999) throw std::logic_error("nothing was found");
            return time;
          },
      .floor = [&] { return timeOf([&] { large.read(columns[description].field); }); },
      .pairs = 5,
  });
  printLongest(large);
}

void measureExporting(PairedRunner& runner, const char* name) {
  if (!runner.wants(name)) return;
  LargeGrid large;
  runner.compare({
      .name = name,
      .floorName = "reading them, and joining their texts",
      .subject =
          [&] {
            std::string file;
            bool isComplete = false;
            const Nanoseconds time = large.work([&](controls::GridTools& tools) {
              tools.exportRows([&](std::string_view piece) { file += piece; },
                               [&](bool complete) { isComplete = complete; });
            });
            if (!isComplete || std::ranges::count(file, '\n') != rowCount + 1) {
              throw std::logic_error("not all rows were exported");
            }
            return time;
          },
      .floor =
          [&] {
            return timeOf([&] {
              std::string file;
              std::vector<std::vector<Value>> read;
              for (const controls::GridColumn& column : columns)
                read.push_back(large.read(column.field));
              for (std::size_t row = 0; row < read.front().size(); ++row) {
                for (const std::vector<Value>& column : read) file += toDisplay(column[row]) + ';';
                file += '\n';
              }
            });
          },
      .pairs = 5,
  });
  printLongest(large);
}

}  // namespace

void measureGridTools(PairedRunner& runner) {
  measureSorting(runner, "sorting 1,000,000 rows by a text", description);
  measureSorting(runner, "sorting 1,000,000 rows by a number", quantity);
  measureFinding(runner, "finding in a column of 1,000,000 rows", description);
  measureFinding(runner, "finding in all columns of 1,000,000 rows", std::nullopt);
  measureExporting(runner, "exporting 1,000,000 rows to CSV");
}

}  // namespace kebu::bench
