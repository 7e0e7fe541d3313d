#include <memory>
#include <stdexcept>

#include "bench/benchmarks.h"
#include "bench/large_companies.h"

namespace kebu::bench {

namespace {

constexpr std::int32_t parameters = 1;
constexpr std::int32_t articlesPreview = 8;
constexpr std::int32_t articlesFilter = 11;

std::shared_ptr<engine::Database> manyArticles() {
  std::shared_ptr<engine::Database> database = workbench::demoCompany();
  engine::Session session(database);
  workbench::fillWithArticles(session);
  return database;
}

/// From the click to the rows that are seen first.
void measureOpeningThePreview(PairedRunner& runner) {
  BenchWorkplace workplace(manyArticles());
  workplace.open();
  const tests::Statements statements =
      workplace.statementsOf([&] { workplace.hands().openPage(articlesPreview); });
  workplace.hands().openPage(parameters);
  runner.compare({
      .name = "previewing 100,100 articles",
      .floorName = "its statements",
      .subject =
          [&] {
            std::int32_t rows = 0;
            const Nanoseconds time = timeOf([&] {
              workplace.hands().openPage(articlesPreview);
              rows = workplace.hands().look("QGRID_ART", {1, 30}).grid->rowCount;
            });
            if (rows < 100'000) throw std::logic_error("the preview is not a large one");
            workplace.hands().openPage(parameters);
            return time;
          },
      .floor =
          [&] {
            Nanoseconds time{};
            for (const std::string& statement : statements) {
              // Freeing the rows is not measured: the window keeps them.
              std::vector<engine::ResultSet> rows;
              time += timeOf([&] { rows = workplace.company().session().execute(statement); });
            }
            return time;
          },
      .pairs = 15,
  });
  workplace.close();
}

/// The filter page's "Conta", with a condition that holds for some articles.
void measureCounting(PairedRunner& runner) {
  BenchWorkplace workplace(workbench::demoCompany());
  workplace.open();
  workplace.hands().openPage(articlesFilter);
  workplace.hands().type("ENHQUERY_ART(2).VALORE1", "VER");
  const auto count = [&] { workplace.hands().clickButton("ENHQUERY_ART.CONTA"); };
  const tests::Statements statements = workplace.statementsOf(count);
  if (statements.empty()) throw std::logic_error("nothing was counted");
  runner.compare({
      .name = "counting articles",
      .floorName = "its statement",
      .subject = [&] { return timeOf(count); },
      .floor = [&] { return timeOf([&] { replay(workplace.company().session(), statements); }); },
  });
  workplace.hands().press("INAV_PAR", "Annulla");
  workplace.close();
}

/// What "Riepilogo" counts, up to its lines.
void measureSummary(PairedRunner& runner) {
  BenchWorkplace workplace(manyArticles());
  workplace.open();
  workplace.user().inModalWindow = [&](controls::Form&) {
    workplace.hands().clickButton("CMD_CHIUDI");
  };
  const auto open = [&] { workplace.hands().clickButton("BTN_RIEPILOGO"); };
  const tests::Statements statements = workplace.statementsOf(open);
  if (statements.empty()) throw std::logic_error("nothing was counted");
  runner.compare({
      .name = "the summary of 100,100 articles",
      .floorName = "its statements",
      .subject = [&] { return timeOf(open); },
      .floor = [&] { return timeOf([&] { replay(workplace.company().session(), statements); }); },
      .pairs = 15,
  });
  workplace.close();
}

}  // namespace

void measurePreview(PairedRunner& runner) {
  if (runner.wants("previewing 100,100 articles")) measureOpeningThePreview(runner);
  if (runner.wants("counting articles")) measureCounting(runner);
  if (runner.wants("the summary of 100,100 articles")) measureSummary(runner);
}

}  // namespace kebu::bench
