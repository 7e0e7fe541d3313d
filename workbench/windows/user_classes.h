#pragma once

#include "windows/support/handles.h"

namespace kebu::workbench {

/// While it lives, what this process registers under HKEY_CLASSES_ROOT is registered for the
/// current user alone: under HKEY_CURRENT_USER, where a user may write without being an
/// administrator.
class UserClasses {
 public:
  /// CommandError when the registry cannot be redirected.
  UserClasses();
  ~UserClasses();
  UserClasses(const UserClasses&) = delete;
  UserClasses& operator=(const UserClasses&) = delete;

 private:
  windows::OwnedKey classes_;
};

}  // namespace kebu::workbench
