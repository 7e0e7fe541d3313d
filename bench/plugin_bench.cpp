// The plug-in at work, each action beside its floor: the same statements straight on the engine.

#include <filesystem>
#include <iterator>
#include <memory>

#include "bench/workplace.h"

namespace kebu::workbench {
namespace {

/// Blocks that closing gave back are joined with their neighbours at the next large
/// request, which would else be one of the opening to come.
void settleHeap() {
  constexpr std::size_t large = 2048;
  benchmark::DoNotOptimize(std::make_unique<char[]>(large).get());
}

enum class Place { Memory, File };

/// The demo company: in memory, where nothing hides what the plug-in costs, or in a file,
/// as people work with it. The file goes with it.
class Company {
 public:
  explicit Company(Place place)
      : database_(place == Place::Memory ? demoCompany() : companyInFile()) {}
  Company(const Company&) = delete;
  Company& operator=(const Company&) = delete;
  ~Company() {
    database_.reset();
    std::filesystem::remove_all(folder());
  }
  const std::shared_ptr<engine::Database>& database() const { return database_; }

 private:
  static std::filesystem::path folder() {
    return std::filesystem::temp_directory_path() / "kebu_plugin_bench";
  }
  static std::shared_ptr<engine::Database> companyInFile() {
    std::filesystem::remove_all(folder());
    std::filesystem::create_directory(folder());
    const std::string path = (folder() / "company.db").string();
    createCompanyFile(path);
    return openCompany(path);
  }

  std::shared_ptr<engine::Database> database_;
};

void OpenWindow(benchmark::State& state, Place place) {
  const Company company(place);
  Workplace workplace(company.database());
  for (auto _ : state) {
    workplace.open();
    state.PauseTiming();
    workplace.close();
    settleHeap();
    state.ResumeTiming();
  }
}

void OpenWindow_floor(benchmark::State& state, Place place) {
  const Company company(place);
  Workplace workplace(company.database());
  const Statements statements = workplace.statementsOf([&] { workplace.open(); });
  workplace.close();
  for (auto _ : state) {
    // The window works on a connection of its own, too.
    auto session = std::make_unique<engine::Session>(workplace.database());
    replay(*session, statements);
    state.PauseTiming();
    session.reset();  // with the working tables
    settleHeap();
    state.ResumeTiming();
  }
}

void SaveProfile(benchmark::State& state, Place place) {
  const Company company(place);
  Workplace workplace(company.database());
  workplace.open();
  for (auto _ : state) workplace.save();
  workplace.close();
}

void SaveProfile_floor(benchmark::State& state, Place place) {
  const Company company(place);
  Workplace workplace(company.database());
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

BENCHMARK_CAPTURE(OpenWindow, memory, Place::Memory)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenWindow_floor, memory, Place::Memory)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SaveProfile, memory, Place::Memory)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SaveProfile_floor, memory, Place::Memory)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenWindow, file, Place::File)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenWindow_floor, file, Place::File)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SaveProfile, file, Place::File)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SaveProfile_floor, file, Place::File)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace kebu::workbench
