#include "workbench/windows/window_hands.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

#include "common/convert.h"
#include "controls/control.h"
#include "windows/support/text.h"
#include "workbench/host/shown_list.h"
#include "workbench/player/scenario.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/picture.h"
#include "workbench/windows/system_box.h"

namespace kebu::workbench {

using controls::GestureRefused;
using windows::Inspected;
using windows::Inspection;

namespace {

bool isPluginWindow(HWND window) {
  return WindowReader(window).find(Inspected::Control, "", {}).has_value();
}

bool isList(HWND window) {
  const auto found = WindowReader(window).find(Inspected::Control, "", {});
  return found && kindOf(*found) == "LookupList";
}

struct FrontSearch {
  const std::set<HWND>& others;
  HWND front = nullptr;
};

BOOL CALLBACK findFront(HWND window, LPARAM context) {
  auto& search = *reinterpret_cast<FrontSearch*>(context);
  const bool inReach = IsWindowVisible(window) && IsWindowEnabled(window);
  if (!inReach || search.others.contains(window)) return TRUE;
  if (!isSystemBox(window) && !isPluginWindow(window)) return TRUE;
  search.front = window;
  return FALSE;
}

/// The thread's windows come from the front to the back. `others` are the host's windows in which
/// the user does not work now.
HWND frontOf(DWORD thread, const std::set<HWND>& others) {
  FrontSearch search{others};
  EnumThreadWindows(thread, findFront, reinterpret_cast<LPARAM>(&search));
  return search.front;
}

bool isOutOfSight(const RECT& bounds) {
  return bounds.right <= bounds.left || bounds.bottom <= bounds.top;
}

/// What is seen of a part.
RECT seen(const Inspection& part) {
  RECT client{};
  RECT shown{};
  GetClientRect(part.window, &client);
  IntersectRect(&shown, &client, &part.bounds);
  return shown;
}

/// A look-up list on the screen.
class WindowList : public ShownList {
 public:
  WindowList(HWND window, WindowThread& thread)
      : window_(window), reader_(window), thread_(thread) {}

  std::string title() override { return textOf(self()); }
  std::vector<std::string> captions() override {
    std::vector<std::string> all;
    for (std::int32_t i = 0; i < self().columns; ++i) {
      all.push_back(textOf(part(Inspected::Column, 0, i)));
    }
    return all;
  }
  std::int32_t rowCount() override { return self().count; }
  std::string cellText(std::int32_t row, std::size_t column) override {
    return textOf(part(Inspected::Cell, row, static_cast<std::int32_t>(column)));
  }
  void choose(std::int32_t row) override {
    if (row < 1 || row > rowCount()) {
      throw GestureRefused("\"" + title() + "\" has no row " + std::to_string(row));
    }
    const HWND grid = part(Inspected::Row, row, 0).window;
    const std::int32_t from = std::max(self().current, 1);
    pressKey(grid, row > from ? VK_DOWN : VK_UP, std::abs(row - from));
    thread_.settle();
    if (self().current != row) clickOn(grid, part(Inspected::Row, row, 0).bounds);
    pressKey(grid, VK_RETURN);
  }

 private:
  Inspection self() const {
    return reader_.find(Inspected::Control, "", {}).value_or(Inspection{});
  }
  Inspection part(Inspected kind, std::int32_t row, std::int32_t column) const {
    return reader_.find(kind, "", {"", column, row}).value_or(Inspection{});
  }

  HWND window_;
  WindowReader reader_;
  WindowThread& thread_;
};

}  // namespace

HWND WindowHands::front() const {
  HWND window = frontOf(thread_.id(), others_);
  if (!window) throw StepError("no window is open");
  return window;
}

void WindowHands::settle() {
  for (;;) {
    thread_.settle();
    HWND window = frontOf(thread_.id(), others_);
    if (window && isSystemBox(window)) {
      keepNextPicture(window);
      pressSystemBox(window, user_.answer(readSystemBox(window)));
    } else if (window && isList(window)) {
      keepNextPicture(window);
      WindowList list(window, thread_);
      user_.chooseFrom(list);
      thread_.settle();
      if (frontOf(thread_.id(), others_) == window) pressKey(window, VK_ESCAPE);
    } else {
      return;
    }
  }
}

void WindowHands::atHost(std::function<void()> work) {
  const auto task = thread_.post(std::move(work));
  settle();
  if (task->done && task->error) std::rethrow_exception(task->error);
}

HWND WindowHands::focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  return GetGUIThreadInfo(thread_.id(), &info) ? info.hwndFocus : nullptr;
}

Inspection WindowHands::reachable(const std::string& name, const std::string& kind,
                                  const char* kindInWords) const {
  const Inspection found = reader().control(name);
  if (kindOf(found) != kind) throw StepError(name + " is not " + kindInWords);
  if (!found.visible) throw GestureRefused(nameOf(found) + " is not visible");
  if (!found.enabled) throw GestureRefused(nameOf(found) + " is disabled");
  return found;
}

Inspection WindowHands::changeable(const std::string& name, const std::string& kind,
                                   const char* kindInWords) const {
  const Inspection found = reachable(name, kind, kindInWords);
  if (isMarked(found, "locked")) throw GestureRefused(nameOf(found) + " is locked");
  return found;
}

Inspection WindowHands::item(const std::string& control, const std::string& key,
                             const char* itemInWords) const {
  const auto found = reader().find(Inspected::Item, control, {key, 0, 0});
  if (!found) throw GestureRefused(control + " has no " + itemInWords + " \"" + key + "\"");
  return *found;
}

// ---- the bars

void WindowHands::openPage(std::int32_t view) {
  const auto bar = reader().firstOfKind("SideBar");
  if (!bar) throw StepError("the window has no side bar");
  reachable(*bar, "SideBar", "a side bar");
  const Inspection link = item(*bar, std::to_string(view), "link to view");
  clickOn(link.window, link.bounds);
  settle();
}

void WindowHands::press(const std::string& bar, const std::string& button) {
  reachable(bar, "NavigatorBar", "a navigator bar");
  const Inspection found = item(bar, button, "button");
  if (!found.enabled) throw GestureRefused("\"" + button + "\" of " + bar + " is disabled");
  clickOn(found.window, found.bounds);
  settle();
}

void WindowHands::askChanges(const std::string& bar) {
  reachable(bar, "NavigatorBar", "a navigator bar");
  const auto button = reader().find(Inspected::Lookup, bar, {});
  if (!button) throw GestureRefused(bar + " does not show changes");
  if (!button->enabled) throw GestureRefused("\"Conferma\" of " + bar + " is disabled");
  clickOn(button->window, button->bounds);
  settle();
}

void WindowHands::clickButton(const std::string& button) {
  const Inspection found = changeable(button, "Button", "a button");
  clickOn(found.window, found.bounds);
  settle();
}

bool WindowHands::isButtonEnabled(const std::string& bar, const std::string& button) {
  const Inspection found = reader().control(bar);
  if (kindOf(found) != "NavigatorBar") throw StepError(bar + " is not a navigator bar");
  return item(bar, button, "button").enabled && found.enabled;
}

// ---- the fields

void WindowHands::type(const std::string& box, const std::string& text) {
  const Inspection found = reachable(box, "EditBox", "an edit box");
  if (isMarked(found, "read-only")) throw GestureRefused(nameOf(found) + " cannot be edited");
  clickAt(found.window, {3, 3});
  settle();
  replaceText(found.window, windows::toWide(text));
  pressKey(found.window, VK_TAB);
  settle();
}

void WindowHands::choose(const std::string& combo, const std::string& code) {
  const Inspection found = changeable(combo, "ComboBox", "a combo box");
  const Inspection entry = item(combo, code, "entry");
  clickOn(found.window, found.bounds);
  settle();
  // The click may have put another window in its place.
  takeFromList(reader().control(combo).window, entry.index);
  settle();
}

void WindowHands::tick(const std::string& check, bool on) {
  const Inspection found = changeable(check, "CheckBox", "a check box");
  if (isMarked(found, "chosen") == on) return;
  clickAt(found.window, {5, found.bounds.bottom / 2});
  settle();
}

void WindowHands::lookup(const std::string& box) {
  const Inspection found = reachable(box, "EditBox", "an edit box");
  const auto button = reader().find(Inspected::Lookup, box, {});
  if (!button) throw GestureRefused(nameOf(found) + " has no look-up");
  if (!button->enabled) throw GestureRefused(nameOf(found) + " cannot be edited");
  clickOn(button->window, button->bounds);
  settle();
}

// ---- the grids

void WindowHands::bringRowIntoSight(const Inspection& grid, std::int32_t row) {
  const auto isSeen = [&] {
    const auto found = reader().find(Inspected::Row, nameOf(grid), {"", 0, row});
    return found && !isOutOfSight(seen(*found));
  };
  if (isSeen()) return;
  PostMessageW(grid.window, WM_VSCROLL, SB_TOP, 0);
  settle();
  for (std::int32_t page = 0; page <= grid.count && !isSeen(); ++page) {
    PostMessageW(grid.window, WM_VSCROLL, SB_PAGEDOWN, 0);
    settle();
  }
}

Inspection WindowHands::cellInSight(const std::string& name, std::int32_t row,
                                    const std::string& field) {
  const Inspection grid = reachable(name, "QueryGrid", "a grid");
  if (row < 1 || row > grid.count) {
    throw GestureRefused(nameOf(grid) + " has no row " + std::to_string(row));
  }
  const auto find = [&] { return reader().find(Inspected::Cell, name, {field, 0, row}); };
  if (!find()) throw GestureRefused(nameOf(grid) + " has no column " + field);
  bringRowIntoSight(grid, row);
  if (isOutOfSight(seen(*find()))) {
    PostMessageW(grid.window, WM_HSCROLL, SB_LEFT, 0);
    settle();
  }
  constexpr int mostSteps = 200;
  for (int step = 0; step < mostSteps && isOutOfSight(seen(*find())); ++step) {
    PostMessageW(grid.window, WM_HSCROLL, SB_LINERIGHT, 0);
    settle();
  }
  Inspection cell = *find();
  cell.bounds = seen(cell);
  if (isOutOfSight(cell.bounds)) throw StepError(name + " does not show " + field);
  return cell;
}

void WindowHands::goToCell(const std::string& grid, std::int32_t row, const std::string& field) {
  const Inspection cell = cellInSight(grid, row, field);
  clickOn(cell.window, cell.bounds);
  settle();
}

void WindowHands::selectRow(const std::string& name, std::int32_t row) {
  const Inspection grid = reachable(name, "QueryGrid", "a grid");
  if (row < 1 || row > grid.count) {
    throw GestureRefused(nameOf(grid) + " has no row " + std::to_string(row));
  }
  if (grid.current == row) return;
  // On a column that a click does nothing to.
  for (std::int32_t i = 0; i < grid.columns; ++i) {
    const Inspection column =
        reader().find(Inspected::Column, name, {"", i, 0}).value_or(Inspection{});
    if (reader().find(Inspected::TickAll, name, {nameOf(column), 0, 0})) continue;
    goToCell(name, row, nameOf(column));
    return;
  }
  throw StepError(name + " has no column to click on");
}

void WindowHands::tickCell(const std::string& grid, std::int32_t row, const std::string& field) {
  changeable(grid, "QueryGrid", "a grid");
  if (!reader().find(Inspected::TickAll, grid, {field, 0, 0})) {
    cellInSight(grid, row, field);
    throw GestureRefused(field + " of " + grid + " is not a check column");
  }
  goToCell(grid, row, field);
}

void WindowHands::tickAll(const std::string& grid, const std::string& field, bool on) {
  const Inspection found = changeable(grid, "QueryGrid", "a grid");
  if (found.count > 0) cellInSight(grid, std::max(found.current, 1), field);
  const auto box = reader().find(Inspected::TickAll, grid, {field, 0, 0});
  if (!box) throw GestureRefused(field + " of " + grid + " is not a check column");
  if (!IsRectEmpty(&box->bounds) && isMarked(*box, "chosen") != on) {
    clickOn(box->window, box->bounds);
  } else if (found.count > 0) {
    // The box tells what it was set to last. The keys set the cells either way.
    clickAt(found.window, {1, 1});
    pressKey(found.window, VK_HOME);
    pressKey(found.window, VK_RIGHT, box->index);
    holdControl(!on, true);
    pressKey(found.window, 'A');
    holdControl(!on, false);
  }
  settle();
}

void WindowHands::edit(const std::string& grid, std::int32_t row, const std::string& field,
                       const Value& value) {
  changeable(grid, "QueryGrid", "a grid");
  const bool isLocked = isMarked(cellInSight(grid, row, field), "locked");
  goToCell(grid, row, field);
  const HWND window = reader().control(grid).window;
  if (value.isNull()) {
    pressKey(window, VK_DELETE);
    settle();
    return;
  }
  if (focus() == window) {
    pressKey(window, VK_F2);
    settle();
  }
  const HWND editor = focus();
  if (!editor || GetParent(editor) != window) {
    if (isLocked) return;  // there is no more that one could do
    throw GestureRefused(field + " of " + grid + " is not edited by typing");
  }
  if (classOf(editor) == L"ComboBox") {
    const Inspection list = reader().find(Inspected::Column, grid, {field, 0, 0}).value();
    std::int32_t entry = 0;
    for (; entry < list.count; ++entry) {
      const auto choice = reader().find(Inspected::Choice, grid, {field, 0, entry + 1});
      if (choice && nameOf(*choice) == toText(value)) break;
    }
    if (entry == list.count) {
      throw GestureRefused(field + " of " + grid + " has no entry \"" + toText(value) + "\"");
    }
    takeFromList(editor, entry);
  } else {
    replaceText(editor, windows::toWide(toText(value)));
    pressKey(editor, VK_RETURN);
  }
  settle();
}

void WindowHands::pressWithControl(HWND window, WPARAM key, bool shift) {
  holdControl(shift, true);
  pressKey(window, key);
  thread_.settle();
  holdControl(shift, false);
  thread_.settle();
}

void WindowHands::sort(const std::string& name, const std::string& field) {
  cellInSight(name, 1, field);
  const Inspection head = reader().find(Inspected::Column, name, {field, 0, 0}).value();
  constexpr int besideEdge = 8;
  clickAt(head.window, {head.bounds.right - besideEdge, head.bounds.bottom / 2});
  settle();
}

void WindowHands::find(const std::string& name, const std::string& text, const std::string& field) {
  const HWND grid = reachable(name, "QueryGrid", "a grid").window;
  if (!field.empty()) goToCell(name, std::max(reader().control(name).current, 1), field);
  clickAt(grid, {1, 1});
  settle();
  pressWithControl(grid, 'F', !field.empty());
  replaceText(focus(), windows::toWide(text));
  settle();
}

void WindowHands::findNext(const std::string& name, bool backwards) {
  pressWithControl(reachable(name, "QueryGrid", "a grid").window, 'G', backwards);
  settle();
}

std::string WindowHands::copy(const std::string& name, CopiedPart part) {
  const HWND grid = reachable(name, "QueryGrid", "a grid").window;
  clickAt(grid, {1, 1});
  pressKey(grid, VK_HOME);
  settle();
  switch (part) {
    case CopiedPart::Cell:
      pressWithControl(grid, 'C', false);
      break;
    case CopiedPart::Row:
      pressWithControl(grid, 'C', true);
      break;
    case CopiedPart::All:
      pressWithControl(grid, 'T', true);
      break;
    case CopiedPart::Csv:
      return savedBy([&] { pressWithControl(grid, 'E', true); });
  }
  settle();
  return clipboardText();
}

std::string WindowHands::copySheet(const std::string& sheet, bool asFile) {
  const HWND window = reachable(sheet, "Sheet", "a sheet").window;
  if (asFile) return savedBy([&] { pressWithControl(window, 'S', false); });
  pressWithControl(window, 'C', false);
  settle();
  return clipboardText();
}

std::string WindowHands::savedBy(const std::function<void()>& gesture) {
  const std::filesystem::path file = std::filesystem::temp_directory_path() / "workbench.file";
  std::filesystem::remove(file);
  gesture();
  if (!takeFileDialog(frontOf(thread_.id(), others_), file.wstring())) {
    throw StepError("no file dialog was opened");
  }
  settle();
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw StepError("no file was written");
  const std::string text{std::istreambuf_iterator<char>(stream), {}};
  stream.close();
  std::filesystem::remove(file);
  return text;
}

void WindowHands::lookupCell(const std::string& grid, std::int32_t row, const std::string& field) {
  changeable(grid, "QueryGrid", "a grid");
  goToCell(grid, row, field);
  pressKey(reader().control(grid).window, VK_F4);
  settle();
}

void WindowHands::holdControl(bool shift, bool down) {
  thread_.post([shift, down] {
    BYTE state[256] = {};
    GetKeyboardState(state);
    const BYTE key = down ? 0x80 : 0;
    state[VK_CONTROL] = key;
    if (shift) state[VK_SHIFT] = key;
    SetKeyboardState(state);
  });
}

void WindowHands::details(const std::string& grid, std::int32_t row) {
  selectRow(grid, row);
  // Not by a click, which would do something to the cell.
  const HWND window = reader().control(grid).window;
  thread_.post([window] { SetFocus(window); });
  settle();
  constexpr LPARAM withAlt = 1 | (KF_ALTDOWN << 16);
  PostMessageW(window, WM_SYSKEYDOWN, VK_RETURN, withAlt);
  settle();
}

void WindowHands::chooseFromRowMenu(const std::string& grid, std::int32_t row,
                                    const std::string& entry) {
  selectRow(grid, row);
  const HWND window = reader().control(grid).window;
  PostMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), MAKELPARAM(-1, -1));
  settle();
  const auto index = entryOfOpenMenu(windows::toWide(entry));
  if (!index) {
    PostMessageW(window, WM_CANCELMODE, 0, 0);
    settle();
    throw GestureRefused("the menu of " + grid + " offers no \"" + entry + "\"");
  }
  pressKey(window, VK_DOWN, *index + 1);
  pressKey(window, VK_RETURN);
  settle();
}

// ---- the window

std::vector<ItemView> WindowHands::notices() {
  const auto list = reader().firstOfKind("NoticeList");
  return list ? reader().look(*list, {}).items : std::vector<ItemView>();
}

void WindowHands::pressNotice(const std::string& text) {
  const auto index = static_cast<std::int32_t>(noticeWith(text, notices()));
  const std::string list = reader().firstOfKind("NoticeList").value();
  const Inspection found = reader().find(Inspected::Item, list, {"", index, 0}).value();
  if (nameOf(found).empty()) throw GestureRefused("the notice has no button");
  clickOn(found.window, found.bounds);
  settle();
}

void WindowHands::pressKeys(const std::vector<std::string>& keys) {
  const HWND focused = focus();
  const HWND target = focused ? focused : front();
  constexpr std::string_view control = "Ctrl+";
  const auto functionKey = [](std::string_view key) {
    return VK_F1 + static_cast<WPARAM>(std::stoi(std::string(key.substr(1)))) - 1;
  };
  for (const std::string_view key : keys) {
    if (key == "Enter") {
      pressKey(target, VK_RETURN);
    } else if (key == "Esc") {
      pressKey(target, VK_ESCAPE);
    } else if (key.starts_with(control)) {
      pressWithControl(target, functionKey(key.substr(control.size())), false);
    } else {
      pressKey(target, functionKey(key));
    }
  }
  settle();
}

void WindowHands::interrupt() {
  pressKey(front(), VK_ESCAPE);
}

void WindowHands::refresh() {
  HWND focused = focus();
  pressKey(focused ? focused : front(), VK_F5);
  settle();
}

std::string WindowHands::tickState(const std::string& grid, const std::string& field) {
  const auto box = reader().find(Inspected::TickAll, grid, {field, 0, 0});
  if (!box) throw StepError(field + " of " + grid + " is not a check column");
  if (isMarked(*box, "chosen")) return "all";
  return isMarked(*box, "some") ? "some" : "none";
}

bool WindowHands::isFocused(const std::string& control) {
  return reader().control(control).window == focus();
}

void WindowHands::activateWindow() {
  HWND window = front();
  // Another window of the program comes to the front and goes again.
  thread_.post([window] {
    HWND other = CreateWindowExW(WS_EX_TOOLWINDOW, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 1,
                                 1, nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(other);
    SetActiveWindow(window);
    DestroyWindow(other);
  });
  settle();
}

void WindowHands::windowOpened(std::int32_t number) {
  for (const auto& [other, window] : windows_) {
    if (other != number) others_.insert(window);
  }
  windows_[number] = frontOf(thread_.id(), others_);
}

void WindowHands::toFront(std::int32_t number) {
  others_.clear();
  for (const auto& [other, window] : windows_) {
    if (other != number) others_.insert(window);
  }
  thread_.post([window = windows_.at(number)] { SetActiveWindow(window); });
  settle();
}

void WindowHands::takePicture(const std::string& name) {
  keepPicture(front(), name);
}

void WindowHands::keepPicture(HWND window, const std::string& name) {
  if (!pictures_) return;
  const std::filesystem::path folder(*pictures_);
  savePicture(window, (folder / (name + ".png")).wstring());
}

void WindowHands::keepNextPicture(HWND window) {
  if (nextPicture_.empty()) return;
  keepPicture(window, std::exchange(nextPicture_, {}));
}

ControlView WindowHands::look(const std::string& control, const RowRange& rows) {
  return reader().look(control, rows);
}

std::string WindowHands::value(const std::string& control) {
  return reader().value(control);
}

std::string WindowHands::cellText(const std::string& grid, std::int32_t row,
                                  const std::string& field) {
  const Inspection found = reader().control(grid);
  if (kindOf(found) != "QueryGrid") throw StepError(grid + " is not a grid");
  if (row < 1 || row > found.count) {
    throw StepError(grid + " has no row " + std::to_string(row));
  }
  const auto cell = reader().find(Inspected::Cell, grid, {field, 0, row});
  if (cell) return textOf(*cell);
  // The field of a row's state is not shown in a column, but as a mark.
  const auto line = reader().find(Inspected::Row, grid, {"", 0, row});
  if (line && equalsIgnoringCase(nameOf(*line), field)) return windows::toUtf8(line->marks);
  throw StepError(grid + " has no column " + field);
}

}  // namespace kebu::workbench
