#pragma once

#include <string>
#include <vector>

#include "controls/simple_controls.h"
#include "windows/views/controls/view.h"
#include "windows/views/drawing/theme.h"
#include "windows/views/layout/page_layout.h"
#include "windows/views/window/window.h"

namespace kebu::windows {

/// The window of a page: draws its groups as cards, and scrolls when it is not high enough for its
/// controls.
class PageWindow : public Window, private Describable {
 public:
  PageWindow(ViewSite& site, HWND parent);

  /// The controls in it, in the order of the models.
  std::vector<controls::Control*> controls;

  /// Lays the page out in `place` of its parent.
  void arrange(const layout::Rect& place,
               const std::vector<controls::ResizeManager::Registration>& rules);
  /// Scrolls a control into sight.
  void reveal(HWND control);

 protected:
  LRESULT answer(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Card {
    layout::Rect bounds;
    std::string title;
    bool enabled = true;
  };

  void layOut();
  void placeAll(const std::vector<controls::Control*>& all, layout::Placements& placements);
  void scrollTo(int offset);
  void paint();

  bool inspect(Inspection& inspection) override;
  HWND describedWindow() const override { return handle(); }
  std::vector<Describable*> members() override;
  std::string translated(std::string_view text) const override { return site_.translated(text); }

  ViewSite& site_;
  const Theme& theme_;
  std::vector<controls::ResizeManager::Registration> rules_;
  std::vector<Card> cards_;
  int offset_ = 0;
  int height_ = 0;
};

}  // namespace kebu::windows
