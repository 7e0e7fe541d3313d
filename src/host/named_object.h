#pragma once

#include <string>

#include "common/value.h"

namespace kebu::host {

/// A window or control as the host's layout and script models know it.
class NamedObject : public Object {
 public:
  virtual std::string Name() const = 0;
  virtual void setName(const std::string& name) = 0;
};

}  // namespace kebu::host
