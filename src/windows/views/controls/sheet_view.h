#pragma once

#include <vector>

#include "controls/sheet.h"
#include "windows/views/controls/view.h"

namespace kebu::windows {

/// Draws a sheet as a list box, each line an item whose text is what is read aloud: so screen
/// readers, the arrow keys and the scroll bar work as in every list.
class SheetView : public View {
 public:
  SheetView(ViewSite& site, controls::Sheet& model, HWND parent);

  HWND handle() const override { return window_.get(); }
  void place(const layout::Placement& placement) override;
  void refresh() override;
  void applyTheme() override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH colours(HDC dc, HWND window) override;

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  /// The places of a line's parts, from the left edge of the list.
  struct Columns {
    int left;
    int labelRight;
    int valueLeft;
    int valueRight;
    int barLeft;
    int right;
  };

  Columns columnsOf(const controls::SheetLine& line) const;
  int heightOf(const controls::SheetLine& line) const;
  /// Gives the items the heights that their texts need in the list's width.
  void measure();
  void drawBar(HDC dc, const RECT& row, const Columns& columns, const controls::Share& share) const;
  void save(const std::string& text) const;

  controls::Sheet& model_;
  std::vector<controls::SheetLine> shown_;
  std::vector<Subscription> subscriptions_;
  OwnedWindow window_;
};

}  // namespace kebu::windows
