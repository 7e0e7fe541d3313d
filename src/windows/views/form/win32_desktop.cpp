#include "windows/views/form/win32_desktop.h"

#include "controls/form.h"
#include "controls/mdi_container.h"
#include "windows/views/form/form_window.h"
#include "windows/views/form/lookup_window.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

namespace {

struct Search {
  HWND except;
  std::vector<HWND> found;
};

BOOL CALLBACK collectOthers(HWND window, LPARAM context) {
  auto& search = *reinterpret_cast<Search*>(context);
  const bool isOpen = IsWindowVisible(window) && IsWindowEnabled(window);
  if (window != search.except && isOpen) search.found.push_back(window);
  return TRUE;
}

}  // namespace

struct Win32Desktop::Shown {
  std::unique_ptr<FormWindow> window;
  std::vector<HWND> disabled;  ///< while it is modal
};

Win32Desktop::Win32Desktop(HINSTANCE module) : module_(module), commonControls_(module) {}

Win32Desktop::~Win32Desktop() {
  shown_.clear();
  unregisterWindowClasses(module_);
}

HWND Win32Desktop::ownerFor(const controls::Form* form) const {
  if (form) {
    for (const controls::Control* control : form->controls()) {
      const auto* container = controls::as<controls::MdiContainer>(*control);
      if (!container || container->parentWindow() == 0) continue;
      // A handle has 32 significant bits on every Windows.
      auto* const given = reinterpret_cast<HWND>(static_cast<LONG_PTR>(container->parentWindow()));
      if (IsWindow(given)) return GetAncestor(given, GA_ROOT);
    }
  }
  HWND active = GetActiveWindow();
  if (active) return GetAncestor(active, GA_ROOT);
  return shown_.empty() ? nullptr : shown_.begin()->second->window->handle();
}

void Win32Desktop::show(controls::Form& form) {
  const CommonControls::Scope scope(commonControls_);
  auto at = shown_.find(&form);
  if (at == shown_.end()) {
    auto shown = std::make_unique<Shown>();
    shown->window = std::make_unique<FormWindow>(module_, form, ownerFor(&form));
    at = shown_.emplace(&form, std::move(shown)).first;
  }
  at->second->window->show();
}

void Win32Desktop::hide(controls::Form& form) {
  auto node = shown_.extract(&form);
  if (node.empty()) return;
  // Before the window is destroyed, so that the window below comes to the front and not another
  // program's.
  enable(node.mapped()->disabled);
}

void Win32Desktop::runModal(controls::Form& form) {
  const auto at = shown_.find(&form);
  if (at == shown_.end()) return;
  const std::shared_ptr<controls::Form> held = form.weak_from_this().lock();
  at->second->window->setModal(true);
  at->second->disabled = disableOthers(at->second->window->handle());
  pump([&] { return shown_.count(&form) == 0; });
}

void Win32Desktop::runLookup(controls::LookupList& list) {
  const CommonControls::Scope scope(commonControls_);
  LookupWindow window(module_, list, ownerFor(nullptr));
  window.show();
  const std::vector<HWND> disabled = disableOthers(window.handle());
  pump([&] { return window.isDone(); });
  enable(disabled);
}

std::vector<HWND> Win32Desktop::disableOthers(HWND except) const {
  Search search{except, {}};
  EnumThreadWindows(GetCurrentThreadId(), collectOthers, reinterpret_cast<LPARAM>(&search));
  for (HWND window : search.found) EnableWindow(window, FALSE);
  return search.found;
}

void Win32Desktop::enable(const std::vector<HWND>& windows) {
  for (HWND window : windows) {
    if (IsWindow(window)) EnableWindow(window, TRUE);
  }
}

void Win32Desktop::pump(const std::function<bool()>& done) {
  MSG message{};
  while (!done()) {
    const BOOL got = GetMessageW(&message, nullptr, 0, 0);
    if (got <= 0) {
      // The program ends; its own loop must learn of it too.
      if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

void Win32Desktop::repaint() {
  for (const auto& [form, shown] : shown_) shown->window->paintNow();
  // The thread's other windows, too, the host's among them. Asking for messages also shows Windows
  // that the program responds. The number is limited, since a window may paint without end.
  MSG message{};
  for (int i = 0; i < 64 && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i) {
    DispatchMessageW(&message);
  }
}

}  // namespace kebu::windows
