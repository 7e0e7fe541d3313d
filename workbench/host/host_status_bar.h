#pragma once

#include <array>
#include <memory>
#include <string>

#include "host/services.h"

namespace kebu::workbench {

/// A panel of the host's status bar, which keeps its text.
class HostStatusBarPanel : public host::StatusBarPanel {
 public:
  void setText(const std::string& text) override { text_ = text; }
  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

/// The status bar of the host's own window, with two panels.
class HostStatusBar : public host::StatusBar, public std::enable_shared_from_this<HostStatusBar> {
 public:
  using AllPanels = std::array<Ref<HostStatusBarPanel>, 2>;

  Ref<host::StatusBarPanel> Panels(std::int32_t item) override {
    constexpr std::int32_t indexOutOfBounds = 35600;
    const auto index = static_cast<std::size_t>(item) - 1;
    if (index >= panels_.size()) throw RuntimeError(indexOutOfBounds, "Index out of bounds");
    return panels_[index];
  }
  const AllPanels& panels() const { return panels_; }

 private:
  AllPanels panels_{makeRef<HostStatusBarPanel>(), makeRef<HostStatusBarPanel>()};
};

}  // namespace kebu::workbench
