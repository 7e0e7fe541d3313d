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
  void refresh() override;
  void applyTheme() override;
  HBRUSH colours(HDC dc, HWND window) override;
  void setMnemonic(std::size_t at) override;
  bool hasMnemonic() const override { return !control().caption().empty(); }

 protected:
  /// The control itself; made after the caption, which then names it to readers.
  void setControl(OwnedWindow control) { control_ = std::move(control); }
  /// Whether the caption carries the mark of what must be given.
  virtual bool isMarked() const { return false; }
  void describe(Inspection& inspection) override;

 private:
  void makeCaption(HWND parent);

  OwnedWindow caption_;       ///< null while it has none
  bool headsColumn_ = false;  ///< the caption stands above, for the fields below too
  OwnedWindow control_;
  std::size_t mnemonic_ = std::string::npos;
};

}  // namespace kebu::windows
