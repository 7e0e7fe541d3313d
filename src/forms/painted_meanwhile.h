#pragma once

#include "ado/connection.h"
#include "controls/desktop.h"

namespace kebu::forms {

/// As long as it lives, the screen is painted while a connection's statements run. For long ones:
/// each costs a little more so.
class PaintedMeanwhile {
 public:
  PaintedMeanwhile(const Ref<ado::Connection>& connection, controls::Desktop& desktop)
      : connection_(connection) {
    if (connection_) connection_->whileExecuting([&desktop] { desktop.repaint(); });
  }
  PaintedMeanwhile(const PaintedMeanwhile&) = delete;
  PaintedMeanwhile& operator=(const PaintedMeanwhile&) = delete;
  ~PaintedMeanwhile() {
    if (connection_) connection_->whileExecuting({});
  }

 private:
  Ref<ado::Connection> connection_;
};

}  // namespace kebu::forms
