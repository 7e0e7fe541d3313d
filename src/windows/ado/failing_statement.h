#pragma once

#include <string>
#include <utility>

#include "common/error.h"
#include "windows/support/text.h"
#include "windows/support/windows_api.h"

namespace kebu::windows {

/// Makes a call that runs a statement. When it fails the statement is written to the debugger's
/// output, since the error box has the provider's text alone. A line is
/// "KVSE:|number|source|description|statement".
template <class Call>
auto tracingFailure(const std::string& statement, Call&& call) {
  try {
    return std::forward<Call>(call)();
  } catch (const RuntimeError& error) {
    const std::string line = "KVSE:|" + std::to_string(error.number()) + "|" + error.source() +
                             "|" + error.description() + "|" + statement;
    OutputDebugStringA(toAnsi(line).c_str());
    throw;
  }
}

}  // namespace kebu::windows
