// Plays a scenario in the real window.
#include "workbench/cli/performance.h"

#include <iostream>
#include <thread>

#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_log.h"
#include "workbench/player/player.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/trace_listener.h"
#include "workbench/windows/window_hands.h"
#include "workbench/windows/window_thread.h"

namespace kebu::workbench {

bool perform(const Scenario& scenario, const Performance& performance) {
  // The plug-in is let go before anything that it may still turn to.
  const Apartment apartment;
  Player player(std::cout, std::cerr);
  StatementFaults faults;
  StatementLog log(performance.statements, faults);
  const TraceListener trace(performance.trace);
  const CompanyDatabase company = embeddedCompany(performance.database, &log);
  AdoLibrary objects;
  const ClassObjects classes(objects, company.forPlugin);
  engine::Session session(performance.database);
  const PluginLibrary plugin(PluginLibrary::besideProgram());
  WindowThread thread;
  WindowHands hands(thread, player, performance.pictures);
  const auto journal = [](const std::string& entry) { std::cout << "  " << entry << '\n'; };
  StandInHost host([&] { return newPlugin(plugin); },
                   {player, company, performance.company, performance.translations, journal});

  bool held = false;
  const auto atHost = [&](std::function<void()> work) { hands.atHost(std::move(work)); };
  std::thread user([&] {
    held = player.play(scenario, {host, hands, session, faults, atHost});
    thread.leave();
  });
  thread.pump();
  user.join();
  return held;
}

}  // namespace kebu::workbench
