// Plays a scenario in the real window.
#include <iostream>
#include <thread>

#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_log.h"
#include "workbench/cli/play_scenario.h"
#include "workbench/player/player.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/trace_listener.h"
#include "workbench/windows/window_hands.h"
#include "workbench/windows/window_thread.h"

namespace kebu::workbench {

bool playScenario(const Scenario& scenario, const PlayOptions& options) {
  // The host is declared last, so that the plug-in is released before anything that it still uses.
  const Apartment apartment;
  Player player(std::cout, std::cerr);
  StatementFaults faults;
  StatementLog log(options.statements, faults);
  const TraceListener trace(options.trace);
  const CompanyDatabase company = embeddedCompany(options.database, &log, options.manners);
  AdoLibrary objects;
  const ClassObjects classes(objects, company.forPlugin);
  engine::Session session(options.database);
  const PluginLibrary plugin(PluginLibrary::besideProgram());
  WindowThread thread;
  WindowHands hands(thread, player, options.pictures);
  const auto journal = [](const std::string& entry) { std::cout << "  " << entry << '\n'; };
  StandInHost host([&] { return newPlugin(plugin); },
                   {player, company, options.company, options.translations, journal});

  bool passed = false;
  const auto atHost = [&](std::function<void()> work) { hands.atHost(std::move(work)); };
  std::thread user([&] {
    passed = player.play(scenario, {host, hands, session, faults, atHost});
    thread.leave();
  });
  thread.pump();
  user.join();
  return passed;
}

}  // namespace kebu::workbench
