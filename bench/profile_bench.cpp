#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>

#include "bench/benchmarks.h"
#include "workbench/cli/company_file.h"

namespace kebu::bench {

namespace {

constexpr double aim = 1.3;
constexpr int pairs = 300;

/// The demo company in a file, as people work with it. The file is removed at the end.
class CompanyFile {
 public:
  CompanyFile() : folder_(std::filesystem::temp_directory_path() / "kebu_bench") {
    std::filesystem::remove_all(folder_);
    std::filesystem::create_directory(folder_);
    const std::string path = (folder_ / "company.db").string();
    workbench::createCompanyFile(path);
    database_ = workbench::openCompany(path);
  }
  CompanyFile(const CompanyFile&) = delete;
  CompanyFile& operator=(const CompanyFile&) = delete;
  ~CompanyFile() {
    database_.reset();
    std::filesystem::remove_all(folder_);
  }
  const std::shared_ptr<engine::Database>& database() const { return database_; }

 private:
  std::filesystem::path folder_;
  std::shared_ptr<engine::Database> database_;
};

void saveNote(BenchWorkplace& workplace, const char* note) {
  workplace.hands().type("TXT_GM03_NOTE", note);
  workplace.hands().press("INAV_PAR", "Conferma");
  if (workplace.hands().isButtonEnabled("INAV_PAR", "Conferma")) {
    throw std::logic_error("nothing was saved");
  }
}

void measureOpening(PairedRunner& runner, const std::shared_ptr<engine::Database>& database) {
  BenchWorkplace workplace(database);
  const tests::Statements statements = workplace.statementsOf([&] { workplace.open(); });
  workplace.close();
  runner.compare({
      .name = "opening the window",
      .floorName = "its statements",
      .subject =
          [&] {
            const Nanoseconds time = timeOf([&] { workplace.open(); });
            workplace.close();
            return time;
          },
      .floor =
          [&] {
            // The window works on a connection of its own, too. The session's end drops the
            // working tables.
            std::optional<engine::Session> session;
            return timeOf([&] {
              session.emplace(database);
              replay(*session, statements);
            });
          },
      .pairs = pairs,
      .aim = aim,
  });
}

void measureSaving(PairedRunner& runner, const std::shared_ptr<engine::Database>& database) {
  BenchWorkplace workplace(database);
  workplace.open();
  // Two saves, so that the rows are the same afterwards: an edit's statement names the values that
  // it replaces.
  const auto saveTwice = [&] {
    saveNote(workplace, "di mattina");
    saveNote(workplace, "di sera");
  };
  saveTwice();
  const tests::Statements statements = workplace.statementsOf(saveTwice);
  engine::Session session(database);
  runner.compare({
      .name = "saving the profile twice",
      .floorName = "its statements",
      .subject = [&] { return timeOf(saveTwice); },
      .floor = [&] { return timeOf([&] { replay(session, statements); }); },
      .pairs = pairs,
      .aim = aim,
  });
  workplace.close();
}

}  // namespace

void measureProfile(PairedRunner& runner) {
  const CompanyFile company;
  measureOpening(runner, company.database());
  measureSaving(runner, company.database());
}

}  // namespace kebu::bench
