#include <iostream>

#include "plugin/clskb_anagkelmoria.h"
#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_log.h"
#include "workbench/cli/performance.h"
#include "workbench/host/local_platform.h"
#include "workbench/player/model_desktop.h"
#include "workbench/player/model_hands.h"
#include "workbench/player/player.h"

namespace kebu::workbench {

bool perform(const Scenario& scenario, const Performance& performance) {
  // The plug-in is let go before anything that it may still turn to.
  Player player(std::cout, std::cerr);
  StatementFaults faults;
  StatementLog log(performance.statements, faults);
  LocalPlatform platform(player, performance.trace);
  ModelDesktop desktop(player);
  ModelHands hands(desktop);
  AdoLibrary library;
  engine::Session session(performance.database);
  const auto createPlugin = [&] {
    return plugin::CLSKB_ANAGKELMORIA::create({platform, library, desktop});
  };
  const auto journal = [](const std::string& entry) { std::cout << "  " << entry << '\n'; };
  StandInHost host(createPlugin, {player, embeddedCompany(performance.database, &log),
                                  performance.company, performance.translations, journal});
  return player.play(scenario, {host, hands, session, faults});
}

}  // namespace kebu::workbench
