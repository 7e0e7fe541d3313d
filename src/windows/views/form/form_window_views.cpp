// The part of FormWindow that makes the views of the form's controls.

#include <algorithm>

#include "windows/views/form/form_window.h"
#include "windows/views/form/view_factory.h"
#include "windows/views/window/common_controls.h"
#include "windows/views/window/window_place.h"

namespace kebu::windows {

namespace {

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

const controls::Control& outermost(const controls::Control& control) {
  return control.container() ? outermost(*control.container()) : control;
}

}  // namespace

bool FormWindow::isDialog(const controls::Form& form) {
  return form.pages().empty();
}

void FormWindow::build() {
  const CommonControls::Scope scope;
  const auto& controls = form_.controls();
  controlsSeen_ = controls.size();
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
  if (isDialog(form_)) {
    // The tab order is the order in which windows were made. On a page, a window of its own, later
    // controls come last anyway; a dialog's few controls are made again.
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

PageWindow* FormWindow::pageInFront() const {
  const auto page = pages_.find(form_.pageInFront());
  return page == pages_.end() ? nullptr : page->second.get();
}

const controls::GroupBox* FormWindow::pageOf(const controls::Control& control) const {
  const controls::Control& outer = outermost(control);
  const auto page = std::ranges::find(form_.pages(), &outer);
  return page == form_.pages().end() ? nullptr : *page;
}

bool FormWindow::isOnCard(const controls::Control& control) const {
  const controls::Control* const group = control.container();
  // A page has no card of its own.
  return group && (group->container() || isDialog(form_));
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

}  // namespace kebu::windows
