#pragma once

#include "controls/simple_controls.h"
#include "windows/support/text.h"
#include "windows/views/controls/view.h"

namespace kebu::windows {

/// A text: a label, the description of a code, or the title of a page.
class LabelView : public View {
 public:
  LabelView(ViewSite& site, controls::Label& model, HWND parent);
  LabelView(ViewSite& site, controls::TitleBar& model, HWND parent);

  HWND handle() const override { return window_.get(); }
  void refresh() override {
    setWindowText(handle(), toWide(isUnknown() ? label_->unknownText() : control().caption()));
  }
  void applyTheme() override;
  HBRUSH colours(HDC dc, HWND window) override;

 private:
  enum class Role { Text, Warning, Title };

  /// Whether it shows that a code was not found.
  bool isUnknown() const;

  const controls::Label* label_ = nullptr;  ///< null for a title
  Role role_;
  OwnedWindow window_;
};

}  // namespace kebu::windows
