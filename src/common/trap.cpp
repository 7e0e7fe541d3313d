#include "common/trap.h"

namespace kebu {

ErrorAnswer Steps::report() noexcept {
  try {
    return ErrorAnswer{
        reporter_.VisualizzaErrore(std::string(procedure_), RuntimeError::current())};
  } catch (...) {
    return ErrorAnswer::Abort;
  }
}

bool Steps::wantsRetry() {
  switch (report()) {
    case ErrorAnswer::Retry:
      return true;
    case ErrorAnswer::Ignore:
      return false;
    default:
      throw Leave{this};
  }
}

}  // namespace kebu
