#pragma once

namespace kebu::workbench {

/// While it lives the plug-in finds none of the user's arrangements, such as the order of a grid: a
/// scenario must give the same results for everybody. Then the user's are there again.
class SettingsAside {
 public:
  SettingsAside();
  ~SettingsAside();
  SettingsAside(const SettingsAside&) = delete;
  SettingsAside& operator=(const SettingsAside&) = delete;
};

}  // namespace kebu::workbench
