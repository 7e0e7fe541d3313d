#pragma once

#include <string>

namespace kebu {

/// Keeps what the user has arranged, such as the widths of columns, from one session to the next.
/// It is kept for the user and not for the company. Nothing depends on it: what cannot be read or
/// kept counts as not arranged.
class SettingStore {
 public:
  virtual ~SettingStore() = default;
  /// "" when nothing is kept under the name.
  virtual std::string setting(const std::string& name) = 0;
  /// Nothing is kept any more for "".
  virtual void keepSetting(const std::string& name, const std::string& value) = 0;
};

}  // namespace kebu
