#pragma once

#include <functional>
#include <string_view>

#include "workbench/engine/execution/session.h"

namespace kebu::engine {

/// Gives the batches of a script, which are separated by lines that hold only GO, to `run`, each
/// with the script's line at which it begins, from 1.
void forEachBatch(std::string_view script,
                  const std::function<void(const std::string& batch, int line)>& run);
/// Runs the batches up to the first error. The text of the SqlError names the script's line at
/// which the failing batch begins.
void runScript(Session& session, std::string_view script);

}  // namespace kebu::engine
