// What the engine costs on top of SQLite: the same work through both.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/session.h"

namespace {

using kebu::engine::Database;
using kebu::engine::Session;

constexpr int rowCount = 10'000;

/// SQLite alone, in memory.
class Plain {
 public:
  Plain() {
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX;
    sqlite3_open_v2(":memory:", &handle_, flags, nullptr);  // as the engine does
  }
  Plain(const Plain&) = delete;
  Plain& operator=(const Plain&) = delete;
  ~Plain() { sqlite3_close(handle_); }
  void execute(const std::string& text) {
    if (sqlite3_exec(handle_, text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
      throw std::runtime_error(sqlite3_errmsg(handle_));
    }
  }

 private:
  sqlite3* handle_ = nullptr;
};

const char* const priceTable =
    "CREATE TABLE PREZZI (DITTA decimal(5,0) NOT NULL, ART varchar(15) NOT NULL, NUM smallint NOT "
    "NULL, "
    "PREZZO decimal(18,6) NULL, DESCR varchar(40) NULL, PRIMARY KEY (DITTA, ART, NUM))";

std::vector<std::string> inserts(const std::string& table) {
  std::vector<std::string> texts;
  texts.reserve(rowCount);
  for (int i = 0; i < rowCount; ++i) {
    const std::string n = std::to_string(i);
    texts.push_back("INSERT INTO " + table + " (DITTA, ART, NUM, PREZZO, DESCR) VALUES (1, 'ART" +
                    n + "', " + std::to_string(i % 10) + ", " + n + ".25, 'Articolo numero " + n +
                    "')");
  }
  return texts;
}

template <class Target>
void fill(Target& target, const std::vector<std::string>& texts) {
  for (const auto& text : texts) target.execute(text);
}

void InsertTexts_floor(benchmark::State& state) {
  const auto texts = inserts("PREZZI");
  for (auto _ : state) {
    state.PauseTiming();
    auto target = std::make_unique<Plain>();
    target->execute(priceTable);
    state.ResumeTiming();
    fill(*target, texts);
    state.PauseTiming();
    target.reset();
    state.ResumeTiming();
  }
}

void InsertTexts(benchmark::State& state) {
  const auto texts = inserts("PREZZI");
  for (auto _ : state) {
    state.PauseTiming();
    auto target = std::make_unique<Session>(Database::createInMemory());
    target->execute(priceTable);
    state.ResumeTiming();
    fill(*target, texts);
    state.PauseTiming();
    target.reset();
    state.ResumeTiming();
  }
}

// The table holds 10,000 rows; of the source's 10,000, half are among them.
std::string sourceTable() {
  std::string text = priceTable;
  return text.replace(text.find("PREZZI"), 6, "NUOVI");
}

template <class Target>
void prepareMerge(Target& target) {
  target.execute(priceTable);
  target.execute(sourceTable());
  fill(target, inserts("PREZZI"));
  fill(target, inserts("NUOVI"));
  target.execute("UPDATE NUOVI SET PREZZO = PREZZO + 1");
  target.execute("UPDATE NUOVI SET DITTA = 2 WHERE NUM >= 5");
}

void Merge_floor(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto target = std::make_unique<Plain>();
    prepareMerge(*target);
    state.ResumeTiming();
    target->execute(
        "BEGIN; INSERT INTO PREZZI (DITTA, ART, NUM, PREZZO, DESCR) SELECT DITTA, ART, NUM, "
        "PREZZO, DESCR FROM NUOVI "
        "WHERE true ON CONFLICT (DITTA, ART, NUM) DO UPDATE SET PREZZO = excluded.PREZZO, DESCR = "
        "excluded.DESCR; "
        "DELETE FROM PREZZI WHERE NOT EXISTS (SELECT 1 FROM NUOVI n WHERE n.DITTA = PREZZI.DITTA "
        "AND n.ART = PREZZI.ART "
        "AND n.NUM = PREZZI.NUM); COMMIT");
    state.PauseTiming();
    target.reset();
    state.ResumeTiming();
  }
}

void Merge(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto target = std::make_unique<Session>(Database::createInMemory());
    prepareMerge(*target);
    state.ResumeTiming();
    target->execute(
        "MERGE PREZZI AS t USING NUOVI AS s ON t.DITTA = s.DITTA AND t.ART = s.ART AND t.NUM = "
        "s.NUM "
        "WHEN MATCHED THEN UPDATE SET PREZZO = s.PREZZO, DESCR = s.DESCR "
        "WHEN NOT MATCHED BY TARGET THEN INSERT (DITTA, ART, NUM, PREZZO, DESCR) VALUES (s.DITTA, "
        "s.ART, s.NUM, s.PREZZO, s.DESCR) "
        "WHEN NOT MATCHED BY SOURCE THEN DELETE;");
    state.PauseTiming();
    target.reset();
    state.ResumeTiming();
  }
}

BENCHMARK(InsertTexts_floor)->Unit(benchmark::kMillisecond);
BENCHMARK(InsertTexts)->Unit(benchmark::kMillisecond);
BENCHMARK(Merge_floor)->Unit(benchmark::kMillisecond);
BENCHMARK(Merge)->Unit(benchmark::kMillisecond);

}  // namespace
