#pragma once

#include <utility>

#include "windows/views/controls/view.h"

namespace kebu::windows {

/// A stock control with a caption beside it.
class FieldView : public View {
 public:
  FieldView(ViewSite& site, controls::Control& model, const char* kind, HWND parent);

  HWND handle() const override { return control_.get(); }
  void place(const layout::Placement& placement) override;
  void standBehind(HWND previous) override;
  void refresh() override;
  void applyTheme() override;
  HBRUSH colours(HDC dc, HWND window) override;
  bool hasMnemonic() const override { return !control().caption().empty(); }

 protected:
  /// The control itself. It is created after the caption: screen readers take the control before
  /// it for its label.
  void setControl(OwnedWindow control) { control_ = std::move(control); }
  /// Whether the caption has the mark of a required field.
  virtual bool isMarked() const { return false; }
  /// It looks enabled or disabled now and did not before; what surrounds the control is drawn
  /// again.
  virtual void enabledChanged();
  void describe(Inspection& inspection) override;

 private:
  void makeCaption(HWND parent);

  bool lookedEnabled_ = true;  ///< when it was last refreshed
  bool headsColumn_ = false;   ///< the caption stands above the field, as the head of a column
  OwnedWindow caption_;        ///< null while it has none
  OwnedWindow control_;
};

}  // namespace kebu::windows
