#include <iostream>

#include "workbench/ado/statement_log.h"
#include "workbench/cli/play_scenario.h"
#include "workbench/player/model_workplace.h"

namespace kebu::workbench {

bool playScenario(const Scenario& scenario, const PlayOptions& options) {
  Player player(std::cout, std::cerr);
  StatementFaults faults;
  StatementLog log(options.statements, faults);
  ModelWorkplace workplace({
      .user = player,
      .database = options.database,
      .observer = &log,
      .manners = options.manners,
      .company = options.company,
      .translations = options.translations,
      .trace = &options.trace,
      .journal = [](const std::string& entry) { std::cout << "  " << entry << '\n'; },
  });
  return player.play(scenario, workplace.stage(faults));
}

}  // namespace kebu::workbench
