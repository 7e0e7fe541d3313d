#pragma once

#include <functional>
#include <utility>

#include "ado/connection.h"
#include "controls/desktop.h"

namespace kebu::forms {

/// While it exists, the window works, and the screen is painted during the statements of a
/// connection. Only for long statements: painting makes each of them a little slower. A statement
/// is cancelled when `goOn`, which is called in between, gives false.
class PaintedMeanwhile {
 public:
  PaintedMeanwhile(
      const Ref<ado::Connection>& connection, controls::Desktop& desktop,
      std::function<bool()> goOn = [] { return true; })
      : work_(desktop), connection_(connection) {
    if (!connection_) return;
    connection_->whileExecuting([&desktop, goOn = std::move(goOn)] {
      desktop.repaint();
      return goOn();
    });
  }
  PaintedMeanwhile(const PaintedMeanwhile&) = delete;
  PaintedMeanwhile& operator=(const PaintedMeanwhile&) = delete;
  ~PaintedMeanwhile() {
    if (connection_) connection_->whileExecuting({});
  }

 private:
  controls::Work work_;
  Ref<ado::Connection> connection_;
};

}  // namespace kebu::forms
