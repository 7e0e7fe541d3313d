#pragma once

#include "controls/simple_controls.h"
#include "windows/views/controls/view.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// A card over the page with the text and a bar that moves.
class ProgressBarView : public View, private Window {
 public:
  ProgressBarView(ViewSite& site, controls::ProgressBar& model, HWND parent);

  HWND handle() const override { return Window::handle(); }
  void place(const layout::Placement& placement) override;
  void refresh() override;
  /// Whether a point of its window is on the button that interrupts the work.
  bool isOnInterruptButton(POINT point) const;

 protected:
  void describe(Inspection& inspection) override;

 private:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;
  void paint() const;
  RECT interruptButton() const;

  controls::ProgressBar& model_;
};

}  // namespace kebu::windows
