// The part of GridControl that sorts, finds, copies and exports.

#include <algorithm>

#include "windows/support/text.h"
#include "windows/views/grid/column_ruler.h"
#include "windows/views/grid/grid_control.h"
#include "windows/views/window/context_menu.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/text_out.h"

namespace kebu::windows {

namespace {

constexpr DWORD longestSlice = 60;  // milliseconds

}  // namespace

std::string GridControl::headOf(std::size_t column) const {
  const auto& columns = source_.columns();
  const bool isOpenCode = columns[column].caption.empty() && column + 1 < columns.size();
  return columns[isOpenCode ? column + 1 : column].caption;
}

std::pair<std::int32_t, std::int32_t> GridControl::chosenRows() const {
  const std::int32_t row = source_.currentRow();
  if (!anchor_) return {row, row};
  return {std::min(row, anchor_), std::max(row, anchor_)};
}

controls::Menu GridControl::menu() {
  using controls::MenuEntry;
  if (source_.columns().empty()) return {};
  controls::GridTools& tools = source_.tools();
  const auto say = [&](const char* text) { return tools.translated(text); };
  const std::string head = " \"" + headOf(column_) + '"';
  const auto [first, last] = chosenRows();
  const bool severalChosen = last > first;
  const auto withRows = [&](std::function<void()> act) {
    return source_.rowCount() > 0 ? std::move(act) : std::function<void()>();
  };
  const auto withRow = [&](std::function<void()> act) {
    return first > 0 ? std::move(act) : std::function<void()>();
  };
  const auto withSought = [&](std::function<void()> act) {
    return tools.soughtText().empty() ? std::function<void()>() : std::move(act);
  };
  const auto copyChosen = [this, first = first, last = last] { copyRows(first, last); };
  controls::Menu menu = source_.rowMenu();
  const bool hasRowMenu = !menu.empty();
  if (source_.hasFindBox()) {
    menu.push_back({.caption = say("Cerca..."),
                    .key = {'F'},
                    .act = withRows([this] { openFind({}, 0); }),
                    .beginsGroup = hasRowMenu});
    menu.push_back({say("Cerca nella colonna") + head + "...", {'F', true}, withRows([this] {
                      openFind(column_, 0);
                    })});
    menu.push_back({say("Trova successivo"), {'G'}, withSought([this] {
                      if (commit()) attempt([&] { source_.tools().findNext(); });
                    })});
    menu.push_back({say("Trova precedente"), {'G', true}, withSought([this] {
                      if (commit()) attempt([&] { source_.tools().findPrevious(); });
                    })});
  }
  menu.push_back({.caption = say("Ordina per") + head,
                  .key = {'O', true},
                  .act = [this] { sortBy(column_); },
                  .beginsGroup = true});
  menu.push_back({.caption = say("Adatta la larghezza della colonna"),
                  .key = {'L', true},
                  .act = [this] { fitColumn(column_); }});
  menu.push_back(
      {.caption = severalChosen ? say("Copia le righe scelte") : say("Copia la cella"),
       .key = {'C'},
       .act = severalChosen ? std::function<void()>(copyChosen) : withRow([this] { copyCell(); }),
       .beginsGroup = true});
  menu.push_back({say("Copia la riga con le intestazioni"), {'C', true}, withRow(copyChosen)});
  menu.push_back({say("Copia tutte le righe"), {'T', true}, withRows([this] {
                    copyRows(1, source_.rowCount());
                  })});
  menu.push_back({say("Esporta in CSV..."), {'E', true}, withRows([this] { exportRows(); })});
  return menu;
}

void GridControl::showMenu(POINT screen) {
  if (!commit()) return;
  if (screen.x == -1 && screen.y == -1) {  // by the keyboard
    const RECT cell =
        source_.columns().empty() ? RECT{} : cellBounds(source_.currentRow(), column_);
    screen = {cell.left, cell.bottom};
    ClientToScreen(handle(), &screen);
  }
  const controls::Menu shown = menu();
  guarded([&] {
    windows::showMenu(handle(), screen, shown,
                      [this](const std::string& text) { return source_.tools().translated(text); });
  });
}

// ---- long work

void GridControl::attempt(const std::function<void()>& work) {
  try {
    work();
  } catch (const RuntimeError& error) {
    source_.tell(source_.tools().translated("Operazione non riuscita: ") + error.description());
  }
  invalidate();
}

void GridControl::workOn() {
  // An edited cell keeps its place until it is stored.
  if (editor_.isOpen()) return;
  controls::GridTools& tools = source_.tools();
  const DWORD start = GetTickCount();
  attempt([&] {
    while (tools.isBusy() && GetTickCount() - start < longestSlice) tools.work();
  });
  if (!tools.isBusy()) KillTimer(handle(), workTimer);
}

std::wstring GridControl::stopCaption() const {
  controls::GridTools& tools = source_.tools();
  return tools.isBusy() ? toWide(tools.translated("Interrompi (Esc)")) : std::wstring();
}

bool GridControl::isOnStopButton(POINT point) const {
  const std::wstring caption = stopCaption();
  if (caption.empty()) return false;
  const RECT button = foot_.stopBounds(clientArea(), caption);
  return PtInRect(&button, point) != 0;
}

void GridControl::stopWork() {
  source_.tools().cancel();
  invalidate();
}

void GridControl::sortBy(std::size_t column) {
  if (!commit()) return;
  anchor_ = 0;
  attempt([&] { source_.tools().sortBy(column); });
}

// ---- finding

void GridControl::openFind(std::optional<std::size_t> column, wchar_t typed) {
  if (!source_.hasFindBox() || !commit()) return;
  soughtIn_ = column;
  std::string prompt = source_.tools().translated("Cerca");
  if (column) prompt += " (" + headOf(*column) + ')';
  const std::wstring start = typed ? std::wstring(1, typed) : std::wstring();
  foot_.open(handle(), toWide(prompt), start);
  invalidate();
}

void GridControl::closeFind() {
  foot_.close();
  SetFocus(handle());
  guarded([&] { source_.tools().find("", std::nullopt); });
  invalidate();
}

std::function<void()> GridControl::findBoxAction(const Key& key) {
  if (key.isPlain(VK_ESCAPE)) return [this] { closeFind(); };
  if (!foot_.owns(GetFocus())) return {};
  if (key.code == VK_RETURN && !key.control) {
    return [this, back = key.shift] {
      attempt([&] {
        if (back) {
          source_.tools().findPrevious();
        } else {
          source_.tools().findNext();
        }
      });
    };
  }
  const bool walks =
      key.code == VK_UP || key.code == VK_DOWN || key.code == VK_PRIOR || key.code == VK_NEXT;
  if (walks && !key.control) return [this, code = key.code] { moveBy(code, false); };
  return {};
}

// ---- copying and exporting

void GridControl::copyCell() {
  const std::int32_t row = source_.currentRow();
  attempt([&] {
    if (!copyToClipboard(handle(), source_.tools().copiedCell(row, column_))) MessageBeep(MB_OK);
  });
}

void GridControl::copyRows(std::int32_t first, std::int32_t last) {
  if (!commit()) return;
  attempt([&] {
    // The text may be complete only when this window is gone.
    source_.tools().copyRows(first, last, [grid = handle()](const std::string& text) {
      if (!copyToClipboard(grid, text)) MessageBeep(MB_OK);
    });
  });
}

void GridControl::exportRows() {
  if (!commit()) return;
  const auto path = askForFile(handle(), csvFile, toWide(source_.title()));
  if (!path) return;
  attempt([&] {
    const auto file = std::make_shared<FileInTheMaking>(*path);
    source_.tools().exportRows([file](std::string_view piece) { file->write(piece); },
                               [file](bool complete) {
                                 if (complete) file->complete();
                               });
  });
}

// ---- columns

void GridControl::fitColumn(std::size_t column) {
  const ColumnRuler ruler(*theme_, source_);
  layout::GridGeometry& columns = geometry();
  columns.fit(column, ruler.fittingWidth(column, columns.topRow(), columns.bottomRow()));
  keepWidth(column);
  updateScrollBars();
  invalidate();
}

void GridControl::keepWidth(std::size_t column) {
  const int width = geometry().userWidth(column);
  if (width > 0 && source_.tools().width(column) != width) source_.tools().setWidth(column, width);
}

std::wstring GridControl::tipAt(POINT point) {
  const layout::GridHit hit = geometry().hitTest(point.x, point.y);
  if (hit.row > 0 && point.x < geometry_.gutter()) {
    Inspection row;
    row.part = Inspected::Row;
    row.row = hit.row;
    Describable* const described = source_.description();
    return described && described->inspect(row) ? row.description : L"";
  }
  if (hit.row < 0 || hit.column < 0) return {};
  const auto column = static_cast<std::size_t>(hit.column);
  const bool isCheck = source_.columns()[column].kind == controls::ColumnKind::Check;
  if (isCheck && hit.row > 0) return {};
  const std::string text = hit.row == 0 ? headOf(column) : source_.cellText(hit.row, column);
  const TextRuler ruler(hit.row == 0 ? theme_->strong() : theme_->font());
  const int room = geometry_.columnWidth(column) - theme_->px(14);
  return ruler.widthOf(text) > room ? toWide(text) : std::wstring();
}

}  // namespace kebu::windows
