#pragma once

#include <functional>
#include <string_view>

#include "workbench/engine/execution/session.h"

namespace kebu::engine {

/// Runs the batches of a script, which are separated by lines that hold only GO, and gives
/// their results to `onResult`. The text of an SqlError names the script's line at which the
/// failing batch begins.
void runScript(Session& session, std::string_view script,
               const std::function<void(const ResultSet&)>& onResult = {});

}  // namespace kebu::engine
