#pragma once

#include "controls/check_box.h"
#include "windows/views/controls/view.h"

namespace kebu::windows {

class CheckBoxView : public View {
 public:
  CheckBoxView(ViewSite& site, controls::CheckBox& model, HWND parent);

  HWND handle() const override { return window_.get(); }
  void place(const layout::Placement& placement) override;
  void refresh() override;
  void command(HWND from, UINT code) override;
  HBRUSH colours(HDC dc, HWND window) override;
  bool hasMnemonic() const override { return true; }
  void reachByMnemonic() override;

 protected:
  void describe(Inspection& inspection) override;

 private:
  layout::Rect boxIn(const layout::Placement& placement) const;

  controls::CheckBox& model_;
  OwnedWindow window_;
};

}  // namespace kebu::windows
