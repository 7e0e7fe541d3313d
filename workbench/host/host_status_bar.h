#pragma once

#include <map>
#include <string>

#include "host/services.h"

namespace kebu::workbench {

/// The status bar of the host's own window.
class HostStatusBar : public host::StatusBar {
 public:
  void SetPanelText(std::int32_t panel, const std::string& text) override { panels_[panel] = text; }
  const std::map<std::int32_t, std::string>& panels() const { return panels_; }

 private:
  std::map<std::int32_t, std::string> panels_;
};

}  // namespace kebu::workbench
