// The preview of many published articles, beside the same statement straight on the engine.

#include <benchmark/benchmark.h>

#include <memory>

#include "bench/workplace.h"
#include "workbench/engine/session.h"

namespace kebu::workbench {
namespace {

constexpr int copies = 76;  // of the demo company's 1,300 articles, beside themselves: 100,100
constexpr std::int32_t articlesPreview = 8;
constexpr std::int32_t parameters = 1;

/// Adds copies of the company's rows, each with a number at its article's code.
void multiply(engine::Session& session, const std::string& table, const std::string& prefix,
              const std::string& codeColumn) {
  std::string columns;
  std::string values;
  const auto empty = session.execute("SELECT TOP 1 * FROM " + table);
  for (const ado::Field& field : empty.front().fields) {
    columns += (columns.empty() ? "" : ", ") + field.name;
    values +=
        (values.empty() ? "" : ", ") +
        (field.name == codeColumn ? "RTRIM(" + field.name + ") + '-' + CAST(NUMERO AS varchar(3))"
                                  : field.name);
  }
  session.execute("INSERT INTO " + table + " (" + columns + ") SELECT " + values + " FROM " +
                  table + " CROSS JOIN ##NUMERI WHERE " + prefix + "_DITTA_CG18 = 1");
}

std::shared_ptr<engine::Database> manyArticles() {
  static const std::shared_ptr<engine::Database> company = [] {
    std::shared_ptr<engine::Database> database = demoCompany();
    engine::Session session(database);
    session.execute("CREATE TABLE ##NUMERI (NUMERO int NOT NULL)");
    for (int i = 1; i <= copies; ++i) {
      session.execute("INSERT INTO ##NUMERI VALUES (" + std::to_string(i) + ")");
    }
    multiply(session, "MG66_ANAGRART", "MG66", "MG66_CODART");
    multiply(session, "MG87_ARTDESC", "MG87", "MG87_CODART_MG66");
    multiply(session, "MG70_GIACDEP", "MG70", "MG70_CODART_MG66");
    multiply(session, "KB02_PREZZIART", "KB02", "KB02_CODART_MG66");
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
  state.counters["rows"] = rows;
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
