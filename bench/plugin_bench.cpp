// The plug-in at work, each action beside its floor: the same statements straight on the engine.

#include <iterator>
#include <memory>

#include "bench/workplace.h"

namespace kebu::workbench {
namespace {

void OpenWindow(benchmark::State& state) {
  Workplace workplace;
  for (auto _ : state) {
    workplace.open();
    state.PauseTiming();
    workplace.close();
    state.ResumeTiming();
  }
}

void OpenWindow_floor(benchmark::State& state) {
  Workplace workplace;
  const Statements statements = workplace.statementsOf([&] { workplace.open(); });
  workplace.close();
  for (auto _ : state) {
    // The window works on a connection of its own, too.
    auto session = std::make_unique<engine::Session>(workplace.database());
    replay(*session, statements);
    state.PauseTiming();
    session.reset();  // with the working tables
    state.ResumeTiming();
  }
}

void SaveProfile(benchmark::State& state) {
  Workplace workplace;
  workplace.open();
  for (auto _ : state) workplace.save();
  workplace.close();
}

void SaveProfile_floor(benchmark::State& state) {
  Workplace workplace;
  workplace.open();  // for the working tables, which all sessions see
  workplace.save();
  // An edit names the row's values before it, so that two saves take turns.
  const Statements saves[] = {workplace.statementsOf([&] { workplace.save(); }),
                              workplace.statementsOf([&] { workplace.save(); })};
  engine::Session session(workplace.database());
  std::size_t turn = 0;
  for (auto _ : state) replay(session, saves[turn++ % std::size(saves)]);
  workplace.close();
}

BENCHMARK(OpenWindow)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenWindow_floor)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveProfile)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveProfile_floor)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kebu::workbench
