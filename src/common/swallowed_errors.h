#pragma once

#include <string_view>

#include "common/error.h"
#include "common/platform.h"

namespace kebu {

/// Writes an error that nobody is told of to the debugger's output, with the place where it was
/// ignored. A line is "KVRE:|place|number|source|description".
void traceIgnored(Platform& platform, std::string_view place, const RuntimeError& error) noexcept;

/// Runs a statement and ignores its failure, but for a line in the debugger's output.
template <class Statement>
void ignoringErrors(Platform& platform, std::string_view place, Statement&& statement) noexcept {
  try {
    statement();
  } catch (...) {
    traceIgnored(platform, place, RuntimeError::current());
  }
}

}  // namespace kebu
