// A grid of a million rows beside one of a thousand: its first paint, a page down, the memory that
// its form takes, sorting and finding. The rows are made up as they are read, so that what is
// measured is the grid.
#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <memory>
#include <stdexcept>

#include "bench/made_up_rows.h"
#include "controls/form.h"
#include "controls/query_grid.h"
#include "tests/support/no_host.h"
#include "tests/windows/resources.h"
#include "windows/views/form/win32_desktop.h"
#include "windows/views/window/inspection.h"

namespace kebu::bench {

namespace {

constexpr controls::ValueListItem kinds[] = {
    {0, "Nessuna"}, {1, "Anagrafico"}, {2, "Deposito"}, {3, "Da Priorità"}};
constexpr controls::GridColumn columns[] = {
    {"CODE", "Codice", 1500, controls::ColumnKind::Text},
    {"DESCR", "Descrizione", 3600, controls::ColumnKind::Text},
    {"ACTIVE", "Attivo", 1200, controls::ColumnKind::Check},
    {"KIND", "Tipologia", 2750, controls::ColumnKind::ValueList, kinds},
    {"QUANTITY", "Quantità", 1200, controls::ColumnKind::Number},
    {"CODE2", "Deposito", 1500, controls::ColumnKind::Lookup},
};

class GridForm : public controls::Form {
 public:
  GridForm(controls::Desktop& desktop, std::int32_t rows) : Form("FRM_BENCH", desktop) {
    for (const controls::GridColumn& column : columns) {
      grid.addColumn(column, [](const std::string& text) { return text; });
    }
    grid.setRowStateField("STATO");
    grid.setDataSource(Ref<ado::Recordset>(std::make_shared<MadeUpRows>(rows)));
    group.add(grid);
    Form::add(group);
  }

  tests::NoHost host;
  controls::GroupBox group{"GRP", "Listini"};
  controls::QueryGrid grid{"QGRID", host};
};

HWND windowOfGrid() {
  windows::Inspection asked;
  std::wcscpy(asked.control, L"QGRID");
  SendMessageW(GetActiveWindow(), windows::inspectMessage(), 0, reinterpret_cast<LPARAM>(&asked));
  if (!asked.window) throw std::runtime_error("the grid's window is not found");
  return asked.window;
}

double millisecondsNow() {
  LARGE_INTEGER count{};
  LARGE_INTEGER frequency{};
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

/// Answers messages until the grid's work is done; the longest time that one took.
double workInWindow(GridForm& form) {
  double longest = 0;
  MSG message{};
  while (form.grid.tools().isBusy() && GetMessageW(&message, nullptr, 0, 0) > 0) {
    const double start = millisecondsNow();
    DispatchMessageW(&message);
    longest = std::max(longest, millisecondsNow() - start);
  }
  return longest;
}

void measureTools(GridForm& form) {
  constexpr std::size_t description = 1;
  const double start = millisecondsNow();
  form.grid.tools().sortBy(description);
  const double longestOfSort = workInWindow(form);
  const double sorted = millisecondsNow();
  form.grid.tools().find("numero 77777", description);
  const double longestOfFind = workInWindow(form);
  const double found = millisecondsNow();
  std::printf(
      "%8d rows: sorted in %.0f ms, found in %.0f ms; longest without an answer %.0f and %.0f ms\n",
      form.grid.rowCount(), sorted - start, found - sorted, longestOfSort, longestOfFind);
}

void measure(controls::Desktop& desktop, std::int32_t rows) {
  constexpr int pages = 20;
  const std::size_t bytesBefore = tests::usedResources().bytes;
  const auto form = std::make_shared<GridForm>(desktop, rows);
  const double start = millisecondsNow();
  form->Show(false);
  desktop.repaint();
  const double painted = millisecondsNow();
  HWND const grid = windowOfGrid();
  for (int i = 0; i < pages; ++i) {
    SendMessageW(grid, WM_KEYDOWN, VK_NEXT, 0);
    desktop.repaint();
  }
  const double paged = millisecondsNow();
  const std::size_t bytes = tests::usedResources().bytes - bytesBefore;
  std::printf("%8d rows: shown in %.1f ms, a page down in %.2f ms (now row %d), %zu KB\n", rows,
              painted - start, (paged - painted) / pages, form->grid.currentRow(), bytes / 1024);
  measureTools(*form);
  form->Unload();
}

}  // namespace

}  // namespace kebu::bench

int main() {
  const kebu::windows::CommonControls commonControls(GetModuleHandleW(nullptr));
  kebu::windows::Win32Desktop desktop(GetModuleHandleW(nullptr), commonControls);
  kebu::bench::measure(desktop, 1000);  // once for what the first window of all costs
  kebu::bench::measure(desktop, 1000);
  kebu::bench::measure(desktop, 1000000);
}
