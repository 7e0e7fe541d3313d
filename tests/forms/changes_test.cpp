// The list of changes against what "Conferma" then does: the tables are compared before and after.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "common/convert.h"
#include "controls/query_grid.h"
#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

using Row = std::map<std::string, std::string>;  ///< by column

struct Table {
  const char* name;
  const char* where;
  std::vector<std::string> key;
  std::set<std::string> ignored;  ///< columns that every save writes anew
};

const std::vector<Table> tables = {
    {"GM03_DISPOSITIVI", "GM03_DITTA_CG18 = 1", {"GM03_IDDISPOSITIVO"}, {}},
    {"GM04_PARAMETRITVRO", "GM04_DITTA_CG18 = 1", {"GM04_IDDISPOSITIVO_GM03"}, {}},
    {"GM19_DETTCONF", "1 = 1", {"GM19_IDDISPOSITIVO_GM03", "GM19_INDENTITA", "GM19_PROG"}, {}},
    {"GM56_KBDEPOSITI", "1 = 1", {"GM56_IDDISPOSITIVO_GM03", "GM56_DEPGIACENZE_MG58"}, {}},
    // The page knows the slots of its own profile only.
    {"GM57_KBLISTINI",
     "GM57_IDDISPOSITIVO_GM03 IN (SELECT GM03_IDDISPOSITIVO FROM GM03_DISPOSITIVI WHERE "
     "GM03_DITTA_CG18 = 1 AND GM03_IDAPPLICAZIONE = 14)",
     {"GM57_IDDISPOSITIVO_GM03", "GM57_CODPREZZO"},
     {}},
    {"GM61_KBDISCOUNTRULES",
     "GM61_DITTA_CG18 = 1",
     {"GM61_INDTIPOLISTINO", "GM61_NOMEREGOLA"},
     {"GM61_ID", "GM61_DATAULTAGG"}},
};

struct Changes {
  int inserted = 0;
  int deleted = 0;
  int changedRows = 0;
  int changedCells = 0;

  bool operator==(const Changes&) const = default;
  friend void PrintTo(const Changes& changes, std::ostream* out) {
    *out << changes.inserted << " inserted, " << changes.deleted << " deleted, "
         << changes.changedRows << " changed in " << changes.changedCells << " columns";
  }
};

/// Flags that are null read like 0, texts that are null like blank ones.
std::string asRead(const std::string& column, const Value& value) {
  if (value.isNumber()) return toSqlNumber(value);
  const bool isFlag = column.find("_FLG") != std::string::npos;
  return value.isNull() && isFlag ? "0" : trimRight(toDisplay(value));
}

class ChangesTest : public testing::Test {
 protected:
  ChangesTest() { workplace.open(); }
  ~ChangesTest() override { workplace.close(); }

  using Contents = std::map<std::string, Row>;  ///< by table and key

  Contents contents() {
    Contents found;
    for (const Table& table : tables) {
      const std::string batch =
          "SELECT * FROM " + std::string(table.name) + " WHERE " + table.where;
      const engine::ResultSet rows = workplace.company().session().execute(batch).front();
      for (const auto& values : rows.rows) {
        Row row;
        for (std::size_t i = 0; i < values.size(); ++i) {
          const std::string& column = rows.columns[i].name;
          if (!table.ignored.contains(column)) row[column] = asRead(column, values[i]);
        }
        std::string key = table.name;
        for (const std::string& part : table.key) key += '|' + row[part];
        found[key] = std::move(row);
      }
    }
    return found;
  }

  static Changes difference(const Contents& before, const Contents& after) {
    Changes changes;
    for (const auto& [key, row] : before) {
      const auto now = after.find(key);
      if (now == after.end()) {
        ++changes.deleted;
        continue;
      }
      int cells = 0;
      for (const auto& [column, value] : row) cells += now->second.at(column) != value;
      changes.changedCells += cells;
      changes.changedRows += cells > 0;
    }
    for (const auto& [key, row] : after) changes.inserted += !before.contains(key);
    return changes;
  }

  /// What the dialog lists, counted.
  Changes announced(const std::string& bar) {
    Changes changes;
    bool wasShown = false;
    workplace.user().inModalWindow = [&](controls::Form& form) {
      wasShown = true;
      auto& grid = dynamic_cast<controls::QueryGrid&>(*form.find("QGRID_MODIFICHE"));
      std::set<std::string> inserted;
      std::set<std::string> deleted;
      std::set<std::string> changed;
      for (std::int32_t row = 1; row <= grid.rowCount(); ++row) {
        const std::string kind = grid.cellText(row, 0);
        const std::string name = grid.cellText(row, 1);
        if (kind == "Inserimento") inserted.insert(name);
        if (kind == "Eliminazione") deleted.insert(name);
        if (kind != "Modifica") continue;
        changed.insert(name);
        ++changes.changedCells;
        EXPECT_NE(grid.cellText(row, 3), grid.cellText(row, 4)) << name;
      }
      changes.inserted = static_cast<int>(inserted.size());
      changes.deleted = static_cast<int>(deleted.size());
      changes.changedRows = static_cast<int>(changed.size());
      workplace.hands().clickButton("CMD_CHIUDI");
    };
    workplace.hands().askChanges(bar);
    EXPECT_TRUE(wasShown);
    return changes;
  }

  void expectExact(const std::string& bar, const char* what) {
    const Contents before = contents();
    const Changes list = announced(bar);
    EXPECT_EQ(difference(before, contents()), Changes{}) << what << ": the list writes nothing";
    workplace.hands().press(bar, "Conferma");
    EXPECT_EQ(list, difference(before, contents())) << what;
    EXPECT_NE(list, Changes{}) << what;
  }

  tests::TestWorkplace workplace;
};

TEST_F(ChangesTest, OfTheProfileAreWhatConfermaDoes) {
  workbench::ModelHands& hands = workplace.hands();
  hands.type("TXT_GM03_NOTE", "Nota");
  hands.choose("CMB_GM04_INDTIPODEPIMP", "1");
  hands.type("TXT_GM04_DEPDOCWEB_MG58", "02");
  hands.tick("CHK_GM04_INDESTRIMG", true);
  hands.type("TXT_GM04_NUMNOTECLIENTI", "3");
  expectExact("INAV_PAR", "parameters");
  hands.type("TXT_GM03_DESCRIZIONE", "Negozio");
  hands.type("TXT_GM03_NOTE", "");
  expectExact("INAV_PAR", "another description");
  hands.type("TXT_GM03_DESCRIZIONE", "");
  expectExact("INAV_PAR", "a blank description");

  hands.openPage(3);
  for (const int row : {1, 2, 4, 5, 8}) hands.tickCell("QGRID_DEP", row, "FLG_ATTIVO");
  expectExact("INAV_PAR", "deposits");
  hands.tickAll("QGRID_DEP", "FLG_ATTIVO", true);
  hands.tickCell("QGRID_DEP", 6, "FLG_PREF");
  expectExact("INAV_PAR", "all deposits");

  hands.openPage(2);
  for (int type = 0; type <= 6; ++type) {
    hands.edit("QGRID_LISTINI", type + 1, "GM57_INDTIPO", Value(std::to_string(type)));
  }
  hands.edit("QGRID_LISTINI", 6, "GM57_QUANTITA", "12");
  hands.tickAll("QGRID_LISTINI", "GM57_FLGATTIVO", true);
  expectExact("INAV_PAR", "price slots");
  hands.tickAll("QGRID_LISTINI", "GM57_FLGINCLUDISCONTI", true);
  expectExact("INAV_PAR", "price slots again");
}

TEST_F(ChangesTest, OfTheCategoriesAreWhatConfermaDoes) {
  workbench::ModelHands& hands = workplace.hands();
  hands.openPage(6);
  hands.choose("CBO_CLI_AZ(3)", "11");
  hands.choose("CBO_CLI_AZ(1)", "0");
  hands.type("TXT_DESC_CLI_AZ(0)", "Canale");
  expectExact("INAV_CATCLIART", "customers");
  hands.openPage(7);
  hands.choose("CBO_ART_AZ(0)", "255");
  hands.choose("CBO_ART_AZ(1)", "0");
  expectExact("INAV_CATCLIART", "articles");
}

TEST_F(ChangesTest, OfTheRulesOfEachKindAreWhatConfermaDoes) {
  workbench::ModelHands& hands = workplace.hands();
  hands.openPage(12);
  for (const std::string type : {"1", "2", "3", "4"}) {
    hands.choose("CMB_LISTINISCONTO", type);
    for (const char* mode : {"QGRID_SCONTOSUPREZZO", "QGRID_SCONTOSUGRIGLIA"}) {
      const std::string grid = mode;
      hands.tick(grid == "QGRID_SCONTOSUPREZZO" ? "CHK_SCONTOPREZZOART" : "CHK_GRIGLIASCONTI",
                 true);
      if (hands.look(grid, {}).grid->rowCount == 0) continue;
      const bool wasTicked = hands.cellText(grid, 1, "GM61_ATTIVA") == "1";
      hands.tickCell(grid, 1, "GM61_ATTIVA");
      if (!wasTicked) {
        hands.edit(grid, 1,
                   grid == "QGRID_SCONTOSUPREZZO" ? "GM61_TIPOSCONTO" : "GM61_TIPOGRIGLIASCONTO",
                   "1");
      }
    }
    expectExact("INAV_PAR", ("first save of type " + type).c_str());
    hands.tick("CHK_MONOUSO", true);
    // The rules of the other types are too many for a test.
    if (type == "1") hands.tickAll("QGRID_SCONTOSUPREZZO", "GM61_ATTIVA", true);
    expectExact("INAV_PAR", ("all rules of type " + type).c_str());
    hands.clickButton("CMD_AGGIORNA");
    hands.tick("CHK_SCONTOPREZZOART", true);
    hands.tickCell("QGRID_SCONTOSUPREZZO", 1, "GM61_ATTIVA");
    expectExact("INAV_PAR", ("recomputed rules of type " + type).c_str());
  }
}

}  // namespace
}  // namespace kebu::forms
