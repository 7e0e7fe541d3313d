#include "windows/views/form/form_window.h"

#include <windowsx.h>

#include <algorithm>
#include <optional>

#include "common/convert.h"
#include "controls/navigator_bar.h"
#include "controls/query_grid.h"
#include "windows/support/text.h"
#include "windows/views/controls/navigator_bar_view.h"
#include "windows/views/controls/progress_bar_view.h"
#include "windows/views/controls/side_bar_view.h"
#include "windows/views/drawing/painting.h"
#include "windows/views/layout/frame_layout.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window/dpi.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/host_window_watch.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/window_place.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

constexpr const wchar_t* className = L"kebu.form";
constexpr UINT layOutMessage = WM_APP + 2;
constexpr UINT focusMessage = WM_APP + 4;
constexpr UINT beginMessage = WM_APP + 5;
// In 96ths of an inch. The usual size has room for all columns of the price lists.
constexpr layout::Rect usualSize{0, 0, 1560, 820};
constexpr layout::Rect dialogSize{0, 0, 860, 680};
constexpr layout::Rect leastSize{0, 0, 720, 480};

/// Takes a message of that kind to the window, or to one inside it, out of the queue.
std::optional<MSG> takeMessage(HWND window, UINT kind) {
  MSG message{};
  // WM_QUIT comes whatever is asked for, and must stay.
  if (!PeekMessageW(&message, window, kind, kind, PM_NOREMOVE) || message.message != kind) {
    return std::nullopt;
  }
  PeekMessageW(&message, window, kind, kind, PM_REMOVE);
  return message;
}

/// What the title bar shows; "" for a form without one.
std::string titleOf(const controls::Form& form) {
  const auto& all = form.controls();
  const auto bar =
      std::ranges::find(all, controls::ControlKind::TitleBar, &controls::Control::kind);
  return bar == all.end() ? std::string() : (*bar)->caption();
}

}  // namespace

FormWindow::FormWindow(HINSTANCE module, controls::Form& form, HWND owner,
                       std::function<void()> lost)
    : module_(module),
      form_(form),
      lost_(std::move(lost)),
      pointer_([this](HWND control, POINT screen) { return tipOf(control, screen); }) {
  create(module, {className, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}, owner,
         {form.left(), form.top(), form.left() + usualSize.width, form.top() + usualSize.height},
         toWide(form.caption()));
  theme_ = std::make_unique<Theme>(dpiOf(handle()));
  pointer_.watch(handle());
  build();
  const layout::Rect& size = isDialog(form_) ? dialogSize : usualSize;
  moveWindow(handle(), onScreen({form.left(), form.top(), form.left() + theme_->px(size.width),
                                 form.top() + theme_->px(size.height)}));
  keys_ = std::make_unique<KeyboardHook>(handle(), *this);
  subscriptions_.push_back(form_.changed.connect([this] { formChanged(); }));
  subscriptions_.push_back(form_.FocusWanted.connect(
      [this](controls::Control&) { PostMessageW(handle(), focusMessage, 0, 0); }));
}

FormWindow::~FormWindow() {
  stopAnswering();
  keys_.reset();
  subscriptions_.clear();
  groupSubscriptions_.clear();
  inOrder_.clear();
  awaited_.clear();
  views_.clear();
  pages_.clear();
  loosePage_.reset();
  destroy();
}

void FormWindow::formChanged() {
  const DpiContext resolution = DpiContext::of(handle());
  setWindowText(handle(), toWide(form_.caption()));
  if (form_.controls().size() != controlsSeen_) requestLayout();
  if (!showing_ || IsWindowVisible(handle())) return;
  moveToItsPlace();
}

void FormWindow::groupChanged(const controls::GroupBox& group) {
  for (const controls::Control* child : group.children()) {
    if (View* const view = find(*child)) guarded([&] { view->refresh(); });
    if (const auto* inner = controls::as<controls::GroupBox>(*child)) groupChanged(*inner);
  }
  requestLayout();
}

// ---- layout

void FormWindow::requestLayout() {
  if (layoutWanted_) return;
  layoutWanted_ = true;
  PostMessageW(handle(), layOutMessage, 0, 0);
}

void FormWindow::layOut() {
  layoutWanted_ = false;
  rebuildIfGrown();
  // Under a dialog the title may name the page that comes after it.
  if (!busy_ && IsWindowEnabled(handle())) idleTitle_ = titleOf(form_);
  const RECT client = clientArea();
  laidOut_ = {client.right, client.bottom};
  if (client.right <= 0 || client.bottom <= 0) return;
  const layout::Rect area{0, 0, static_cast<int>(client.right), static_cast<int>(client.bottom)};
  layout::FrameLayout frame = layout::placeFrame(form_, theme_->metrics(), area);
  arrangePages(frame.page);
  placeMadeViews();
  for (View* view : inOrder_) {
    controls::Control& control = view->control();
    if (!isBesidePages(control)) continue;
    const bool overPage = control.kind() == controls::ControlKind::ProgressBar;
    view->place(overPage ? layout::Placement{frame.page, {}, {}} : frame.bars[&control]);
    if (!overPage && view->handle()) {
      ShowWindow(view->handle(), control.isVisible() ? SW_SHOWNA : SW_HIDE);
    }
  }
  chooseMnemonics();
  keepFocusAlive();
  invalidate();
}

void FormWindow::placeMadeViews() {
  if (made_.empty()) return;
  orderViews();
  putInTabOrder(made_);
  made_.clear();
}

void FormWindow::arrangePages(const layout::Rect& place) {
  static const std::vector<controls::ResizeManager::Registration> none;
  const auto* rules = &none;
  for (const controls::Control* control : form_.controls()) {
    const auto* resizing = controls::as<controls::ResizeManager>(*control);
    if (resizing) rules = &resizing->registrations();
  }
  const controls::GroupBox* const front = form_.pageInFront();
  if (front) fillPage(*front);
  for (const auto& [page, window] : pages_) {
    if (!window) continue;
    const bool shown = page == front;
    if (shown) window->arrange(place, *rules);
    // The page of before would stand under the title of the page to come.
    ShowWindow(window->handle(), shown && !isPageToCome() ? SW_SHOWNA : SW_HIDE);
  }
  if (loosePage_) {
    loosePage_->arrange(place, *rules);
    ShowWindow(loosePage_->handle(), SW_SHOWNA);
  }
}

bool FormWindow::isPageToCome() const {
  return busy_ && titleOf(form_) != idleTitle_;
}

void FormWindow::chooseMnemonics() {
  std::vector<std::string> captions;
  std::vector<View*> bars;
  std::vector<View*> owners;
  for (View* view : inOrder_) {
    auto* const bar = dynamic_cast<NavigatorBarView*>(view);
    if (!bar || !bar->control().isShown()) continue;
    bars.push_back(view);
    for (const std::string& caption : bar->captions()) captions.push_back(caption);
  }
  for (View* view : inOrder_) {
    if (!view->hasMnemonic() || !isShownIn(handle(), view->handle())) continue;
    owners.push_back(view);
    captions.push_back(view->control().caption());
  }
  const std::vector<std::size_t> letters = layout::chooseMnemonics(captions);
  mnemonics_.clear();
  std::size_t next = 0;
  const auto remember = [&](std::function<void()> action) {
    const std::size_t at = letters[next];
    if (at != std::string::npos) {
      mnemonics_[toUpperAscii(captions[next].substr(at, 1)).front()] = std::move(action);
    }
    ++next;
  };
  for (View* view : bars) {
    auto* const bar = static_cast<NavigatorBarView*>(view);
    const std::size_t first = next;
    for (std::size_t i = 0; i < bar->captions().size(); ++i) remember([bar, i] { bar->press(i); });
    bar->setMnemonics({letters.begin() + static_cast<std::ptrdiff_t>(first),
                       letters.begin() + static_cast<std::ptrdiff_t>(next)});
  }
  for (View* view : owners) {
    view->setMnemonic(letters[next]);
    remember([this, view] {
      if (IsWindowEnabled(view->handle()) && commit()) view->reachByMnemonic();
    });
  }
}

void FormWindow::renewTheme(int dpi) {
  *theme_ = Theme(dpi);
  for (const auto& [control, view] : views_) view->applyTheme();
  for (const auto& [page, window] : pages_) {
    if (window) takeColours(window->handle(), *theme_);
  }
  if (loosePage_) takeColours(loosePage_->handle(), *theme_);
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void FormWindow::changeDpi(int dpi, const RECT& suggested) {
  renewTheme(dpi);
  moveWindow(handle(), onScreen(suggested));
  layOut();
}

// ---- showing

bool FormWindow::isOne(HWND window) {
  return isOfClass(window, className);
}

void FormWindow::moveToItsPlace() {
  POINT place{form_.left(), form_.top()};
  RECT around{};
  RECT own{};
  HWND owner = GetWindow(handle(), GW_OWNER);
  GetWindowRect(handle(), &own);
  if (place.x == 0 && place.y == 0 && owner && GetWindowRect(owner, &around)) {
    // A form without a place opens in the middle of its owner.
    place.x = (around.left + around.right - (own.right - own.left)) / 2;
    place.y = (around.top + around.bottom - (own.bottom - own.top)) / 2;
  }
  OffsetRect(&own, place.x - own.left, place.y - own.top);
  moveWindow(handle(), onScreen(own));
}

layout::Rect FormWindow::onScreen(const RECT& place) const {
  return layout::fitInto(toRect(place), toRect(workAreaAt(place)));
}

void FormWindow::prepare() {
  const DpiContext resolution = DpiContext::of(handle());
  prepared_ = GetTickCount();
  moveToItsPlace();
}

// The window is laid out before it appears and painted as soon as it has, so that it is never seen
// empty, whatever runs next.
void FormWindow::show() {
  const DpiContext resolution = DpiContext::of(handle());
  const bool wasShown = isOnScreen();
  showing_ = true;
  if (!wasShown) {
    const RECT client = clientArea();
    const bool isLaidOut = laidOut_.cx == client.right && laidOut_.cy == client.bottom;
    if (layoutWanted_ || !isLaidOut) layOut();
  }
  ShowWindow(handle(), IsIconic(handle()) ? SW_RESTORE : SW_SHOW);
  SetForegroundWindow(handle());
  if (wasShown) layOut();
  // Which control that is turns out when the form has been activated.
  if (!wasShown) PostMessageW(handle(), beginMessage, 0, 0);
  showing_ = false;
  RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void FormWindow::showBusy(bool busy) {
  if (busy_ == busy) return;
  const bool wasPageToCome = isPageToCome();
  busy_ = busy;
  if (isPageToCome() != wasPageToCome) requestLayout();
  for (View* view : inOrder_) {
    if (view->handle() && isBesidePages(view->control())) {
      RedrawWindow(view->handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    }
  }
}

// Buttons and keys that are let go are not among them: what was pressed before the work began waits
// for that.
void FormWindow::discardInput() {
  struct Range {
    UINT first;
    UINT last;
  };
  constexpr Range pressed[] = {{WM_KEYDOWN, WM_KEYDOWN},
                               {WM_CHAR, WM_DEADCHAR},
                               {WM_SYSKEYDOWN, WM_SYSKEYDOWN},
                               {WM_SYSCHAR, WM_SYSDEADCHAR},
                               {WM_LBUTTONDOWN, WM_LBUTTONDOWN},
                               {WM_LBUTTONDBLCLK, WM_RBUTTONDOWN},
                               {WM_RBUTTONDBLCLK, WM_MBUTTONDOWN},
                               {WM_MBUTTONDBLCLK, WM_MOUSEWHEEL},
                               {WM_NCLBUTTONDOWN, WM_NCLBUTTONDOWN},
                               {WM_NCLBUTTONDBLCLK, WM_NCLBUTTONDBLCLK}};
  MSG message{};
  for (const Range& range : pressed) {
    while (PeekMessageW(&message, handle(), range.first, range.last, PM_REMOVE)) {
      if (message.message != WM_QUIT) continue;
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
  }
}

void FormWindow::paintNow() {
  constexpr DWORD longSetUp = 1000;
  const DpiContext resolution = DpiContext::of(handle());
  if (!isOnScreen()) {
    if (GetTickCount() - prepared_ < longSetUp) return;
    show();
  }
  if (layoutWanted_) layOut();
  for (View* view : inOrder_) {
    // The bar moves even while no message loop delivers its timer.
    if (controls::as<controls::ProgressBar>(view->control()) && view->control().isVisible()) {
      view->refresh();
    }
  }
  RedrawWindow(handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  takeInterruption();
}

// Of all keys and clicks during a work these alone count.
void FormWindow::takeInterruption() {
  for (View* view : inOrder_) {
    auto* const bar = controls::as<controls::ProgressBar>(view->control());
    if (!bar || !bar->isInterruptible() || !bar->isRunning()) continue;
    while (const auto pressed = takeMessage(handle(), WM_KEYDOWN)) {
      if (pressed->wParam == VK_ESCAPE) guarded([&] { bar->interrupt(); });
    }
    const auto* const shown = dynamic_cast<ProgressBarView*>(view);
    while (const auto clicked = takeMessage(view->handle(), WM_LBUTTONDOWN)) {
      const POINT point{GET_X_LPARAM(clicked->lParam), GET_Y_LPARAM(clicked->lParam)};
      if (shown && shown->isOnInterruptButton(point)) guarded([&] { bar->interrupt(); });
    }
  }
}

void FormWindow::activated(HWND before) {
  // Only a change from another window of this program counts, not from another program, and not
  // from a message box or a list over this window.
  if (!before || showing_ || activating_) return;
  const bool isBox = isOfClass(before, L"#32770") || isOfClass(before, L"kebu.lookup");
  if (isBox || !form_.isLoaded() || GetWindow(before, GW_OWNER) == handle()) return;
  activating_ = true;
  guarded([&] { form_.activate(); });
  activating_ = false;
}

// ---- messages

std::wstring FormWindow::tipOf(HWND control, POINT screen) const {
  View* const view = viewOf(control);
  // A grid has tips of its own, for its cells.
  const bool hasTip = view && view->control().kind() != controls::ControlKind::QueryGrid;
  return hasTip ? view->tipOf(control, screen) : std::wstring();
}

bool FormWindow::inspect(Inspection& inspection) {
  if (layoutWanted_) layOut();
  const std::string name = toUtf8(inspection.control);
  if (name.empty()) {
    describeWindow(inspection, handle());
    write(inspection.kind, std::wstring(L"Form"));
    writeName(inspection, form_.Name());
    writeText(inspection, form_.caption());
    inspection.count = static_cast<std::int32_t>(form_.controls().size());
    if (inspection.part != Inspected::Item) return true;
    // The form's items are its controls, in order.
    const auto index = static_cast<std::size_t>(inspection.index);
    if (index >= form_.controls().size()) return false;
    writeName(inspection, form_.controls()[index]->Name());
    return true;
  }
  controls::Control* const control = form_.find(name);
  if (!control) return false;
  if (const controls::GroupBox* const page = pageOf(*control)) fillPage(*page);
  if (!find(*control)) {
    make(*control);
    made_.insert(find(*control));  // the next layout takes it into the orders
  }
  View* const view = find(*control);
  return view && view->inspect(inspection);
}

LRESULT FormWindow::answer(UINT message, WPARAM wParam, LPARAM lParam) {
  if (!theme_) return Window::answer(message, wParam, lParam);
  if (message == inspectMessage()) {
    auto* const inspection = reinterpret_cast<Inspection*>(lParam);
    const bool known = inspection && inspection->size == sizeof(Inspection);
    return known && inspect(*inspection);
  }
  if (const auto reflected = reflect(message, wParam, lParam)) return *reflected;
  switch (message) {
    case KeyboardHook::message:
      KeyboardHook::act(*this, wParam, lParam);
      return 0;
    case layOutMessage:
      if (layoutWanted_) layOut();
      return 0;
    case beginMessage:
      if (layoutWanted_) layOut();
      focusFirst();
      return 0;
    case focusMessage:
      focusWanted();
      return 0;
    case WM_SIZE:
      // Windows reports the size once more when the window is first shown.
      if (wParam != SIZE_MINIMIZED &&
          (laidOut_.cx != LOWORD(lParam) || laidOut_.cy != HIWORD(lParam))) {
        layOut();
      }
      return 0;
    case WM_GETMINMAXINFO: {
      auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
      RECT place{};
      GetWindowRect(handle(), &place);
      const RECT area = workAreaAt(place);
      limits.ptMinTrackSize = {
          std::min<LONG>(theme_->px(leastSize.width), area.right - area.left),
          std::min<LONG>(theme_->px(leastSize.height), area.bottom - area.top)};
      return 0;
    }
    case WM_SETCURSOR:
      pointer_.pointerMoved(reinterpret_cast<HWND>(wParam));
      return Window::answer(message, wParam, lParam);
    case WM_TIMER:
      if (wParam == PointerWatch::timer) pointer_.tick();
      return 0;
    case WM_DPICHANGED:
      changeDpi(HIWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return 0;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      renewTheme(theme_->dpi());
      layOut();
      return 0;
    case HostWindowWatch::message:
      DestroyWindow(handle());
      return 0;
    case WM_ERASEBKGND:
      fill(reinterpret_cast<HDC>(wParam), clientArea(), theme_->colours().window);
      return 1;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) {
        lastFocus_ = GetFocus();
        return 0;
      }
      if (lastFocus_ && IsWindow(lastFocus_)) SetFocus(lastFocus_);
      activated(reinterpret_cast<HWND>(lParam));
      return 0;
    case WM_SETFOCUS:
      if (lastFocus_ && IsChild(handle(), lastFocus_)) {
        SetFocus(lastFocus_);
      } else {
        // After the first paint: a control may cost more once it has the focus.
        PostMessageW(handle(), beginMessage, 0, 0);
      }
      return 0;
    case WM_CLOSE: {
      // Closing may release the form.
      const std::shared_ptr<controls::Form> held = form_.weak_from_this().lock();
      if (commit()) static_cast<controls::Form&>(form_).Unload();
      return 0;
    }
    default:
      return Window::answer(message, wParam, lParam);
  }
}

}  // namespace kebu::windows
