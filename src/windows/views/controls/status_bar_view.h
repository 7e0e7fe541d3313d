#pragma once

#include "controls/simple_controls.h"
#include "windows/views/controls/view.h"

namespace kebu::windows {

class StatusBarView : public View {
 public:
  StatusBarView(ViewSite& site, controls::StatusBar& model, HWND parent);

  HWND handle() const override { return window_.get(); }
  void place(const layout::Placement& placement) override;
  void refresh() override;

 protected:
  void describe(Inspection& inspection) override;
  bool describePart(Inspection& inspection) override;

 private:
  void placePanels();

  controls::StatusBar& model_;
  OwnedWindow window_;
};

}  // namespace kebu::windows
