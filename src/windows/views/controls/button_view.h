#pragma once

#include "controls/simple_controls.h"
#include "windows/views/controls/view.h"

namespace kebu::windows {

class ButtonView : public View {
 public:
  ButtonView(ViewSite& site, controls::Button& model, HWND parent);

  HWND handle() const override { return window_.get(); }
  void refresh() override;
  void command(HWND from, UINT code) override;
  void drawItem(const DRAWITEMSTRUCT& item) override;
  std::function<void()> actionFor(const Key& key) override;
  bool hasMnemonic() const override { return true; }
  void reachByMnemonic() override;

 protected:
  void describe(Inspection& inspection) override;

 private:
  void click();

  controls::Button& model_;
  OwnedWindow window_;
};

}  // namespace kebu::windows
