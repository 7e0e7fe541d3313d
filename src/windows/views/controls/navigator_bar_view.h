#pragma once

#include <string>
#include <vector>

#include "controls/navigator_bar.h"
#include "windows/views/controls/view.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// The record buttons, each with the key that does the same.
class NavigatorBarView : public View, private Window {
 public:
  NavigatorBarView(ViewSite& site, controls::NavigatorBar& model, HWND parent);

  HWND handle() const override { return Window::handle(); }
  void place(const layout::Placement& placement) override;
  void refresh() override;
  void applyTheme() override;
  void command(HWND from, UINT code) override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  std::function<void()> actionFor(const Key& key) override;
  /// The captions of its buttons, which are reached with letters of their own.
  std::vector<std::string> captions() const;
  void setMnemonics(const std::vector<std::size_t>& letters);
  /// Moves the focus to a button; false when there is none of that key, or it is disabled.
  bool focusButton(const std::string& key);
  /// Presses the button at `index`.
  void press(std::size_t index);
  std::optional<PartId> partIn(HWND window) const override;

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void arrange();
  /// The button of a window; nothing for another window.
  std::optional<std::size_t> indexOf(HWND window) const;
  /// Shows what "Conferma" would change.
  void askChanges();

  controls::NavigatorBar& model_;
  std::vector<std::size_t> mnemonics_;
  std::vector<OwnedWindow> buttons_;
  OwnedWindow changesButton_;  ///< the arrow beside "Conferma"; null on a bar that shows no changes
};

}  // namespace kebu::windows
