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
#include "windows/views/form/view_factory.h"
#include "windows/views/layout/frame_layout.h"
#include "windows/views/layout/mnemonics.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/dpi.h"
#include "windows/views/window/guard.h"
#include "windows/views/window/host_window_watch.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/window_place.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

namespace {

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

/// Where the views of a kind of control stand.
enum class Place { AmongBars, OnPage, Nowhere };

Place placeOf(controls::ControlKind kind) {
  using controls::ControlKind;
  switch (kind) {
    case ControlKind::NavigatorBar:
    case ControlKind::NoticeList:
    case ControlKind::ProgressBar:
    case ControlKind::SideBar:
    case ControlKind::StatusBar:
    case ControlKind::TitleBar:
      return Place::AmongBars;
    case ControlKind::Button:
    case ControlKind::CheckBox:
    case ControlKind::ComboBox:
    case ControlKind::EditBox:
    case ControlKind::GroupBox:
    case ControlKind::Label:
    case ControlKind::QueryEditor:
    case ControlKind::QueryGrid:
    case ControlKind::Sheet:
      return Place::OnPage;
    case ControlKind::Form:
    case ControlKind::MdiContainer:
    case ControlKind::RecordFrame:
    case ControlKind::ResizeManager:
      return Place::Nowhere;
  }
  return Place::Nowhere;
}

bool isOnPage(const controls::Control& control) {
  return placeOf(control.kind()) == Place::OnPage;
}

/// What the title bar shows; "" for a form without one.
std::string titleOf(const controls::Form& form) {
  const auto& all = form.controls();
  const auto bar =
      std::ranges::find(all, controls::ControlKind::TitleBar, &controls::Control::kind);
  return bar == all.end() ? std::string() : (*bar)->caption();
}

const controls::Control& outermost(const controls::Control& control) {
  return control.container() ? outermost(*control.container()) : control;
}

}  // namespace

FormWindow::FormWindow(HINSTANCE module, controls::Form& form, HWND owner,
                       std::function<void()> lost)
    : module_(module),
      form_(form),
      lost_(std::move(lost)),
      pointer_([this](HWND control, POINT screen) { return tipOf(control, screen); }) {
  create(module, {L"kebu.form", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT}, owner,
         {form.left(), form.top(), form.left() + usualSize.width, form.top() + usualSize.height},
         toWide(form.caption()));
  theme_ = std::make_unique<Theme>(dpiOf(handle()));
  pointer_.watch(handle());
  build();
  // A form without a side bar is a dialog.
  const layout::Rect& size = hasSideBar_ ? usualSize : dialogSize;
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

void FormWindow::build() {
  const CommonControls::Scope scope;
  const auto& controls = form_.controls();
  controlsSeen_ = controls.size();
  const auto sideBar = controls::ControlKind::SideBar;
  hasSideBar_ = std::ranges::find(controls, sideBar, &controls::Control::kind) != controls.end();
  for (controls::Control* control : controls) {
    if (find(*control)) continue;
    auto* const group = controls::as<controls::GroupBox>(*control);
    const controls::GroupBox* const page = pageOf(*control);
    if (page && page == group && pages_.try_emplace(page).second) listenTo(*group);
    if (page && !pages_[page]) continue;
    const bool waits = isOnPage(*control) && !isBesidePages(*control) && !group;
    if (!waits) {
      make(*control);
      if (group && group != page) listenTo(*group);
    } else if (!awaited_.contains(control)) {
      parentFor(*control);
      awaited_.emplace(control, control->changed.connect([this, control] {
        if (isSeen(*control)) requestLayout();
      }));
    }
    if (auto* const resizing = controls::as<controls::ResizeManager>(*control)) {
      groupSubscriptions_.push_back(resizing->changed.connect([this] { requestLayout(); }));
    }
  }
  orderViews();
}

void FormWindow::make(controls::Control& control) {
  const CommonControls::Scope scope;
  awaited_.erase(&control);
  std::unique_ptr<View> view = makeView(*this, control, parentFor(control));
  view->refresh();
  // The tabulator comes to the pages first and to the bars last.
  if (isBesidePages(control)) putBehind(view->handle(), HWND_BOTTOM);
  views_[&control] = std::move(view);
}

void FormWindow::orderViews() {
  inOrder_.clear();
  for (const controls::Control* control : form_.controls()) {
    if (View* const view = find(*control)) inOrder_.push_back(view);
  }
}

View* FormWindow::viewAt(controls::Control& control, const layout::Placement& placement) {
  if (View* const view = find(control)) return view;
  if (placement.bounds.isEmpty() || !isSeen(control)) return nullptr;
  placeOfNewView_ = placement;
  make(control);
  placeOfNewView_ = {};
  View* const view = find(control);
  made_.insert(view);
  return view;
}

bool FormWindow::isSeen(const controls::Control& control) {
  const auto* const label = controls::as<controls::Label>(control);
  const bool isEmpty = label && label->caption().empty() && !label->isUnknown();
  return control.isShown() && !isEmpty;
}

void FormWindow::putInTabOrder(const std::set<const View*>& late) {
  const auto pageOfWindow = [this](const View& view) {
    return view.handle() && !isBesidePages(view.control()) ? GetParent(view.handle()) : nullptr;
  };
  // All views of a page that are made together are made in their order.
  std::set<HWND> older;
  for (const View* view : inOrder_) {
    if (!late.contains(view)) older.insert(pageOfWindow(*view));
  }
  std::map<HWND, HWND> previous;
  for (View* view : inOrder_) {
    HWND const page = pageOfWindow(*view);
    if (!page || !older.contains(page)) continue;
    HWND& before = previous.try_emplace(page, HWND_TOP).first->second;
    if (late.contains(view)) view->standBehind(before);
    before = view->handle();
  }
}

void FormWindow::listenTo(controls::GroupBox& group) {
  groupSubscriptions_.push_back(group.changed.connect([this, &group] { groupChanged(group); }));
}

void FormWindow::rebuildIfGrown() {
  if (form_.controls().size() == controlsSeen_) return;
  if (!hasSideBar_) {
    // The tab order is the order in which windows were made. On a page of the side bar, a window of
    // its own, later controls come last anyway; a dialog's few controls are made again.
    groupSubscriptions_.clear();
    mnemonics_.clear();
    inOrder_.clear();
    awaited_.clear();
    made_.clear();
    views_.clear();
    loosePage_.reset();
    lastFocus_ = nullptr;
  }
  build();
}

std::unique_ptr<PageWindow> FormWindow::newPage() {
  return std::make_unique<PageWindow>(*this, handle());
}

void FormWindow::fillPage(const controls::GroupBox& page) {
  auto& window = pages_[&page];
  if (window) return;
  window = newPage();
  window->controls = page.children();
  build();
}

const controls::GroupBox* FormWindow::pageOf(const controls::Control& control) const {
  if (!hasSideBar_ || !isOnPage(control)) return nullptr;
  return controls::as<controls::GroupBox>(outermost(control));
}

bool FormWindow::isOnCard(const controls::Control& control) const {
  const controls::Control* const group = control.container();
  // A page of the side bar has no card of its own.
  return group && (group->container() || !hasSideBar_);
}

bool FormWindow::isBesidePages(const controls::Control& control) {
  const bool isOuterButton = !control.container() && controls::as<controls::Button>(control);
  return isOuterButton || placeOf(control.kind()) == Place::AmongBars;
}

HWND FormWindow::parentFor(controls::Control& control) {
  if (!isOnPage(control) || isBesidePages(control)) return handle();
  if (const controls::GroupBox* const page = pageOf(control)) return pages_[page]->handle();
  if (!loosePage_) loosePage_ = newPage();
  auto& loose = loosePage_->controls;
  if (!control.container() && std::ranges::find(loose, &control) == loose.end()) {
    loose.push_back(&control);
  }
  return loosePage_->handle();
}

View* FormWindow::find(const controls::Control& control) const {
  const auto at = views_.find(&control);
  return at == views_.end() ? nullptr : at->second.get();
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
  // Several pages may be visible as models; only the one that was shown last is drawn.
  const bool isGone = shownPage_ && !shownPage_->isVisible();
  if (isGone) shownPage_ = nullptr;
  for (const auto& [page, window] : pages_) {
    const bool wasSeen = window && isShownIn(handle(), window->handle());
    const bool appeared = page->isVisible() && page != shownPage_ && !wasSeen;
    if (page->isVisible() && (!shownPage_ || (appeared && !covered_.count(page)))) {
      shownPage_ = page;
    }
  }
  if (shownPage_) fillPage(*shownPage_);
  covered_.clear();
  for (const auto& [page, window] : pages_) {
    const bool shown = page == shownPage_;
    if (page->isVisible() && !shown) covered_.insert(page);
    if (!window) continue;
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
  wchar_t name[16] = {};
  GetClassNameW(before, name, 16);
  const bool isBox = lstrcmpW(name, L"#32770") == 0 || lstrcmpW(name, L"kebu.lookup") == 0;
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
