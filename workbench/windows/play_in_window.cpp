#include "workbench/windows/play_in_window.h"

#include <iostream>
#include <thread>

#include "workbench/ado/ado_objects.h"
#include "workbench/ado/statement_log.h"
#include "workbench/cli/command_line.h"
#include "workbench/player/player.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/class_objects.h"
#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/person.h"
#include "workbench/windows/settings_aside.h"
#include "workbench/windows/trace_listener.h"
#include "workbench/windows/window_hands.h"
#include "workbench/windows/window_thread.h"

namespace kebu::workbench {

namespace {

/// The database that a scenario is played on.
struct Played {
  const CompanyDatabase& company;
  /// Whether `sql` must run on the window's thread.
  bool inWindowThread;
  SqlRunner sql;
  StatementFaults& faults;
};

/// Who sees the host's message boxes. The scenario answers them without a window; only a box of
/// which a picture is wanted is shown, and then the hands answer it like the system's own boxes.
class HostUser final : public User {
 public:
  HostUser(Player& player, const WindowHands& hands) : player_(player), hands_(hands) {}

  std::int32_t answer(const ShownMessage& box) override {
    return hands_.wantsNextPicture() ? Person().answer(box) : player_.answer(box);
  }
  void chooseFrom(ShownList& list) override { player_.chooseFrom(list); }
  void workIn(controls::Form& form) override { player_.workIn(form); }

 private:
  Player& player_;
  const WindowHands& hands_;
};

bool play(const Scenario& scenario, const PlayOptions& options, const PlayOutput& output,
          Player& player, const Played& played) {
  // The host is declared last, so that the plug-in is released before anything that it still uses.
  const SettingsAside settings;
  const TraceListener trace(options.trace);
  const PluginLibrary plugin(PluginLibrary::besideProgram());
  WindowThread thread;
  WindowHands hands(thread, player, options.pictures);
  HostUser user(player, hands);
  const auto journal = [&](const std::string& entry) { output.steps << "  " << entry << '\n'; };
  StandInHost host([&] { return newPlugin(plugin); },
                   {user, played.company, options.company, options.translations, journal});

  const auto atHost = [&](std::function<void()> work) { hands.atHost(std::move(work)); };
  SqlRunner sql = played.sql;
  if (played.inWindowThread) {
    sql = [&](const std::string& batch) {
      std::vector<engine::ResultSet> results;
      atHost([&] { results = played.sql(batch); });
      return results;
    };
  }
  bool passed = false;
  std::thread scenarioThread([&] {
    passed = player.play(scenario, {host, hands, sql, played.faults, atHost});
    thread.leave();
  });
  thread.pump();
  scenarioThread.join();
  return passed;
}

}  // namespace

bool playOnEngine(const Scenario& scenario, const PlayOptions& options, const PlayOutput& output) {
  const Apartment apartment;
  Player player(output.steps, output.complaints);
  StatementFaults faults;
  StatementLog log(options.statements, faults);
  const CompanyDatabase company = embeddedCompany(options.database, &log, options.manners);
  AdoLibrary objects;
  const ClassObjects classes(objects, company.forPlugin);
  engine::Session session(options.database);
  return play(
      scenario, options, output, player,
      {company, false, [&](const std::string& batch) { return session.execute(batch); }, faults});
}

bool playOnRemote(const Scenario& scenario, const PlayOptions& options, const PlayOutput& output,
                  const RemoteDatabase& remote) {
  Player player(output.steps, output.complaints);
  StatementFaults faults;
  const CompanyDatabase company = remote.company();
  return play(scenario, options, output, player, {company, true, remote.runner(), faults});
}

int lineOfFirstFault(const Scenario& scenario) {
  for (const ScenarioLine& line : scenario.lines()) {
    if (line.words.empty()) continue;
    const std::string& step = line.words.front();
    if (step == "fail" || step == "lose" || step == "slow" || step == "interrupt") {
      return line.number;
    }
  }
  return 0;
}

bool playScenario(const Scenario& scenario, const PlayOptions& options) {
  const PlayOutput output{std::cout, std::cerr};
  if (!options.connection) return playOnEngine(scenario, options, output);
  if (const int line = lineOfFirstFault(scenario)) {
    throw CommandError(scenario.name() + ":" + std::to_string(line) +
                       ": statements can be made to fail on the workbench's own database alone");
  }
  const Apartment apartment;
  const RemoteDatabase remote(*options.connection);
  return playOnRemote(scenario, options, output, remote);
}

}  // namespace kebu::workbench
