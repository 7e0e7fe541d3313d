#include "windows/views/form/win32_desktop.h"

#include <optional>
#include <utility>

#include "controls/form.h"
#include "controls/mdi_container.h"
#include "windows/views/form/form_window.h"
#include "windows/views/form/lookup_window.h"
#include "windows/views/window/activity.h"
#include "windows/views/window/host_window_watch.h"

namespace kebu::windows {

namespace {

struct Search {
  HWND except;
  std::vector<HWND> found;
};

/// The host's window that a form belongs to; null for none.
HWND hostWindowOf(const controls::Form& form) {
  for (const controls::Control* control : form.controls()) {
    const auto* container = controls::as<controls::MdiContainer>(*control);
    if (!container || container->parentWindow() == 0) continue;
    // A handle has 32 significant bits on every Windows.
    auto* const given = reinterpret_cast<HWND>(static_cast<LONG_PTR>(container->parentWindow()));
    if (IsWindow(given)) return given;
  }
  return nullptr;
}

BOOL CALLBACK collectOthers(HWND window, LPARAM context) {
  auto& search = *reinterpret_cast<Search*>(context);
  const bool isOpen = IsWindowVisible(window) && IsWindowEnabled(window);
  if (window != search.except && isOpen) search.found.push_back(window);
  return TRUE;
}

}  // namespace

struct Win32Desktop::Shown {
  std::unique_ptr<FormWindow> window;
  std::unique_ptr<HostWindowWatch> hostWindow;
  std::vector<HWND> disabled;  ///< while it is modal
  bool isModal = false;
  bool isLost = false;
};

/// While it lives, the user is asked something in the middle of a work, and can act.
class Win32Desktop::Interruption {
 public:
  explicit Interruption(Win32Desktop& desktop)
      : desktop_(desktop), works_(std::exchange(desktop.works_, 0)) {
    if (works_ > 0) desktop_.showBusy(false);
  }
  ~Interruption() {
    desktop_.works_ = works_;
    if (works_ > 0) SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  }
  Interruption(const Interruption&) = delete;
  Interruption& operator=(const Interruption&) = delete;

 private:
  Win32Desktop& desktop_;
  int works_;
};

Win32Desktop::Win32Desktop(HINSTANCE module, const CommonControls& commonControls)
    : module_(module), commonControls_(commonControls) {}

Win32Desktop::~Win32Desktop() = default;

HWND Win32Desktop::ownerFor(const controls::Form* form) const {
  if (form) {
    if (HWND hosts = hostWindowOf(*form)) return GetAncestor(hosts, GA_ROOT);
  }
  HWND const active = GetActiveWindow();
  HWND owner = active ? GetAncestor(active, GA_ROOT) : nullptr;
  if (!owner && !shown_.empty()) owner = shown_.begin()->second->window->handle();
  if (!form || FormWindow::isDialog(*form)) return owner;
  // A window must not end with another one of ours, with what is not saved in it.
  while (owner && FormWindow::isOne(owner)) owner = GetWindow(owner, GW_OWNER);
  return owner;
}

void Win32Desktop::show(controls::Form& form, const std::function<void()>& setUp) {
  const CommonControls::Scope scope(commonControls_);
  auto at = shown_.find(&form);
  if (at == shown_.end()) {
    auto shown = std::make_unique<Shown>();
    shown->window = std::make_unique<FormWindow>(module_, form, ownerFor(&form),
                                                 [this, &form] { windowLost(form); });
    if (HWND hosts = hostWindowOf(form)) {
      shown->hostWindow = std::make_unique<HostWindowWatch>(hosts, shown->window->handle());
    }
    at = shown_.emplace(&form, std::move(shown)).first;
  }
  FormWindow& window = *at->second->window;
  if (window.isOnScreen()) {
    window.show();
    setUp();
    return;
  }
  window.prepare();
  /// Shows the window also after a set-up that failed. A set-up may close the window, too.
  struct Appearance {
    ~Appearance() {
      const auto now = desktop.shown_.find(&form);
      if (now != desktop.shown_.end()) now->second->window->show();
    }
    Win32Desktop& desktop;
    const controls::Form& form;
  };
  const Appearance appearance{*this, form};
  setUp();
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
  at->second->isModal = true;
  at->second->window->setModal(true);
  at->second->disabled = disableOthers(at->second->window->handle());
  const Interruption asking(*this);
  const auto isLost = [&] {
    const auto now = shown_.find(&form);
    return now != shown_.end() && now->second->isLost;
  };
  pump([&] { return shown_.count(&form) == 0 || isLost(); });
  if (isLost()) endLost(form);
}

void Win32Desktop::windowLost(controls::Form& form) {
  const auto at = shown_.find(&form);
  if (at == shown_.end()) return;
  at->second->isLost = true;
  if (at->second->isModal) return;  // its message loop returns now
  Activity::afterwards([this, weak = form.weak_from_this()] {
    if (const auto held = weak.lock()) endLost(*held);
  });
}

void Win32Desktop::endLost(controls::Form& form) {
  hide(form);  // its views must not draw any more
  form.End();
}

FormWindow* Win32Desktop::formAround(HWND window) const {
  for (; window; window = GetWindow(window, GW_OWNER)) {
    for (const auto& [form, shown] : shown_) {
      if (shown->window->handle() == window) return shown->window.get();
    }
  }
  return nullptr;
}

void Win32Desktop::runLookup(controls::LookupList& list) {
  const CommonControls::Scope scope(commonControls_);
  const Interruption asking(*this);
  HWND const owner = ownerFor(nullptr);
  // The form beneath, even where another list stands between.
  LookupWindow window(module_, list, owner, [this, owner] {
    if (FormWindow* const form = formAround(owner)) form->showGuide();
  });
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

void Win32Desktop::beginWork() {
  if (works_++ == 0) SetCursor(LoadCursorW(nullptr, IDC_WAIT));
}

void Win32Desktop::endWork() {
  if (--works_ > 0) return;
  SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  showBusy(false);
  for (const auto& [form, shown] : shown_) shown->window->discardInput();
}

void Win32Desktop::showBusy(bool busy) {
  for (const auto& [form, shown] : shown_) shown->window->showBusy(busy);
}

// A work that is long enough to be painted is long enough to look busy.
void Win32Desktop::repaint() {
  if (works_ > 0) showBusy(true);
  for (const auto& [form, shown] : shown_) shown->window->paintNow();
  // The thread's other windows, too, the host's among them. Asking for messages also shows Windows
  // that the program responds. The number is limited, since a window may paint without end.
  MSG message{};
  std::optional<int> quit;
  for (int i = 0; i < 64 && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE); ++i) {
    if (message.message == WM_QUIT) {
      // It comes whatever is asked for. The program's own loop must learn of it.
      quit = static_cast<int>(message.wParam);
    } else {
      DispatchMessageW(&message);
    }
  }
  if (quit) PostQuitMessage(*quit);
}

}  // namespace kebu::windows
