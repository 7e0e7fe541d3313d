#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "workbench/engine/execution/database.h"
#include "workbench/host/translations.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

/// What a scenario is played with.
struct Performance {
  std::shared_ptr<engine::Database> database;
  std::int32_t company = 1;
  Translations translations;
  std::ostream& statements;
  std::ostream& trace;
  /// A folder for the pictures of the window; nothing to take none.
  std::optional<std::string> pictures;
};

/// Plays the scenario: on the plug-in's models, or on Windows in the real
/// window of the real DLL. Whether every line could be played and every
/// expectation held.
bool perform(const Scenario& scenario, const Performance& performance);

}  // namespace kebu::workbench
