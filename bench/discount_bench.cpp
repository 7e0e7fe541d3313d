// The discount page of a company with a hundred thousand candidates of one kind, each action
// beside its floor: its statements straight on the engine.

#include "bench/large_companies.h"
#include "bench/workplace.h"

namespace kebu::workbench {
namespace {

constexpr int saved = 20'000;

constexpr const char* combo = "CMB_LISTINISCONTO";

/// Someone before the discount page of such a company. Grid rules are few.
class DiscountWorkplace : public Workplace {
 public:
  DiscountWorkplace() : session_(database()) {
    fillWithPrices(session_);
    session_.execute("DELETE FROM GM61_KBDISCOUNTRULES");
    open();
    hands().openPage(12);
  }
  ~DiscountWorkplace() { close(); }

  engine::Session& session() { return session_; }
  void choose(const char* type) { hands().choose(combo, type); }
  void forgetRules() { session_.execute("DELETE FROM GM61_KBDISCOUNTRULES"); }
  /// Ticks the first rows behind the page's back, since only the save is of interest.
  void tickFirst(const std::string& table) {
    session_.execute("UPDATE " + table +
                     " SET GM61_ATTIVA = 1 WHERE GM61_ID <= " + std::to_string(saved));
  }
  void save() {
    mono_ = !mono_;
    hands().tick("CHK_MONOUSO", mono_);
    hands().press("INAV_PAR", "Conferma");
  }

 private:
  engine::Session session_;
  bool mono_ = false;
};

/// The name that follows `words` in the statements.
std::string nameAfter(const Statements& statements, const std::string& beginning) {
  constexpr std::size_t identifier = 32;
  for (const std::string& statement : statements) {
    const std::size_t at = statement.find(beginning);
    if (at != std::string::npos) return statement.substr(at, beginning.size() + identifier);
  }
  throw std::logic_error("no name " + beginning);
}

Statements onlyInserts(const Statements& statements) {
  Statements inserts;
  for (const std::string& statement : statements) {
    if (statement.rfind("INSERT INTO", 0) == 0) inserts.push_back(statement);
  }
  if (inserts.size() != saved) throw std::logic_error("other rules than expected were saved");
  return inserts;
}

void RecomputeRules(benchmark::State& state) {
  DiscountWorkplace workplace;
  workplace.choose("1");
  for (auto _ : state) workplace.hands().clickButton("CMD_AGGIORNA");
}

void RecomputeRules_floor(benchmark::State& state) {
  DiscountWorkplace workplace;
  workplace.choose("1");
  const Statements statements =
      workplace.statementsOf([&] { workplace.hands().clickButton("CMD_AGGIORNA"); });
  for (auto _ : state) replay(workplace.session(), statements);
}

/// A workplace with the candidates to be saved ticked and the mode switched on.
void prepareSave(DiscountWorkplace& workplace) {
  const Statements statements = workplace.statementsOf([&] { workplace.choose("1"); });
  workplace.tickFirst(nameAfter(statements, "##tempPrezzo"));
  workplace.hands().tick("CHK_SCONTOPREZZOART", true);
}

void SaveRules(benchmark::State& state) {
  DiscountWorkplace workplace;
  prepareSave(workplace);
  for (auto _ : state) {
    state.PauseTiming();
    workplace.forgetRules();
    state.ResumeTiming();
    workplace.save();
  }
}

void SaveRules_floor(benchmark::State& state) {
  DiscountWorkplace workplace;
  prepareSave(workplace);
  const Statements inserts = onlyInserts(workplace.statementsOf([&] { workplace.save(); }));
  for (auto _ : state) {
    state.PauseTiming();
    workplace.forgetRules();
    state.ResumeTiming();
    replay(workplace.session(), inserts);
  }
}

/// The rules on price and one by grid are stored, so that both are loaded.
void prepareLoad(DiscountWorkplace& workplace) {
  prepareSave(workplace);
  workplace.save();
  workplace.session().execute(
      "INSERT INTO GM61_KBDISCOUNTRULES (GM61_DITTA_CG18, GM61_INDTIPOLISTINO, "
      "GM61_FLGSCONTISUPRZ, GM61_FLGGRIGLIASCONTI) VALUES (1, 1, 0, 1)");
  workplace.choose("0");
}

void LoadRules(benchmark::State& state) {
  DiscountWorkplace workplace;
  prepareLoad(workplace);
  for (auto _ : state) {
    workplace.choose("1");
    state.PauseTiming();
    workplace.choose("0");
    state.ResumeTiming();
  }
}

void LoadRules_floor(benchmark::State& state) {
  DiscountWorkplace workplace;
  prepareLoad(workplace);
  Statements statements = workplace.statementsOf([&] { workplace.choose("1"); });
  // A load takes fresh names and drops the tables of the load before; here these are the same.
  const std::string price = nameAfter(statements, "INTO \r\n##tempPrezzo").substr(7);
  const std::string grid = nameAfter(statements, "INTO \r\n##tempGriglia").substr(7);
  for (auto _ : state) {
    state.PauseTiming();
    workplace.session().execute("DROP TABLE " + price + " DROP TABLE " + grid);
    state.ResumeTiming();
    replay(workplace.session(), statements);
  }
}

BENCHMARK(RecomputeRules)->Unit(benchmark::kMillisecond);
BENCHMARK(RecomputeRules_floor)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveRules)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveRules_floor)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadRules)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadRules_floor)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace kebu::workbench
