#include "common/swallowed_errors.h"

#include <string>

#include "common/trap.h"

namespace kebu {

void traceIgnored(Platform& platform, std::string_view place, const RuntimeError& error) noexcept {
  ignoringErrors([&] {
    platform.outputDebugString("KVRE:|" + std::string(place) + "|" +
                               std::to_string(error.number()) + "|" + error.source() + "|" +
                               error.description());
  });
}

}  // namespace kebu
