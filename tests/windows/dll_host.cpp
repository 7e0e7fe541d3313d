#include "tests/windows/dll_host.h"

#include <iostream>

#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/gestures.h"
#include "workbench/windows/window_reader.h"

namespace kebu::tests {

namespace {

BOOL CALLBACK findForm(HWND window, LPARAM context) {
  const workbench::WindowReader reader(window);
  if (!IsWindowVisible(window) || !reader.find(windows::Inspected::Control, "", {})) return TRUE;
  *reinterpret_cast<HWND*>(context) = window;
  return FALSE;
}

std::function<void()>& waitingAction() {
  static thread_local std::function<void()> action;
  return action;
}

void CALLBACK runWaitingAction(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  waitingAction()();
}

bool answersAnotherThread(HWND window) {
  // On its own thread the window waits for the statement.
  if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId()) return false;
  constexpr UINT patience = 60000;
  return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, patience, nullptr) != 0;
}

}  // namespace

HWND shownForm() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), findForm, reinterpret_cast<LPARAM>(&found));
  return found;
}

void pumpWaiting() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void openPage(HWND form, const std::string& view) {
  const auto link =
      workbench::WindowReader(form).find(windows::Inspected::Item, "SBAR_MAIN", {view, 0, 0});
  if (link) workbench::clickOn(link->window, link->bounds);
  pumpWaiting();
}

void chooseRow(const std::string& combo, int row) {
  const workbench::WindowReader reader(shownForm());
  SetFocus(reader.control(combo).window);
  // The focus may have put another window in its place.
  workbench::takeFromList(reader.control(combo).window, row);
}

void typeInto(const std::string& box, const std::wstring& text) {
  HWND window = workbench::WindowReader(shownForm()).control(box).window;
  workbench::clickAt(window, {3, 3});
  pumpWaiting();
  workbench::replaceText(window, text);
  workbench::pressKey(window, VK_TAB);
  pumpWaiting();
}

HWND newHostWindow(HWND parent) {
  const DWORD kind = parent ? WS_CHILD : WS_OVERLAPPEDWINDOW;
  return CreateWindowExW(0, L"STATIC", L"ERP", kind | WS_VISIBLE, 0, 0, 1200, 800, parent, nullptr,
                         nullptr, nullptr);
}

void soon(std::function<void()> action) {
  waitingAction() = std::move(action);
  constexpr UINT delay = 300;
  SetTimer(nullptr, 0, delay, runWaitingAction);
}

void SlowRules::before(const std::string& text, bool /*edit*/) {
  if (text.find("##tempPrezzo") == std::string::npos) return;
  ++(answersAnotherThread(window) ? answered : unanswered);
}

std::int32_t DefaultUser::answer(const workbench::ShownMessage& box) {
  boxes.push_back(box.text);
  if (answerTo) return answerTo(box);
  std::cout << "    box: " << box.text << std::endl;
  return workbench::defaultButton(box.style);
}

DllHost::DllHost(const workbench::PluginLibrary& library, workbench::StatementObserver* observer)
    : company_(workbench::embeddedCompany(database_, observer)),
      classes_(objects_, company_.forPlugin),
      stand_(
          [&library] { return workbench::newPlugin(library); },
          {user_, company_, 1, {}, [this](const std::string& told) { journal.push_back(told); }}) {}

void DllHost::setParent(HWND window) {
  set("hwndParent", std::to_string(static_cast<LONG>(reinterpret_cast<LONG_PTR>(window))));
}

void DllHost::set(const char* property, const std::string& value) {
  stand_.set(*workbench::findHostProperty(property), value);
}

}  // namespace kebu::tests
