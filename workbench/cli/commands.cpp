#include "workbench/cli/commands.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>

#include "common/error.h"
#include "workbench/cli/command_line.h"
#include "workbench/cli/company_file.h"
#include "workbench/cli/play_scenario.h"
#include "workbench/company/company.h"
#include "workbench/engine/execution/script.h"
#include "workbench/player/result_text.h"
#include "workbench/player/step_table.h"

namespace kebu::workbench {

namespace {

std::string readFile(const std::string& path) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  // Opening a folder succeeds, reading it does not.
  if (!file || std::filesystem::is_directory(path)) throw CommandError(path + " cannot be read");
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A file for output. Without a path, output is discarded.
class OutputFile {
 public:
  explicit OutputFile(const std::optional<std::string>& path) : path_(path.value_or("")) {
    if (!path) {
      file_.setstate(std::ios::badbit);
      return;
    }
    file_.open(std::filesystem::path(path_), std::ios::binary);
    check();
  }
  std::ostream& stream() { return file_; }
  /// CommandError when the file could not be written completely.
  void check() {
    if (!path_.empty() && !file_.flush()) throw CommandError(path_ + " cannot be written");
  }

 private:
  std::string path_;
  std::ofstream file_;
};

Translations readTranslations(const std::optional<std::string>& path) {
  if (!path) return {};
  try {
    return Translations::parse(readFile(*path));
  } catch (const CommandError&) {
    throw;
  } catch (const std::runtime_error& error) {
    throw CommandError(*path + ":" + error.what());
  }
}

Scenario readScenario(const std::string& path) {
  try {
    return Scenario::parse(path, readFile(path));
  } catch (const StepError& error) {
    throw CommandError(error.what());
  }
}

std::shared_ptr<engine::Database> databaseOf(const CommandLine& line) {
  const auto path = line.option("--database");
  return path ? openCompany(*path) : demoCompany();
}

Manners mannersOf(const CommandLine& line) {
  const std::string manners = line.option("--ado").value_or("usual");
  if (manners == "usual") return {};
  if (manners == "reversed") return Manners::reversed();
  throw CommandError("--ado is usual or reversed, not \"" + manners + "\"");
}

}  // namespace

int newCommand(const std::vector<std::string>& words) {
  const CommandLine line(words, {});
  if (line.operands().size() != 1 || line.operands().front().empty()) {
    throw CommandError("use: workbench new DATABASE");
  }
  createCompanyFile(line.operands().front());
  return 0;
}

int playCommand(const std::vector<std::string>& words) {
  std::vector<std::string> known = {"--database", "--company", "--statements", "--translations",
                                    "--trace",    "--ado",     "--pictures"};
#ifdef _WIN32
  known.emplace_back("--connection");
#endif
  const CommandLine line(words, known);
  if (line.operands().size() != 1) throw CommandError("use: workbench play SCENARIO [options]");
  const Scenario scenario = readScenario(line.operands().front());
  const auto connection = line.option("--connection");
  if (connection && (line.option("--database") || line.option("--statements"))) {
    throw CommandError("--connection goes with neither --database nor --statements");
  }
  const std::int32_t company = line.number("--company", 1);
  const Translations translations = readTranslations(line.option("--translations"));
  OutputFile trace(line.option("--trace"));
  OutputFile statements(line.option("--statements"));
  const bool passed = playScenario(
      scenario, {connection ? nullptr : databaseOf(line), connection, company, translations,
                 statements.stream(), trace.stream(), mannersOf(line), line.option("--pictures")});
  trace.check();
  statements.check();
  return passed ? 0 : 1;
}

int sqlCommand(const std::vector<std::string>& words) {
  const CommandLine line(words, {"--database", "-e"});
  const auto text = line.option("-e");
  if (line.operands().size() != (text ? 0 : 1)) {
    throw CommandError("use: workbench sql [--database FILE] (SCRIPT | -e TEXT)");
  }
  const std::string script = text ? *text : readFile(line.operands().front());
  engine::Session session(databaseOf(line));
  bool failed = false;
  engine::forEachBatch(script, [&](const std::string& batch, int /*line*/) {
    for (const engine::BatchEvent& event : session.run(batch)) {
      if (const auto* const error = std::get_if<engine::SqlError>(&event)) {
        std::cerr << errorText(*error);
        failed = true;
      } else {
        writeResult(std::cout, std::get<engine::ResultSet>(event));
      }
    }
  });
  return failed ? 1 : 0;
}

int versionCommand(const std::vector<std::string>& /*words*/) {
  std::cout << "workbench " KEBU_VERSION "\n";
  return 0;
}

int helpCommand(const std::vector<std::string>& /*words*/) {
  std::cout << "workbench new DATABASE\n"
               "    makes a database file with the demo company\n"
               "workbench play SCENARIO [--database FILE] [--company N] [--statements FILE]\n"
               "               [--translations FILE] [--trace FILE] [--ado usual|reversed]\n"
               "               [--pictures FOLDER]\n"
               "    acts as the user, line by line; without a database on a fresh demo company\n"
               "workbench sql [--database FILE] (SCRIPT | -e TEXT)\n"
               "    runs T-SQL, rows separated by tabs\n"
#ifdef _WIN32
               "workbench show [--database FILE | --connection STRING] [--company N]\n"
               "    opens the window, on a database of the workbench or through ADO\n"
               "workbench play SCENARIO --connection STRING [--company N] ...\n"
               "    acts as the user on a database that holds the demo company, through ADO\n"
               "workbench verify --connection STRING [--report FILE] [--clean]\n"
               "    loads the demo company into an empty database, plays every scenario on it and\n"
               "    compares the rows; --clean empties it again\n"
               "workbench\n"
               "    by a double click: opens the window on a new demo company\n"
               "workbench register [--user]\n"
               "workbench unregister [--user]\n"
               "    registers the plug-in beside the program, for all users or the current one\n"
#endif
               "workbench --version\n"
               "    prints the version, which is also the plug-in's\n"
               "\n"
               "A scenario's steps, one a line; '#' starts a comment, quotes as in a shell:\n";
  for (const Step& step : stepTable()) {
    std::cout << "  " << step.name << ' ' << step.arguments << "\n      " << step.help << '\n';
  }
  return 0;
}

}  // namespace kebu::workbench
