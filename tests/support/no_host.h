#pragma once

#include "controls/control_host.h"

namespace kebu::tests {

/// For controls without a window: raises every error again and answers every message box with OK.
class NoHost : public controls::ControlHost {
 public:
  std::int16_t VisualizzaErrore(const std::string& /*procedure*/,
                                const RuntimeError& error) override {
    throw error;
  }
  std::int32_t message(const std::string& /*text*/, std::int32_t /*style*/) override { return 1; }
};

}  // namespace kebu::tests
