#pragma once

#include "controls/edit_box.h"
#include "windows/views/controls/field_view.h"

namespace kebu::windows {

/// Typed text reaches the model when the box is left, or sooner where an action
/// needs it. F4 or the button beside it opens the look-up.
class EditBoxView : public FieldView {
 public:
  EditBoxView(ViewSite& site, controls::EditBox& model, HWND parent);

  void place(const layout::Placement& placement) override;
  void refresh() override;
  void applyTheme() override;
  void command(HWND from, UINT code) override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  HBRUSH colours(HDC dc, HWND window) override;
  std::function<void()> actionFor(const Key& key) override;
  bool commit() override;
  std::optional<PartId> partIn(HWND window) const override;

 protected:
  bool isMarked() const override { return model_.isRequired(); }
  void enabledChanged() override;
  std::wstring lineIn(HWND window) const override;
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  void lookup();
  bool hasFrame() const { return model_.lines() <= 1; }
  void enableLookup();
  void restore();

  controls::EditBox& model_;
  std::string shown_;  ///< the model's text as last shown
  // What the control was told last; at first what it is by itself.
  bool wasEditable_ = true;
  std::optional<std::size_t> maxLength_;
  std::string hint_;
  bool touched_ = false;
  bool showing_ = false;
  bool committing_ = false;
  OwnedWindow lookup_;  ///< the button, once it has had a place
};

}  // namespace kebu::windows
