// The preview of many published articles, beside the same statement straight on the engine.

#include <benchmark/benchmark.h>

#include <memory>

#include "bench/large_companies.h"
#include "bench/workplace.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {
namespace {

constexpr std::int32_t articlesPreview = 8;
constexpr std::int32_t parameters = 1;

std::shared_ptr<engine::Database> manyArticles() {
  static const std::shared_ptr<engine::Database> company = [] {
    std::shared_ptr<engine::Database> database = demoCompany();
    engine::Session session(database);
    fillWithArticles(session);
    return database;
  }();
  return company;
}

/// From the click to the rows that are seen first.
void OpenPreview(benchmark::State& state) {
  Workplace workplace(manyArticles());
  workplace.open();
  std::int32_t rows = 0;
  for (auto _ : state) {
    workplace.showPage(articlesPreview);
    rows = workplace.look("QGRID_ART").grid->rowCount;
    state.PauseTiming();
    workplace.showPage(parameters);
    state.ResumeTiming();
  }
  if (rows < 100'000) throw std::logic_error("the preview is not a large one");
  workplace.close();
}

void OpenPreview_floor(benchmark::State& state) {
  Workplace workplace(manyArticles());
  workplace.open();
  const Statements statements =
      workplace.statementsOf([&] { workplace.showPage(articlesPreview); });
  workplace.close();
  engine::Session session(workplace.database());
  for (auto _ : state) {
    for (const std::string& statement : statements) {
      auto results = session.execute(statement);
      benchmark::DoNotOptimize(results);
      state.PauseTiming();
      results.clear();
      state.ResumeTiming();
    }
  }
}

BENCHMARK(OpenPreview_floor)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenPreview)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kebu::workbench
