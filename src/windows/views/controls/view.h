#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/event.h"
#include "controls/control.h"
#include "windows/support/handles.h"
#include "windows/support/windows_api.h"
#include "windows/views/accessibility/describable.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/layout/page_layout.h"
#include "windows/views/window/inspection.h"
#include "windows/views/window/inspection_answer.h"
#include "windows/views/window/keyboard.h"
#include "windows/views/window/window_place.h"
#include "windows/views/window/window_text.h"

namespace kebu::windows {

class View;

/// What a view needs of the window that contains it.
class ViewSite {
 public:
  virtual ~ViewSite() = default;
  virtual HINSTANCE module() const = 0;
  /// The window itself.
  virtual HWND window() const = 0;
  virtual const Theme& theme() const = 0;
  /// A control appeared, disappeared or changed its caption.
  virtual void requestLayout() = 0;
  /// Takes over what the user has typed so far; false when it was refused.
  virtual bool commit() = 0;
  /// Whether the window shows that it works: its bars and outer buttons look disabled.
  virtual bool isBusy() const = 0;
  /// Whether the control stands on a card, not on the window itself.
  virtual bool isOnCard(const controls::Control& control) const = 0;
  /// The view of another control; null while it has none.
  virtual View* viewFor(const controls::Control& control) const = 0;
  /// The same for a control that has got a place, for which a view is made when there is something
  /// to see.
  virtual View* viewAt(controls::Control& control, const layout::Placement& placement) = 0;
  /// Where the view that is being made will stand, so that its windows are created there: moving a
  /// window costs nearly as much as creating it. Empty where that is not known.
  virtual const layout::Placement& placeOfNewView() const = 0;
  /// A text of a view's own in the user's language.
  virtual std::string translated(std::string_view text) const = 0;
  /// The control that the pointer is on; null for none.
  virtual HWND hovered() const = 0;
};

/// Draws one model and turns input into calls of the model. It holds no rule of the system: after a
/// refusal it shows what the model holds. A view's windows are its last members: while a window is
/// destroyed it still sends notifications, the loss of the focus for one, and they use the others.
class View : public Describable {
 public:
  View(ViewSite& site, controls::Control& model, const char* kind);

  controls::Control& control() const { return control_; }
  /// The control's window; null for a control that is not visible or is drawn by its page.
  virtual HWND handle() const { return nullptr; }
  virtual void place(const layout::Placement& placement);
  /// Moves its windows behind another one in the tab order.
  virtual void standBehind(HWND previous) { putBehind(handle(), previous); }
  /// Shows what the model holds now.
  virtual void refresh() {}
  /// The resolution or the colours changed; the control's window has the usual font.
  virtual void applyTheme();

  /// A notification of a stock control that belongs to this view.
  virtual void command(HWND /*from*/, UINT /*code*/) {}
  virtual void drawItem(const DRAWITEMSTRUCT& /*item*/) {}
  /// Answers WM_PAINT of one of its stock controls; false where the control paints itself.
  virtual bool paint(HWND /*window*/) { return false; }
  /// The brush behind it, with the colours set; null for the usual ones.
  virtual HBRUSH colours(HDC /*dc*/, HWND /*window*/) { return nullptr; }
  virtual std::function<void()> actionFor(const Key& /*key*/) { return {}; }
  /// What a tip says of one of its windows at a point of the screen: the text that is cut off, what
  /// else one should know, and the key that does the same; "" for nothing.
  std::wstring tipOf(HWND window, POINT screen);
  /// Passes what the user typed to the model; false when it was refused.
  virtual bool commit() { return true; }
  /// The letter by which it is reached, as an index of a byte of its caption.
  void setMnemonic(std::size_t at);
  /// Whether its caption takes part in the choice of letters.
  virtual bool hasMnemonic() const { return false; }
  virtual void reachByMnemonic() {
    if (handle()) SetFocus(handle());
  }

  bool inspect(Inspection& inspection) override;
  HWND describedWindow() const override { return handle(); }
  Describable* groupAround() override;
  std::string translated(std::string_view text) const override { return site_.translated(text); }
  /// The part that one of its windows shows; nothing where Windows' own description is right.
  virtual std::optional<PartId> partIn(HWND window) const {
    return window == handle() ? std::optional(PartId{}) : std::nullopt;
  }

 protected:
  ViewSite& site() const { return site_; }
  const Theme& theme() const { return site_.theme(); }
  bool looksEnabled() const { return control_.looksEnabled(); }
  /// What is behind the control.
  COLORREF behind() const;
  /// Creates a control of a system class that belongs to this view, shown if it has a place.
  OwnedWindow createStock(const wchar_t* className, DWORD style, DWORD extendedStyle, HWND parent,
                          const layout::Rect& place = {}, const std::wstring& text = {});
  /// Makes notifications of a window of our own classes reach this view.
  void adopt(HWND window);
  virtual void describe(Inspection& inspection) { writeText(inspection, control_.caption()); }
  virtual bool describePart(Inspection& /*inspection*/) { return false; }
  /// The text that one of its windows shows on one line.
  virtual std::wstring lineIn(HWND window) const { return windowText(window); }
  /// The caption as a control takes it, with its letter marked.
  std::wstring markedCaption() const;
  /// The item as it looks now: disabled while the window works.
  DRAWITEMSTRUCT whileBusy(const DRAWITEMSTRUCT& item) const;
  /// Sets the colours of a text on what is behind the control; the brush for that.
  HBRUSH setInk(HDC dc, COLORREF ink) const;

 private:
  void modelChanged();
  /// The caption of the nearest group, for a control without one of its own.
  std::string captionAround() const;

  ViewSite& site_;
  controls::Control& control_;
  const char* kind_;
  std::size_t mnemonic_ = std::string::npos;
  bool wasVisible_ = false;
  std::string lastCaption_;
  Subscription changes_;
};

/// The view that a window belongs to, or the window around it; null for none.
View* viewOf(HWND window);

/// Passes a notification that came to a parent on to the view of the control that sent it.
std::optional<LRESULT> reflect(UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace kebu::windows
