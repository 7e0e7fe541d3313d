#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "workbench/ado/manners.h"
#include "workbench/engine/execution/database.h"
#include "workbench/host/translations.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {

/// What a scenario is played on, and where its logs go.
struct PlayOptions {
  std::shared_ptr<engine::Database> database;
  /// On Windows: the database that this connection string names instead, through ADO.
  std::optional<std::string> connection;
  std::int32_t company = 1;
  Translations translations;
  /// Takes the statement log, one JSON object a line.
  std::ostream& statements;
  /// Takes the plug-in's trace lines.
  std::ostream& trace;
  /// Of the database objects.
  Manners manners;
  /// The folder for pictures of the window; without one none are taken.
  std::optional<std::string> pictures;
};

/// Plays the scenario and prints its steps on the standard output: on the
/// plug-in's models, or on Windows in the real window of the DLL. Returns whether
/// every line could be played and every expectation held.
bool playScenario(const Scenario& scenario, const PlayOptions& options);

}  // namespace kebu::workbench
