#include "tests/windows/dll_entry_window.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cwchar>

#include "common/convert.h"
#include "windows/support/text.h"
#include "windows/views/window/window_text.h"
#include "workbench/engine/execution/session.h"
#include "workbench/windows/gestures.h"

namespace kebu::tests {

using windows::Inspected;
using windows::Inspection;
using workbench::clickOn;
using workbench::nameOf;
using workbench::pressKey;
using workbench::textOf;

namespace {

std::size_t heardBeeps = 0;

BOOL WINAPI hearBeep(UINT /*kind*/) {
  ++heardBeeps;
  return TRUE;
}

}  // namespace

DllEntryWindow::DllEntryWindow(DllHost& host)
    : host_(host), beeps_(GetModuleHandleW(L"KEBU_ANAGKELMORIA.dll"), "MessageBeep", hearBeep) {
  heardBeeps = 0;
  // Out of sight nothing has to be painted.
  SetWindowPos(shownForm(), nullptr, -4000, 0, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  pumpWaiting();
  host_.user().answerTo = [](const workbench::ShownMessage& box) {
    if (workbench::offers(box.style, msgbox::no)) return msgbox::no;
    return workbench::offers(box.style, msgbox::abort) ? msgbox::abort
                                                       : workbench::wayOut(box.style);
  };
}

std::size_t DllEntryWindow::told() const {
  return host_.boxes().size() + heardBeeps;
}

void DllEntryWindow::openPage(std::int32_t view) {
  tests::openPage(shownForm(), std::to_string(view));
}

void DllEntryWindow::refresh() {
  SetFocus(reader().control("SBAR_MAIN").window);
  pressKey(GetFocus(), VK_F5);
  pumpWaiting();
}

std::vector<std::string> DllEntryWindow::boxes() {
  std::vector<std::string> names;
  for (std::int32_t i = 0;; ++i) {
    const auto item = reader().find(Inspected::Item, "", {"", i, 0});
    if (!item) return names;
    const std::string name = nameOf(*item);
    const Inspection found = reader().control(name);
    const bool isReached = workbench::kindOf(found) == "EditBox" && found.visible &&
                           found.enabled && !workbench::isMarked(found, "read-only");
    if (isReached) names.push_back(name);
  }
}

std::string DllEntryWindow::text(const std::string& box) {
  return reader().value(box);
}

std::string DllEntryWindow::paste(HWND edit, const std::string& text) {
  std::wstring pasted = windows::toWide(text);
  pasted.resize(std::wcslen(pasted.c_str()));
  // A box of one line takes the first one.
  const bool isOneLine = !(GetWindowLongPtrW(edit, GWL_STYLE) & ES_MULTILINE);
  if (isOneLine) pasted.resize(std::min(pasted.find_first_of(L"\r\n"), pasted.size()));
  const std::size_t beeps = heardBeeps;
  SendMessageW(edit, EM_SETSEL, 0, -1);
  SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(pasted.c_str()));
  const std::wstring entered = windows::windowText(edit);
  const bool isCut = entered.size() < pasted.size();
  EXPECT_TRUE(!isCut || heardBeeps > beeps) << "a part of the text is lost in silence";
  return windows::toUtf8(entered);
}

EntryWindow::Outcome DllEntryWindow::type(const std::string& box, const std::string& text) {
  const std::size_t before = told();
  HWND const edit = reader().control(box).window;
  SetFocus(edit);
  const std::string entered = paste(edit, text);
  SetFocus(nullptr);
  return {entered, told() > before};
}

bool DllEntryWindow::choose(const std::string& combo, const std::string& code) {
  const auto entry = reader().find(Inspected::Item, combo, {code, 0, 0});
  if (!entry) return false;
  SetFocus(reader().control(combo).window);
  // The combo box itself may be made only now.
  workbench::takeFromList(GetFocus(), entry->index);
  pumpWaiting();
  return true;
}

bool DllEntryWindow::press(const std::string& bar, const std::string& button) {
  const std::size_t before = told();
  const auto found = reader().find(Inspected::Item, bar, {button, 0, 0});
  if (!found || !found->enabled || !reader().control(bar).enabled) return false;
  clickOn(found->window, found->bounds);
  pumpWaiting();
  return told() > before;
}

bool DllEntryWindow::click(const std::string& button) {
  const std::size_t before = told();
  const Inspection found = reader().control(button);
  clickOn(found.window, found.bounds);
  pumpWaiting();
  return told() > before;
}

void DllEntryWindow::goToCell(const std::string& grid, std::int32_t row, const std::string& field) {
  const Inspection shown = reader().control(grid);
  const auto column = reader().find(Inspected::Column, grid, {field, 0, 0}).value();
  SetFocus(shown.window);
  const auto moveBy = [&](std::int32_t steps, WPARAM back, WPARAM on) {
    pressKey(shown.window, steps < 0 ? back : on, std::abs(steps));
  };
  moveBy(row - std::max(shown.current, 1), VK_UP, VK_DOWN);
  moveBy(column.index - shown.index, VK_LEFT, VK_RIGHT);
  pumpWaiting();
}

EntryWindow::Outcome DllEntryWindow::edit(const std::string& grid, std::int32_t row,
                                          const std::string& field, const std::string& text) {
  const std::size_t before = told();
  goToCell(grid, row, field);
  HWND const window = GetFocus();
  pressKey(window, VK_F2);
  pumpWaiting();
  HWND const editor = GetFocus();
  if (editor == window || workbench::classOf(editor) == L"ComboBox") {
    pressKey(editor, VK_ESCAPE);  // nothing can be typed there
    pumpWaiting();
    return {text, true};
  }
  const std::string entered = paste(editor, text);
  pressKey(editor, VK_RETURN);
  pumpWaiting();
  return {entered, told() > before};
}

void DllEntryWindow::chooseInCell(const std::string& grid, std::int32_t row,
                                  const std::string& field, std::int16_t value) {
  goToCell(grid, row, field);
  const std::int32_t count = reader().find(Inspected::Column, grid, {field, 0, 0}).value().count;
  std::int32_t entry = 0;
  while (entry < count &&
         nameOf(reader().find(Inspected::Choice, grid, {field, 0, entry + 1}).value()) !=
             std::to_string(value)) {
    ++entry;
  }
  pressKey(GetFocus(), VK_F2);
  pumpWaiting();
  workbench::takeFromList(GetFocus(), entry);
  pumpWaiting();
}

void DllEntryWindow::tickCell(const std::string& grid, std::int32_t row, const std::string& field) {
  goToCell(grid, row, field);
  pressKey(GetFocus(), VK_SPACE);
  pumpWaiting();
}

std::string DllEntryWindow::cell(const std::string& grid, std::int32_t row,
                                 const std::string& field) {
  const std::string shown = textOf(reader().find(Inspected::Cell, grid, {field, 0, row}).value());
  for (std::int32_t entry = 1;; ++entry) {
    const auto choice = reader().find(Inspected::Choice, grid, {field, 0, entry});
    if (!choice) return shown;
    if (textOf(*choice) == shown) return nameOf(*choice);
  }
}

std::string DllEntryWindow::stored(const std::string& query) {
  engine::Session session(host_.database());
  return toDisplay(session.execute(query).at(0).rows.at(0).at(0));
}

}  // namespace kebu::tests
