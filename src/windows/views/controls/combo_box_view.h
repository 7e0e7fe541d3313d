#pragma once

#include "controls/combo_box.h"
#include "windows/views/controls/field_view.h"

namespace kebu::windows {

/// A combo box. Until it is used, a window of our own shows what is chosen: a combo box costs ten
/// to twenty times as much as that, since its list is a window of the desktop. Both are drawn here,
/// so that they look the same.
class ComboBoxView : public FieldView {
 public:
  ComboBoxView(ViewSite& site, controls::ComboBox& model, HWND parent);
  ~ComboBoxView() override;

  HWND handle() const override;
  void place(const layout::Placement& placement) override;
  void refresh() override;
  void applyTheme() override;
  void command(HWND from, UINT code) override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  bool paint(HWND window) override;
  /// The height in pixels of a row of the list, or of the chosen row above it. The combo's parent
  /// answers with it while the combo is being made: setting it later resizes the combo twice.
  static int rowHeight(const Theme& theme, bool isChosen);

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;
  std::wstring lineIn(HWND window) const override;

 private:
  class Unused;

  bool isMade() const { return FieldView::handle() != nullptr; }
  /// Puts the combo box itself in the place of the window that stands for it.
  void makeCombo();
  /// Whether the combo is as high as a box, and its rows as they should be.
  bool hasHeights() const;
  void setHeights();
  void fillRows();
  void drawChosen(HDC dc, const RECT& area) const;
  std::wstring rowText(std::size_t index) const;
  /// Of the model's chosen row; -1 without one.
  int chosenIndex() const;
  void take();

  controls::ComboBox& model_;
  std::vector<std::wstring> shown_;
  bool takesWhenClosed_ = false;  ///< a row was chosen in the open list
  std::unique_ptr<Unused> unused_;
};

}  // namespace kebu::windows
