#pragma once

#include <ostream>

#include "workbench/cli/play_scenario.h"
#include "workbench/windows/remote_database.h"

namespace kebu::workbench {

/// Where a scenario's steps and what is wrong with them are printed.
struct PlayOutput {
  std::ostream& steps;
  std::ostream& complaints;
};

/// Plays the scenario in the real window on the embedded database.
bool playOnEngine(const Scenario& scenario, const PlayOptions& options, const PlayOutput& output);
/// The same on another database, whose statements are neither recorded nor made to fail.
bool playOnRemote(const Scenario& scenario, const PlayOptions& options, const PlayOutput& output,
                  const RemoteDatabase& remote);

/// The line of the first step that makes a statement fail, which is possible on the embedded
/// database alone; 0 for none.
int lineOfFirstFault(const Scenario& scenario);

}  // namespace kebu::workbench
