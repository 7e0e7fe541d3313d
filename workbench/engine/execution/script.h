#pragma once

#include <functional>
#include <string_view>

#include "workbench/engine/execution/session.h"

namespace kebu::engine {

/// Runs the batches of a script, which lines that hold only GO separate, and
/// hands on their results. An SqlError gets the line of the script at which the
/// failing batch begins.
void runScript(Session& session, std::string_view script,
               const std::function<void(const ResultSet&)>& onResult = {});

}  // namespace kebu::engine
