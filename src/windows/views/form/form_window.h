#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "controls/form.h"
#include "windows/views/controls/view.h"
#include "windows/views/form/page_window.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/pointer_watch.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// A form on the screen: its top-level window with a view for each control.
class FormWindow : public Window, public ViewSite, public KeyTarget {
 public:
  /// `lost` is called when the window was destroyed with its owner; it may delete this object.
  FormWindow(HINSTANCE module, controls::Form& form, HWND owner, std::function<void()> lost);
  ~FormWindow() override;

  /// Whether a form has no pages, and belongs to the one that was in front when it was opened.
  static bool isDialog(const controls::Form& form);
  /// Whether a window is a form's, of this object of the host's or of another one.
  static bool isOne(HWND window);
  /// Puts it to its place, before it is shown for the first time.
  void prepare();
  /// Shows and activates it.
  void show();
  bool isOnScreen() const { return IsWindowVisible(handle()) != 0; }
  /// Lays out and paints what changed. A window that is not shown yet appears when it has been set
  /// up for a second.
  void paintNow();
  void setModal(bool modal) { modal_ = modal; }
  /// Opens the user guide at the page shown, or the table of keys where there is no guide.
  void showGuide();
  /// Shows that the window works, or no longer works.
  void showBusy(bool busy);
  /// Drops the keys and mouse buttons that were pressed in it and are not answered yet.
  void discardInput();

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void lost() override { lost_(); }

  HINSTANCE module() const override { return module_; }
  HWND window() const override { return handle(); }
  const Theme& theme() const override { return *theme_; }
  void requestLayout() override;
  bool commit() override;
  bool isBusy() const override { return busy_; }
  bool isOnCard(const controls::Control& control) const override;
  View* viewFor(const controls::Control& control) const override { return find(control); }
  View* viewAt(controls::Control& control, const layout::Placement& placement) override;
  const layout::Placement& placeOfNewView() const override { return placeOfNewView_; }
  std::string translated(std::string_view text) const override { return form_.translated(text); }
  HWND hovered() const override { return pointer_.control(); }
  std::function<void()> actionFor(const Key& key) override;

  /// Makes the views that are missing, but for those of pages without a window and of controls that
  /// stand on a page: they get theirs when they have a place.
  void build();
  /// Makes the view of a control.
  void make(controls::Control& control);
  /// Puts the views into the order of the controls.
  void orderViews();
  /// Whether something of a control of a page can be seen.
  static bool isSeen(const controls::Control& control);
  /// Puts the views that were made after others into the tab order, which is the order of the
  /// windows.
  void putInTabOrder(const std::set<const View*>& late);
  /// Makes the views anew when the form has got more controls.
  void rebuildIfGrown();
  std::unique_ptr<PageWindow> newPage();
  /// Makes a page's window and views, unless it has them. It is done when the page is first
  /// shown, since its windows cost more than its models.
  void fillPage(const controls::GroupBox& page);
  /// The window of the page in front; null while there is none.
  PageWindow* pageInFront() const;
  /// Whether it stands on the window itself: a bar, or a button in no group.
  static bool isBesidePages(const controls::Control& control);
  /// The page that a control stands on; null for none.
  const controls::GroupBox* pageOf(const controls::Control& control) const;
  void listenTo(controls::GroupBox& group);
  /// The parent of the window of a control that is on no page.
  HWND parentFor(controls::Control& control);
  View* find(const controls::Control& control) const;
  void formChanged();
  void groupChanged(const controls::GroupBox& group);
  void moveToItsPlace();
  void layOut();
  /// Brings a place for the window into the work area of its screen.
  layout::Rect onScreen(const RECT& place) const;
  void arrangePages(const layout::Rect& place);
  /// Whether the window works at a page that its title names already, and still has another one.
  bool isPageToCome() const;
  /// Takes the views that the pages had made into the orders.
  void placeMadeViews();
  void chooseMnemonics();
  /// Takes the fonts, sizes and colours that apply now.
  void renewTheme(int dpi);
  void changeDpi(int dpi, const RECT& suggested);
  void focusFirst();
  /// Goes to the control that the form asked for.
  void focusWanted();
  void moveToNextField();
  void moveFocus(bool back);
  void keepFocusAlive();
  void focusMoved();
  std::function<void()> mnemonicAction(char letter);
  std::wstring tipOf(HWND control, POINT screen) const;
  /// Lets the user interrupt the work that the window is at, if it offers that.
  void takeInterruption();
  bool inspect(Inspection& inspection);
  void activated(HWND before);

  HINSTANCE module_;
  controls::Form& form_;
  std::function<void()> lost_;
  std::unique_ptr<Theme> theme_;
  /// The form's pages; those without a window have not been shown yet.
  std::map<const controls::GroupBox*, std::unique_ptr<PageWindow>> pages_;
  std::unique_ptr<PageWindow> loosePage_;
  std::map<const controls::Control*, std::unique_ptr<View>> views_;
  std::vector<View*> inOrder_;
  /// The controls that wait for their views, with what tells of their changes.
  std::map<const controls::Control*, Subscription> awaited_;
  layout::Placement placeOfNewView_;
  std::set<const View*> made_;  ///< views that are not in the orders yet
  std::map<char, std::function<void()>> mnemonics_;
  std::vector<Subscription> subscriptions_;
  std::vector<Subscription> groupSubscriptions_;  ///< to the groups and the resize manager
  std::unique_ptr<KeyboardHook> keys_;
  PointerWatch pointer_;
  HWND lastFocus_ = nullptr;
  std::size_t controlsSeen_ = 0;  ///< how many controls the form had at the last build
  bool layoutWanted_ = false;
  bool showing_ = false;
  DWORD prepared_ = 0;  ///< the time, in milliseconds
  bool activating_ = false;
  bool modal_ = false;
  bool busy_ = false;
  std::string idleTitle_;  ///< of the title bar, when the window was last laid out and did not work
  SIZE laidOut_{};         ///< the size of the client area at the last layout
};

}  // namespace kebu::windows
