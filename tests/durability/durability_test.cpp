// What stays in the database file when the program is killed while it saves, when the disk is full,
// when the file is damaged, locked or must not be written, and when two programs work on it.
//
// KEBU_DURABILITY_SEED is the seed of what is drawn by chance; KEBU_KILLS, KEBU_FULL_DISKS,
// KEBU_DAMAGED_FILES and KEBU_PROCESS_PAIRS tell how much of it.

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <memory>
#include <string>

#include "tests/durability/faulty_files.h"
#include "tests/faults/faulty_run.h"
#include "tests/support/environment.h"
#include "tests/support/random.h"
#include "tests/support/scratch_file.h"
#include "workbench/cli/company_file.h"
#include "workbench/engine/sqlite.h"

namespace kebu::tests {
namespace {

using workbench::Scenario;

constexpr std::int32_t company = 1;

/// Scenarios of tests/faults that save, each its own tables.
constexpr const char* savingScenarios[] = {"categories",  "deleting",    "deposits",
                                           "discounts",   "filters",     "parameters",
                                           "price_lists", "price_update"};

const Scenario& scenarioNamed(const std::string& name) {
  static std::map<std::string, Scenario> read;
  const auto found = read.find(name);
  if (found != read.end()) return found->second;
  std::ifstream file(std::filesystem::path(FAULT_SCENARIOS) / (name + ".scenario"));
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  return read.emplace(name, Scenario::parse(name, text)).first->second;
}

/// A new company file's bytes.
const std::string& newCompany() {
  static const std::string bytes = [] {
    const ScratchFile file;
    workbench::createCompanyFile(file.path());
    return file.content();
  }();
  return bytes;
}

Lines rowsIn(const std::string& path) {
  engine::Session session(engine::Database::openFile(path));
  return writtenRows(session);
}

/// What SQLite finds wrong with the file; "ok" for nothing.
std::string integrityOf(const std::string& path) {
  const auto database = engine::Database::openFile(path);
  sqlite3_stmt* made = nullptr;
  sqlite3_prepare_v2(database->handle(), "PRAGMA integrity_check", -1, &made, nullptr);
  const engine::Prepared statement(made);
  if (sqlite3_step(made) != SQLITE_ROW) return sqlite3_errmsg(database->handle());
  return reinterpret_cast<const char*>(sqlite3_column_text(made, 0));
}

/// The window is closed, whatever happened in it, and no error has left the plug-in.
void expectClosed(FaultyRun& run) {
  run.dropAnswers();
  if (run.isOpen()) run.play(Scenario::parse("closing", "answer no\nclose"));
  EXPECT_FALSE(run.isOpen()) << "the window cannot be closed";
  EXPECT_EQ(run.complaints().find(": error "), std::string::npos) << run.complaints();
}

/// A window on the file opens, shows its pages and closes without an error.
void expectUsable(const std::string& path) {
  FaultyRun run(engine::Database::openFile(path), company, {});
  EXPECT_TRUE(run.play(Scenario::parse(
      "afterwards", "open\npage 2\nexpect GRPMAIN_LISTINI visible = true\npage 6\npage 3\nclose")))
      << run.complaints();
  EXPECT_EQ(run.errors(), Lines());
}

/// A scenario played without faults on a file.
struct UsualRun {
  std::vector<std::string> files;  ///< its bytes at first and at the end of each transaction
  std::int64_t operations = 0;     ///< writes to files, and deletions of them

  Lines rowsAfter(std::size_t transactions) const {
    return rowsIn(ScratchFile(files.at(transactions)).path());
  }
  Lines rowsAtEnd() const { return rowsAfter(files.size() - 1); }
};

/// Also sees that every statement is one transaction, which is carried out whole or not at all.
UsualRun playUsually(const Scenario& scenario) {
  UsualRun usual;
  usual.files.push_back(newCompany());
  const ScratchFile file(newCompany());
  FaultyRun run(engine::Database::openFile(file.path()), company, {});
  std::map<std::size_t, int> transactions;  // by the number of the statement
  faultyfiles::reset();
  faultyfiles::whenTransactionEnds([&] {
    usual.files.push_back(file.content());
    ++transactions[run.statements().size()];
  });
  EXPECT_TRUE(run.play(scenario)) << run.complaints();
  EXPECT_EQ(run.errors(), Lines());
  faultyfiles::whenTransactionEnds(nullptr);
  usual.operations = faultyfiles::operations();
  for (const auto& [statement, count] : transactions) {
    const std::string& text = run.statements().at(statement - 1);
    const bool isProcedure = text.find("EXEC") == 0 || text.find("exec") == 0;
    EXPECT_TRUE(count == 1 || isProcedure) << count << " transactions of " << text;
  }
  return usual;
}

class Durability : public testing::Test {
 protected:
  static void SetUpTestSuite() { faultyfiles::install(); }
  ~Durability() override {
    faultyfiles::reset();
    faultyfiles::setReadOnly(false);
    faultyfiles::whenTransactionEnds(nullptr);
  }

  static const UsualRun& usual(const std::string& scenario) {
    static std::map<std::string, UsualRun> played;
    const auto found = played.find(scenario);
    if (found != played.end()) return found->second;
    return played.emplace(scenario, playUsually(scenarioNamed(scenario))).first->second;
  }

  /// A file that something happens to while a scenario is played on it.
  struct Accident {
    std::string name;  ///< of the scenario
    const UsualRun& usual;
    std::int64_t at;  ///< the operation, from 1
    ScratchFile file{newCompany()};
  };
  static Accident chosenBy(Random& random) {
    const std::string name = random.of(savingScenarios);
    const UsualRun& whole = usual(name);
    const auto operations = static_cast<std::size_t>(whole.operations);
    return {name, whole, 1 + static_cast<std::int64_t>(random.below(operations))};
  }

  /// Does something so many times, each time with a seed of its own. Stops at the first failure.
  template <class Action>
  void repeat(const char* variable, std::uint64_t usualTimes, Action&& action) {
    const std::uint64_t first = numberFrom("KEBU_DURABILITY_SEED", 1);
    RecordProperty("seed", static_cast<int>(first));
    for (std::uint64_t i = 0; i < numberFrom(variable, usualTimes); ++i) {
      SCOPED_TRACE("KEBU_DURABILITY_SEED=" + std::to_string(first + i) + ' ' + variable + "=1");
      Random random(first + i);
      action(random);
      if (HasFailure()) return;
    }
  }
};

/// A number that a child process leaves its parent, even when it is killed.
class SharedNumber {
 public:
  SharedNumber()
      : place_(
            static_cast<std::int64_t*>(mmap(nullptr, sizeof(std::int64_t), PROT_READ | PROT_WRITE,
                                            MAP_SHARED | MAP_ANONYMOUS, -1, 0))) {
    if (place_ == MAP_FAILED) throw std::runtime_error("no shared memory");
    *place_ = 0;
  }
  ~SharedNumber() { munmap(place_, sizeof(std::int64_t)); }
  SharedNumber(const SharedNumber&) = delete;
  SharedNumber& operator=(const SharedNumber&) = delete;

  std::int64_t& operator*() const { return *place_; }

 private:
  std::int64_t* place_;
};

/// Runs `work` in a process of its own, which ends with its result.
template <class Work>
pid_t start(Work&& work) {
  // What is still to be written would be written by both processes.
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child != 0) return child;
  int result = 1;
  try {
    result = work();
  } catch (const std::exception& error) {
    std::cerr << error.what() << std::endl;
  }
  _exit(result);
}

int endOf(pid_t child) {
  int status = 0;
  waitpid(child, &status, 0);
  return status;
}

TEST_F(Durability, AKillWhileSavingLeavesWhatWasDoneBefore) {
  repeat("KEBU_KILLS", 3, [&](Random& random) {
    const Accident accident = chosenBy(random);
    const UsualRun& whole = accident.usual;
    const ScratchFile& file = accident.file;
    SCOPED_TRACE(accident.name + ", operation " + std::to_string(accident.at));
    const SharedNumber ended;
    const int status = endOf(start([&] {
      FaultyRun run(engine::Database::openFile(file.path()), company, {});
      faultyfiles::reset();
      faultyfiles::whenTransactionEnds([&] { ++*ended; });
      faultyfiles::killAt(accident.at);
      run.play(scenarioNamed(accident.name));
      return 0;
    }));
    ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL) << status;
    EXPECT_EQ(integrityOf(file.path()), "ok");
    EXPECT_EQ(rowsIn(file.path()), whole.rowsAfter(static_cast<std::size_t>(*ended)));
    expectUsable(file.path());
  });
}

TEST_F(Durability, AFullDiskIsToldAndCostsNothingThatIsStored) {
  repeat("KEBU_FULL_DISKS", 2, [&](Random& random) {
    const Accident accident = chosenBy(random);
    const UsualRun& whole = accident.usual;
    const ScratchFile& file = accident.file;
    SCOPED_TRACE(accident.name + ", operation " + std::to_string(accident.at));
    std::size_t ended = 0;
    {
      FaultyRun run(engine::Database::openFile(file.path()), company, {});
      faultyfiles::reset();
      faultyfiles::fillDiskAt(accident.at);
      std::size_t endedBefore = 0;
      faultyfiles::whenTransactionEnds([&] {
        if (faultyfiles::operations() < accident.at) ++endedBefore;
      });
      run.play(scenarioNamed(accident.name));
      expectClosed(run);
      ended = endedBefore;
      // The last transaction may have needed nothing more of the disk.
      const bool isTold = std::ranges::any_of(run.errors(), [](const std::string& error) {
        return error.find("the disk is full") != std::string::npos;
      });
      EXPECT_TRUE(isTold || rowsIn(file.path()) == whole.rowsAtEnd());
    }
    faultyfiles::reset();
    faultyfiles::whenTransactionEnds(nullptr);
    EXPECT_EQ(integrityOf(file.path()), "ok");
    const Lines rows = rowsIn(file.path());
    EXPECT_TRUE(rows == whole.rowsAfter(ended) || rows == whole.rowsAfter(ended + 1));
    expectUsable(file.path());
  });
}

TEST_F(Durability, AFileThatMustNotBeWrittenIsToldSo) {
  const ScratchFile file(newCompany());
  faultyfiles::setReadOnly(true);
  for (const char* name : {"categories", "price_lists"}) {
    SCOPED_TRACE(name);
    FaultyRun run(engine::Database::openFile(file.path()), company, {});
    run.play(scenarioNamed(name));
    expectClosed(run);
    EXPECT_TRUE(std::ranges::any_of(run.errors(), [](const std::string& error) {
      return error.find("read-only") != std::string::npos;
    }));
    EXPECT_EQ(file.content(), newCompany());
  }
}

TEST_F(Durability, ALockedFileIsWaitedForWithRetry) {
  const ScratchFile file(newCompany());
  const auto database = engine::Database::openFile(file.path());
  sqlite3_busy_timeout(database->handle(), 0);
  const auto other = engine::Database::openFile(file.path());
  FaultyRun run(database, company, {});
  ASSERT_TRUE(
      run.play(Scenario::parse("before", "open\npage 3\ntick-cell QGRID_DEP 2 FLG_ATTIVO")));
  other->run("BEGIN EXCLUSIVE");
  int waited = 0;
  run.answerErrors([&](const std::string& error) {
    EXPECT_NE(error.find("Lock request time out period exceeded."), std::string::npos) << error;
    if (++waited == 3) other->run("ROLLBACK");
    return msgbox::retry;
  });
  EXPECT_TRUE(run.play(Scenario::parse(
      "after",
      "press INAV_PAR Conferma\nexpect sql \"SELECT COUNT(*) FROM GM56_KBDEPOSITI WHERE "
      "GM56_IDDISPOSITIVO_GM03 = 2\" = 2\nclose")))
      << run.complaints();
  EXPECT_EQ(waited, 3);
}

/// The bytes with some of them changed, or cut.
std::string damaged(std::string bytes, Random& random) {
  const std::size_t damages = 1 + random.below(20);
  for (std::size_t i = 0; i < damages; ++i) {
    bytes[random.below(bytes.size())] = static_cast<char>(random.below(256));
  }
  // The beginning holds what the rest hangs on.
  constexpr std::size_t header = 100;
  if (random.oneIn(4)) bytes[random.below(header)] = static_cast<char>(random.below(256));
  if (random.oneIn(8)) bytes.resize(random.below(bytes.size()));
  return bytes;
}

TEST_F(Durability, ADamagedFileIsRefusedOrItsErrorsAreTold) {
  std::size_t opened = 0;
  repeat("KEBU_DAMAGED_FILES", 6, [&](Random& random) {
    const ScratchFile file(damaged(newCompany(), random));
    const std::string name = random.of(savingScenarios);
    SCOPED_TRACE(name);
    std::shared_ptr<engine::Database> database;
    try {
      database = engine::Database::openFile(file.path());
    } catch (const RuntimeError& error) {
      EXPECT_NE(error.description().find(file.path()), std::string::npos) << error.description();
      return;
    }
    ++opened;
    FaultyRun run(database, company, {});
    run.play(scenarioNamed(name));
    expectClosed(run);
    for (const std::string& error : run.errors()) {
      EXPECT_EQ(error.find("Internal error"), std::string::npos) << error;
    }
  });
  RecordProperty("opened", static_cast<int>(opened));
}

bool isOf(const std::string& row, std::initializer_list<const char*> tables) {
  return std::ranges::any_of(tables, [&](const char* table) { return row.starts_with(table); });
}

// One user changes the profile and another its categories or discount rules, both at once.
TEST_F(Durability, TwoProcessesSaveAtTheSameTime) {
  constexpr const char* profileScenarios[] = {"deposits", "price_lists", "parameters", "filters"};
  constexpr const char* otherScenarios[] = {"categories", "discounts"};
  repeat("KEBU_PROCESS_PAIRS", 1, [&](Random& random) {
    const std::string names[] = {random.of(profileScenarios), random.of(otherScenarios)};
    SCOPED_TRACE(names[0] + " and " + names[1]);
    const ScratchFile file(newCompany());
    std::array<int, 2> gate{};
    ASSERT_EQ(pipe(gate.data()), 0);
    std::array<pid_t, 2> children{};
    for (std::size_t i = 0; i < children.size(); ++i) {
      children[i] = start([&] {
        FaultyRun run(engine::Database::openFile(file.path()), company, {});
        const Scenario& scenario = scenarioNamed(names[i]);
        close(gate[1]);
        char opened = 0;
        while (read(gate[0], &opened, 1) > 0) {
        }
        const bool played = run.play(scenario);
        for (const std::string& error : run.errors()) std::cerr << error << std::endl;
        std::cerr << run.complaints() << std::flush;
        return played && run.errors().empty() ? 0 : 1;
      });
    }
    close(gate[0]);
    close(gate[1]);
    for (const pid_t child : children) EXPECT_EQ(endOf(child), 0);
    EXPECT_EQ(integrityOf(file.path()), "ok");
    Lines expected;
    const auto take = [&](const std::string& name, bool ofOthers) {
      for (const std::string& row : usual(name).rowsAtEnd()) {
        if (isOf(row, {"GM19_", "GM61_"}) == ofOthers) expected.push_back(row);
      }
    };
    take(names[0], false);
    take(names[1], true);
    Lines found = rowsIn(file.path());
    std::ranges::sort(expected);
    std::ranges::sort(found);
    EXPECT_EQ(found, expected);
  });
}

}  // namespace
}  // namespace kebu::tests
