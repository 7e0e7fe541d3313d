#include <stdexcept>
#include <string>

#include "bench/benchmarks.h"
#include "bench/large_companies.h"

namespace kebu::bench {

namespace {

constexpr int savedRules = 20'000;
constexpr int loadedRules = 100'000;
constexpr int pairs = 15;

/// The discount page of a company with 100,000 candidates of the first list type. Rules by grid
/// are few.
class DiscountWorkplace : public BenchWorkplace {
 public:
  DiscountWorkplace() : BenchWorkplace(workbench::demoCompany()) {
    workbench::fillWithPrices(session());
    deleteRules();
    open();
    hands().openPage(12);
  }
  ~DiscountWorkplace() { close(); }
  DiscountWorkplace(const DiscountWorkplace&) = delete;
  DiscountWorkplace& operator=(const DiscountWorkplace&) = delete;

  engine::Session& session() { return company().session(); }
  void chooseListType(const char* type) { hands().choose("CMB_LISTINISCONTO", type); }
  void recompute() { hands().clickButton("CMD_AGGIORNA"); }
  void deleteRules() { session().execute("DELETE FROM GM61_KBDISCOUNTRULES"); }
  /// Computes the candidates and ticks the first ones, directly in the working table, since the
  /// ticking is not measured.
  void prepareSave(int count) {
    const tests::Statements statements = statementsOf([&] { chooseListType("1"); });
    session().execute("UPDATE " + tests::lastWorkingTable(statements, "##tempPrezzo") +
                      " SET GM61_ATTIVA = 1 WHERE GM61_ID <= " + std::to_string(count));
    hands().tick("CHK_SCONTOPREZZOART", true);
  }
  /// Changes an option of the rules, so that there is something to save, and saves.
  void save() {
    singleUse_ = !singleUse_;
    hands().tick("CHK_MONOUSO", singleUse_);
    hands().press("INAV_PAR", "Conferma");
  }

 private:
  bool singleUse_ = false;
};

void measureRecomputing(PairedRunner& runner) {
  DiscountWorkplace workplace;
  workplace.chooseListType("1");
  const tests::Statements statements = workplace.statementsOf([&] { workplace.recompute(); });
  runner.compare({
      .name = "recomputing 100,000 candidates",
      .floorName = "its statements",
      .subject = [&] { return timeOf([&] { workplace.recompute(); }); },
      .floor = [&] { return timeOf([&] { replay(workplace.session(), statements); }); },
      .pairs = pairs,
      .aim = 1.05,
  });
}

void measureLoading(PairedRunner& runner) {
  DiscountWorkplace workplace;
  workplace.prepareSave(loadedRules);
  workplace.save();
  // A rule by grid, so that both modes are loaded.
  workplace.session().execute(
      "INSERT INTO GM61_KBDISCOUNTRULES (GM61_DITTA_CG18, GM61_INDTIPOLISTINO, "
      "GM61_FLGSCONTISUPRZ, GM61_FLGGRIGLIASCONTI) VALUES (1, 1, 0, 1)");
  workplace.chooseListType("0");
  const tests::Statements statements =
      workplace.statementsOf([&] { workplace.chooseListType("1"); });
  workplace.chooseListType("0");
  // Every load uses new names for its working tables; the repeated statements always the same.
  const auto dropWorkingTables = [&] {
    for (const char* prefix : {"INTO \r\n##tempPrezzo", "INTO \r\n##tempGriglia"}) {
      const std::string name = tests::lastWorkingTable(statements, prefix).substr(7);
      workplace.session().execute("IF OBJECT_ID('TEMPDB.DBO." + name +
                                  "') IS NOT NULL DROP TABLE " + name);
    }
  };
  runner.compare({
      .name = "loading 100,000 rules",
      .floorName = "its statements",
      .subject =
          [&] {
            const Nanoseconds time = timeOf([&] { workplace.chooseListType("1"); });
            workplace.chooseListType("0");
            return time;
          },
      .floor =
          [&] {
            dropWorkingTables();
            return timeOf([&] { replay(workplace.session(), statements); });
          },
      .pairs = pairs,
      .aim = 1.05,
  });
}

tests::Statements onlyInserts(const tests::Statements& statements) {
  tests::Statements inserts;
  for (const std::string& statement : statements) {
    if (statement.starts_with("INSERT INTO")) inserts.push_back(statement);
  }
  if (inserts.size() != savedRules) throw std::logic_error("not 20,000 rules were saved");
  return inserts;
}

void measureSaving(PairedRunner& runner) {
  DiscountWorkplace workplace;
  workplace.prepareSave(savedRules);
  const tests::Statements inserts = onlyInserts(workplace.statementsOf([&] { workplace.save(); }));
  runner.compare({
      .name = "saving 20,000 rules",
      .floorName = "their INSERTs",
      .subject =
          [&] {
            workplace.deleteRules();
            return timeOf([&] { workplace.save(); });
          },
      .floor =
          [&] {
            workplace.deleteRules();
            return timeOf([&] { replay(workplace.session(), inserts); });
          },
      .pairs = pairs,
      .aim = 1.2,
  });
}

}  // namespace

void measureRules(PairedRunner& runner) {
  if (runner.wants("recomputing 100,000 candidates")) measureRecomputing(runner);
  if (runner.wants("loading 100,000 rules")) measureLoading(runner);
  if (runner.wants("saving 20,000 rules")) measureSaving(runner);
}

}  // namespace kebu::bench
