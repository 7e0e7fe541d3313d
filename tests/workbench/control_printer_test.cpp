#include "workbench/player/control_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "controls/query_grid.h"
#include "tests/support/control_fixture.h"
#include "tests/support/test_user.h"
#include "tests/workbench/sample_form.h"
#include "workbench/player/control_reader.h"
#include "workbench/player/model_desktop.h"
#include "workbench/player/model_hands.h"
#include "workbench/player/scenario.h"

namespace kebu::workbench {
namespace {

class ControlPrinterTest : public testing::Test {
 protected:
  ControlPrinterTest() { form->Show(false); }

  std::string printed(const std::string& control) {
    std::ostringstream out;
    printControl(out, hands.look(control, {}));
    return out.str();
  }

  tests::TestUser user;
  ModelDesktop desktop{user};
  ModelHands hands{desktop};
  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>(desktop);
};

TEST_F(ControlPrinterTest, AGroupPrintsItsControlsBeneathEachOther) {
  form->box.setEnabled(false);
  EXPECT_EQ(printed("GRP_BOXES"),
            "GRP_BOXES   \"Dati\"                        enabled, visible\n"
            "  TXT_CODE  \"Codice\"    = 010             disabled, visible\n"
            "  TXT_PWD   \"Password\"  = *******         enabled, visible, masked, read-only\n"
            "  CMB_KIND  \"Tipo\"      = 2: Disponibile  enabled, visible\n"
            "  CHK_FLAG  \"Attivo\"    = [ ]             enabled, visible\n");
}

TEST_F(ControlPrinterTest, AMaskedTextIsNeverPrinted) {
  for (const char* control : {"TXT_PWD", "GRP_BOXES", "FRM_SAMPLE"}) {
    EXPECT_EQ(printed(control).find("segreto"), std::string::npos) << control;
  }
}

TEST_F(ControlPrinterTest, ABarPrintsItsButtonsStates) {
  EXPECT_EQ(printed("INAV_MAIN"),
            "INAV_MAIN     enabled, visible\n"
            "  - Conferma  enabled\n"
            "  - Annulla   disabled\n");
}

TEST_F(ControlPrinterTest, AWindowPrintsWhatCanBeSeen) {
  const std::string text = printed("FRM_SAMPLE");
  EXPECT_NE(text.find("at 0, 0"), std::string::npos);
  EXPECT_NE(text.find("1: Parametri"), std::string::npos);
  EXPECT_NE(text.find("TXT_CODE"), std::string::npos);
  EXPECT_NE(text.find("\"Pronto\""), std::string::npos);
  EXPECT_EQ(text.find("LBL_HIDDEN"), std::string::npos);
}

constexpr controls::ValueListItem sizes[] = {{1, "Piccolo"}, {2, "Grande"}};
constexpr controls::GridColumn columns[] = {
    {"ID", "Numero", 1000, controls::ColumnKind::Text},
    {"MISURA", "Quantità", 1000, controls::ColumnKind::ValueList, sizes},
    {"SCELTO", "", 1000, controls::ColumnKind::Check},
};

class GridPrinterTest : public controls::ControlTest {
 protected:
  void fill(const std::string& rows) {
    run("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, MISURA smallint, SCELTO smallint, STATO "
        "int)");
    run("INSERT INTO T VALUES " + rows);
    for (const auto& column : columns) {
      grid.addColumn(column, [](const std::string& text) { return text; });
    }
    grid.setRowStateField("STATO");
    grid.cellLocked = [](std::int32_t row, const std::string& field) {
      return row == 2 && field == "MISURA";
    };
    grid.setDataSource(open("SELECT * FROM T ORDER BY ID"));
  }
  std::string printed(const RowRange& rows) {
    std::ostringstream out;
    printControl(out, viewOf(grid, rows));
    return out.str();
  }

  controls::QueryGrid grid{"QGRID", host};
};

TEST_F(GridPrinterTest, CellsStandBeneathTheirCaptionsWithTheirMarks) {
  fill("(1, 2, 1, 1), (2, 1, 0, 2), (30, NULL, 0, NULL), (31, 1, 0, 1)");
  grid.selectRow(2);
  EXPECT_EQ(printed({1, 3}),
            "QGRID  enabled, visible, 4 rows\n"
            "         Numero  Quantità\n"
            "         ID      MISURA    SCELTO\n"
            "    1 +  1       Grande    1\n"
            "  > 2 !  2       Piccolo*  0\n"
            "    3    30                0\n"
            "  ... and 1 more\n");
  EXPECT_EQ(printed({4, 9}).find("... and"), std::string::npos);
}

TEST_F(GridPrinterTest, CellsAreReadByTheFieldEvenWhenNoColumnShowsIt) {
  fill("(1, 2, 1, 1), (2, 1, 0, 2)");
  EXPECT_EQ(cellTextOf(grid, 1, "misura"), "Grande");
  EXPECT_EQ(cellTextOf(grid, 2, "STATO"), "2");
  EXPECT_THROW(cellTextOf(grid, 3, "MISURA"), StepError);
  EXPECT_THROW(cellTextOf(grid, 1, "COLORE"), StepError);
}

TEST_F(GridPrinterTest, ALongListIsCutAfterTwentyRows) {
  run("CREATE TABLE L (CODICE varchar(5), DESCR varchar(20))");
  run("DECLARE @n int SET @n = 1 WHILE @n <= 23 BEGIN INSERT INTO L VALUES (@n, 'Voce') "
      "SET @n = @n + 1 END");
  controls::LookupList list("Elenco", {"Codice", "Descrizione"}, open("SELECT * FROM L"));
  std::ostringstream out;
  ModelList shown(list);
  printLookup(out, shown);
  const std::string text = out.str();
  EXPECT_EQ(text.find("  [ Elenco ]\n      Codice  Descrizione\n  1   1       Voce\n"), 0U) << text;
  EXPECT_NE(text.find("  20  20      Voce\n  ... and 3 more\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace kebu::workbench
