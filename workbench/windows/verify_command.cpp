// The acceptance run: the demo company on somebody's own server.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <set>
#include <sstream>

#include "common/convert.h"
#include "common/error.h"
#include "windows/support/windows_api.h"
#include "workbench/acceptance/database_contents.h"
#include "workbench/acceptance/sql_test_file.h"
#include "workbench/cli/command_line.h"
#include "workbench/cli/commands.h"
#include "workbench/company/company.h"
#include "workbench/company/scripts.h"
#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/script.h"
#include "workbench/windows/apartment.h"
#include "workbench/windows/play_in_window.h"
#include "workbench/windows/plugin_library.h"
#include "workbench/windows/remote_database.h"

namespace kebu::workbench {

namespace {

namespace fs = std::filesystem;

std::string contentOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw CommandError(path.string() + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

/// A scenario, and the rows that it leaves on the embedded database.
struct Expected {
  std::string name;
  Scenario scenario;
  std::int32_t company = 1;
  std::string complaints;  ///< of the run on the embedded database
  DatabaseContents contents;
};

/// The company of a scenario's own first line, "#! --company 2".
std::int32_t companyOf(const std::string& text) {
  constexpr std::string_view mark = "#! ";
  if (!text.starts_with(mark)) return 1;
  const auto words =
      splitWords(std::string_view(text).substr(mark.size(), text.find('\n') - mark.size()));
  return CommandLine(words, {"--company"}).number("--company", 1);
}

PlayOptions optionsFor(const Expected& expected, std::shared_ptr<engine::Database> database,
                       std::ostream& nowhere, std::ostream& trace) {
  return {std::move(database), std::nullopt, expected.company, {}, nowhere, trace, {},
          std::nullopt};
}

/// What the run found, for the report.
struct Findings {
  std::size_t passed = 0;
  std::size_t notRun = 0;
  std::vector<std::string> failed;   ///< names
  std::vector<std::string> details;  ///< of the failed ones

  void fail(const std::string& name, const std::string& detail) {
    failed.push_back(name);
    details.push_back(name + "\n" + detail);
  }
};

class Verification {
 public:
  Verification(std::string connection, fs::path files, std::set<std::string> wanted)
      : connection_(std::move(connection)), files_(std::move(files)), wanted_(std::move(wanted)) {}

  /// Whether all is as it must be.
  bool run(bool clean);
  void writeReport(std::ostream& out) const;

 private:
  bool isWanted(const std::string& name) const { return wanted_.empty() || wanted_.contains(name); }
  void playOnEmbedded();
  void playAll(RemoteDatabase& remote);
  void play(const Expected& expected, RemoteDatabase& remote);
  void runStatements(RemoteDatabase& remote);
  void runSqlTest(const fs::path& path, const StatementTexts& texts, RemoteDatabase& remote);
  static void empty(RemoteDatabase& remote);
  static void load(const RemoteDatabase& remote);

  std::string connection_;
  fs::path files_;
  std::set<std::string> wanted_;  ///< scenarios and files; all when empty
  std::vector<Expected> expected_;
  std::vector<std::string> versions_;
  Findings scenarios_;
  Findings statements_;
  std::ostream nowhere_{nullptr};
};

std::string windowsVersion() {
  const auto getVersion = reinterpret_cast<LONG(WINAPI*)(OSVERSIONINFOW*)>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  if (!getVersion || getVersion(&version) != 0) return "Windows: not told";
  return "Windows: " + std::to_string(version.dwMajorVersion) + "." +
         std::to_string(version.dwMinorVersion) + "." + std::to_string(version.dwBuildNumber);
}

bool Verification::run(bool clean) {
  {
    // Before the work: a wrong connection string, or a database that is in use.
    const RemoteDatabase remote(connection_);
    const std::size_t objects = objectCount(remote.runner());
    if (objects > 0) {
      throw CommandError("the database is not empty, it holds " + std::to_string(objects) +
                         " tables, views or procedures: make one for this run");
    }
  }
  playOnEmbedded();
  RemoteDatabase remote(connection_);
  versions_ = remote.versions();
  versions_.insert(versions_.begin(), windowsVersion());
  playAll(remote);
  runStatements(remote);
  if (clean) empty(remote);
  return scenarios_.failed.empty() && statements_.failed.empty();
}

/// First, since the embedded database takes ADO's place as long as it is played on.
void Verification::playOnEmbedded() {
  for (const fs::path& path : filesIn(files_ / "scenarios")) {
    const std::string name = path.filename().string();
    if (!isWanted(name)) continue;
    const std::string text = contentOf(path);
    Expected expected{name, Scenario::parse(name, text), companyOf(text), "", {}};
    if (lineOfFirstFault(expected.scenario) > 0) {
      ++scenarios_.notRun;
      continue;
    }
    std::cout << name << ": on the embedded database" << std::endl;
    const auto database = demoCompany();
    std::ostringstream complaints;
    playOnEngine(expected.scenario, optionsFor(expected, database, nowhere_, nowhere_),
                 {nowhere_, complaints});
    expected.complaints = complaints.str();
    engine::Session session(database);
    expected.contents =
        contentsOf([&](const std::string& batch) { return session.execute(batch); });
    expected_.push_back(std::move(expected));
  }
}

void Verification::playAll(RemoteDatabase& remote) {
  for (const Expected& expected : expected_) {
    std::cout << expected.name << ": " << std::flush;
    const std::size_t failedBefore = scenarios_.failed.size();
    try {
      play(expected, remote);
    } catch (const RuntimeError& error) {
      scenarios_.fail(expected.name, error.description());
    }
    std::cout << (scenarios_.failed.size() == failedBefore ? "passed" : "FAILED") << std::endl;
  }
}

/// The error boxes in what a scenario printed.
std::string errorBoxes(const std::string& steps) {
  std::string boxes;
  bool isError = false;
  std::istringstream lines(steps);
  for (std::string line; std::getline(lines, line);) {
    const bool isBox = line.starts_with("  | ");
    isError = isBox && (isError || line.starts_with("  | Errore n."));
    if (isError) boxes += line + "\n";
  }
  return boxes;
}

/// The statements that failed in what the plug-in traced, with the provider's errors.
std::string failedStatements(const std::string& trace) {
  constexpr std::string_view mark = "KVSE:|";
  std::string statements;
  std::istringstream lines(trace);
  bool isStatement = false;
  for (std::string line; std::getline(lines, line);) {
    // A statement may have several lines; every other line of the trace begins with a mark as well.
    const bool begins = line.size() > 5 && line.starts_with("KV") && line.substr(4, 2) == ":|";
    isStatement = begins ? line.starts_with(mark) : isStatement;
    if (isStatement) statements += line + "\n";
  }
  return statements;
}

void Verification::play(const Expected& expected, RemoteDatabase& remote) {
  empty(remote);
  load(remote);
  std::ostringstream steps;
  std::ostringstream complaints;
  std::ostringstream trace;
  const bool held = playOnRemote(expected.scenario, optionsFor(expected, nullptr, nowhere_, trace),
                                 {steps, complaints}, remote);
  std::string detail =
      held ? "" : complaints.str() + errorBoxes(steps.str()) + failedStatements(trace.str());
  if (!held && !expected.complaints.empty()) {
    detail += "on the embedded database: " + expected.complaints;
  }
  for (const std::string& line : differences(expected.contents, contentsOf(remote.runner()))) {
    detail += line + "\n";
  }
  if (detail.empty()) {
    ++scenarios_.passed;
  } else {
    scenarios_.fail(expected.name, detail);
  }
}

void Verification::empty(RemoteDatabase& remote) {
  remote.reopen();
  for (const std::string& statement : statementsThatEmpty(remote.runner())) remote.run(statement);
}

void Verification::load(const RemoteDatabase& remote) {
  for (const auto scripts : {schemaScripts(), demoScripts()}) {
    for (const Script& script : scripts) {
      engine::forEachBatch(script.text, [&](const std::string& batch, int line) {
        const SqlOutcome outcome = remote.outcomeOf(batch);
        if (outcome.errorNumber == 0) return;
        throw RuntimeError(5, std::string(script.name) + ":" + std::to_string(line) + ": error " +
                                  std::to_string(outcome.errorNumber) + " " + outcome.errorText +
                                  "\n" + batch);
      });
    }
  }
}

void Verification::runStatements(RemoteDatabase& remote) {
  const StatementTexts texts = readStatementTexts(files_ / "texts");
  for (const char* folder : {"sql", "effects"}) {
    for (const fs::path& path : filesIn(files_ / folder)) {
      if (!isWanted(path.filename().string())) continue;
      try {
        empty(remote);
        if (std::string_view(folder) == "effects") load(remote);
        runSqlTest(path, texts, remote);
      } catch (const std::exception& error) {
        statements_.fail(path.filename().string(), error.what());
      }
    }
  }
}

SqlOutcome outcomeOf(const SqlTestBlock& block, const std::string& batch,
                     const RemoteDatabase& remote) {
  if (block.kind != "rows") return remote.outcomeOf(batch);
  SqlOutcome outcome = remote.outcomeOf(batch + "\nSELECT @@ROWCOUNT");
  if (outcome.errorNumber == 0 && !outcome.results.empty()) {
    outcome.rowsAffected = toInt32(outcome.results.back().rows.at(0).at(0));
  }
  return outcome;
}

void Verification::runSqlTest(const fs::path& path, const StatementTexts& texts,
                              RemoteDatabase& remote) {
  // A date before the year 100, which ADO has no value for.
  constexpr std::int32_t typeMismatch = 13;
  for (const SqlTestBlock& block : readSqlTest(path)) {
    const std::string batch = withTexts(block.batch, texts);
    const SqlOutcome outcome = outcomeOf(block, batch, remote);
    const std::string found = mismatch(block, outcome, ErrorTexts::Ignored);
    if (found.empty()) {
      ++statements_.passed;
    } else if (outcome.errorNumber == typeMismatch) {
      ++statements_.notRun;
    } else {
      statements_.fail(path.filename().string() + ":" + std::to_string(block.line),
                       found + "\n" + batch);
    }
  }
}

std::string summary(const char* what, const Findings& findings, const char* notRun) {
  std::string text = std::string(what) + ": " + std::to_string(findings.passed) + " passed, " +
                     std::to_string(findings.failed.size()) + " failed";
  if (findings.notRun > 0) text += ", " + std::to_string(findings.notRun) + " " + notRun;
  constexpr std::size_t mostNames = 8;
  for (std::size_t i = 0; i < std::min(findings.failed.size(), mostNames); ++i) {
    text += (i == 0 ? ": " : ", ") + findings.failed[i];
  }
  return text + (findings.failed.size() > mostNames ? ", ..." : "");
}

void Verification::writeReport(std::ostream& out) const {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const bool passed = scenarios_.failed.empty() && statements_.failed.empty();
  out << "KEBU_ANAGKELMORIA acceptance run: " << (passed ? "PASSED" : "FAILED") << '\n'
      << "Date: "
      << Date::make(now.wYear, now.wMonth, now.wDay).value_or(Date{}).toIso().substr(0, 10) << '\n';
  for (const std::string& version : versions_) out << version << '\n';
  out << summary("Scenarios in the window", scenarios_,
                 "not played, since they make statements fail")
      << '\n'
      << summary("Statements", statements_, "with values that ADO does not have") << '\n';
  if (passed) return;
  out << "\nDetails\n";
  for (const Findings* findings : {&scenarios_, &statements_}) {
    for (const std::string& detail : findings->details) out << "\n== " << detail << '\n';
  }
}

}  // namespace

int verifyCommand(const std::vector<std::string>& words) {
  const CommandLine line(words, {"--connection", "--report", "--files"}, {"--clean"});
  const auto connection = line.option("--connection");
  if (!connection) {
    throw CommandError(
        "use: workbench verify --connection STRING [--report FILE] [--files FOLDER] [--clean] "
        "[NAME...]");
  }
  const fs::path beside = PluginLibrary::besideProgram().parent_path() / "verify";
  const auto given = line.option("--files");
  const fs::path files = given ? fs::path(*given) : beside;
  if (!fs::is_directory(files / "scenarios")) {
    throw CommandError("there are no scenarios in " + files.string());
  }
  const std::string report = line.option("--report").value_or("acceptance-report.txt");
  std::ofstream file(fs::path(report), std::ios::binary);
  if (!file) throw CommandError(report + " cannot be written");

  const Apartment apartment;
  Verification verification(*connection, files, {line.operands().begin(), line.operands().end()});
  const bool passed = verification.run(line.has("--clean"));
  verification.writeReport(file);
  verification.writeReport(std::cout);
  if (!file.flush()) throw CommandError(report + " cannot be written");
  return passed ? 0 : 1;
}

}  // namespace kebu::workbench
