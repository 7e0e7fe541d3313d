#pragma once

#include <string>

#include "common/platform.h"

namespace kebu {

/// The identifier of an instance of a class or window, and the lines that are
/// written to the debugger when the instance is made and when it ends.
class InstanceTrace {
 public:
  InstanceTrace(Platform& platform, std::string className)
      : platform_(platform), className_(std::move(className)) {}

  /// 32 hexadecimal digits, made on first use and kept; "" when the system
  /// cannot make a GUID.
  const std::string& InstanceGuid();
  void initialized() { write("INI"); }
  void terminated() { write("TER"); }

 private:
  std::string NewGuidString();
  void write(const std::string& event);

  Platform& platform_;
  std::string className_;
  std::string guid_;
};

}  // namespace kebu
