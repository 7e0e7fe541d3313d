#include "controls/query_grid.h"

#include "tests/support/control_fixture.h"

namespace kebu::controls {
namespace {

constexpr ValueListItem sizes[] = {{1, "Piccolo"}, {2, "Grande"}};
constexpr GridColumn columns[] = {
    {"ID", "Numero", 1000, ColumnKind::Text},
    {"MISURA", "Misura", 1000, ColumnKind::ValueList, sizes},
    {"PREZZO", "Prezzo", 1000, ColumnKind::Number},
    {"SCELTO", "Scelto", 1000, ColumnKind::Check},
    {"MISURA_DEC", "Descrizione", 1000, ColumnKind::Description},
};

class QueryGridTest : public ControlTest {
 protected:
  void fill(int rows) {
    run("CREATE TABLE T (ID int NOT NULL PRIMARY KEY, MISURA smallint, PREZZO decimal(18,2), "
        "SCELTO smallint, FORNITORE varchar(5))");
    run("DECLARE @n int SET @n = 1 WHILE @n <= " + std::to_string(rows) +
        " BEGIN INSERT INTO T (ID, MISURA, PREZZO, SCELTO) VALUES (@n, 1 + @n % 2, @n, 0) SET @n = "
        "@n + 1 END");
    for (const GridColumn& column : columns) {
      grid.addColumn(column, [](const std::string& text) { return text; });
    }
    grid.setDataSource(open("SELECT * FROM T ORDER BY ID"));
  }

  QueryGrid grid{"QGRID", host};
};

TEST_F(QueryGridTest, ReadsTheRowsThatAreLookedAtWithoutMovingTheCurrentOne) {
  fill(1000);
  grid.selectRow(3);
  EXPECT_EQ(grid.cellText(1000, 0), "1000");
  EXPECT_EQ(grid.cellText(1, 1), "Grande");
  EXPECT_EQ(grid.cellText(500, 2), "500");
  EXPECT_EQ(grid.currentRow(), 3);
  EXPECT_THROW(grid.selectRow(1001), GestureRefused);
}

TEST_F(QueryGridTest, DescriptionsAreMadeWhenRowsChangeNotWhenTheyAreDrawn) {
  int made = 0;
  grid.DataFormatEXT.on([&](std::int32_t row, const std::string& field, std::string& text) {
    ++made;
    text = field + " " + std::to_string(row);
    if (grid.cellText(row, 2) != "9") grid.markUnknown(row, "MISURA");
  });
  fill(3);
  EXPECT_EQ(made, 3);
  EXPECT_EQ(grid.cellText(2, 4), "MISURA_DEC 2");
  EXPECT_EQ(grid.cellText(2, 4), "MISURA_DEC 2");
  EXPECT_EQ(made, 3);
  EXPECT_TRUE(grid.isUnknown(2, "MISURA"));
  grid.edit(2, "PREZZO", "9");
  EXPECT_FALSE(grid.isUnknown(2, "MISURA")) << "what is not found is told anew, too";
}

TEST_F(QueryGridTest, DescribesInTheFirstColumnAndNeedsNoCaptionInTheLast) {
  run("CREATE TABLE T (ID int NOT NULL PRIMARY KEY) INSERT INTO T (ID) VALUES (7)");
  grid.DataFormatEXT.on(
      [](std::int32_t, const std::string& field, std::string& text) { text = field; });
  const auto asIs = [](const std::string& text) { return text; };
  grid.addColumn({"ID_DEC", "Descrizione", 1000, ColumnKind::Description}, asIs);
  grid.addColumn({"ID", "", 1000}, asIs);
  grid.setDataSource(open("SELECT * FROM T"));
  EXPECT_EQ(grid.cellText(1, 0), "ID_DEC");
  EXPECT_EQ(grid.captionOf("ID"), "");
}

TEST_F(QueryGridTest, SortsByWhatIsShownWhileRowsKeepTheirNumbers) {
  fill(300);
  run("UPDATE T SET SCELTO = 1 WHERE ID = 4");
  grid.requery();
  grid.selectRow(2);
  GridTools& tools = grid.tools();
  tools.sortBy(1);  // "Grande", which odd rows are, comes before "Piccolo"
  EXPECT_EQ(tools.rowAt(150), 299);
  EXPECT_EQ(tools.rowAt(151), 2);
  EXPECT_EQ(tools.placeOf(grid.currentRow()), 151);
  EXPECT_EQ(grid.cellText(299, 0), "299");
  EXPECT_EQ(grid.cellText(2, 0), "2");
  tools.sortBy(3);
  EXPECT_EQ(tools.rowAt(300), 4);
  tools.find("1", 3);
  EXPECT_EQ(grid.currentRow(), 4) << "a tick is found as 1";
  // An edited row stays where it is.
  grid.tickCell(5, "SCELTO");
  EXPECT_EQ(tools.rowAt(300), 4);
  EXPECT_EQ(first("SELECT SCELTO FROM T WHERE ID = 5"), "1");
  EXPECT_EQ(grid.cellText(5, 3), "1");
  tools.find("piccolo", 1);
  EXPECT_EQ(grid.currentRow(), 6);
  std::string copied;
  tools.copyRows(300, 300, [&](const std::string& text) { copied = text; });
  EXPECT_EQ(copied, "Numero\tMisura\tPrezzo\tScelto\tDescrizione\r\n4\tPiccolo\t4\tSì\t\r\n");
  run("DELETE FROM T WHERE ID > 4");
  grid.requery();
  EXPECT_EQ(tools.rowAt(4), 4);
  EXPECT_EQ(tools.status(), "4 righe");
}

TEST_F(QueryGridTest, EditsReachTheTableAndWrongOnesAreTold) {
  fill(3);
  grid.edit(2, "PREZZO", "19,90");
  EXPECT_EQ(first("SELECT PREZZO FROM T WHERE ID = 2"), "19,9");
  grid.edit(2, "PREZZO", "caro");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_TRUE(host.messages.front().starts_with("Valore non valido: \"caro\". "));
  EXPECT_EQ(grid.cellText(2, 2), "19,9");
  grid.edit(2, "MISURA", "2");
  EXPECT_EQ(grid.cellText(2, 1), "Grande");
  EXPECT_THROW(grid.edit(2, "MISURA", "3"), GestureRefused);
  EXPECT_THROW(grid.edit(2, "ID", "9"), GestureRefused);
  grid.edit(2, "PREZZO", Null{});
  EXPECT_EQ(first("SELECT COUNT(*) FROM T WHERE PREZZO IS NULL"), "1");
  EXPECT_TRUE(host.errors.empty());
}

TEST_F(QueryGridTest, RefusedClicksAndEditsChangeNothing) {
  fill(3);
  grid.SelectionBoxClick.on([](const std::string&, bool& cancel) { cancel = true; });
  grid.OnEditing.on([](const std::string&, bool& cancel) { cancel = true; });
  grid.SelectAllClickEXT.on([](const std::string&, bool, bool& cancel) { cancel = true; });
  grid.tickCell(1, "SCELTO");
  grid.edit(1, "PREZZO", "5");
  grid.tickAll("SCELTO", true);
  EXPECT_EQ(first("SELECT SUM(SCELTO) FROM T"), "0");
  EXPECT_EQ(first("SELECT PREZZO FROM T WHERE ID = 1"), "1");
}

TEST_F(QueryGridTest, SelectAllTicksEveryRowAndStaysWhereItWas) {
  fill(300);
  grid.selectRow(7);
  grid.tickCell(9, "SCELTO");
  grid.tickAll("SCELTO", true);
  EXPECT_EQ(first("SELECT SUM(SCELTO) FROM T"), "300");
  EXPECT_EQ(grid.currentRow(), 9);
  grid.tickCell(9, "SCELTO");
  EXPECT_EQ(grid.cellText(9, 3), "0");
}

TEST_F(QueryGridTest, AbortedEditLeavesTheRowAsItWas) {
  fill(3);
  faults.failing = "SET [PREZZO] = 7";
  grid.edit(1, "PREZZO", "7");
  EXPECT_EQ(host.errors, (std::vector<std::string>{"QGRID: made to fail"}));
  EXPECT_EQ(grid.cellText(1, 2), "1");
  faults.failing.clear();
  // Nothing of it is sent along with the next edit.
  grid.tickCell(1, "SCELTO");
  EXPECT_EQ(first("SELECT PREZZO FROM T WHERE ID = 1"), "1");
  EXPECT_EQ(first("SELECT SCELTO FROM T WHERE ID = 1"), "1");
}

TEST_F(QueryGridTest, WhileItIsLockedEveryChangeIsRefused) {
  fill(1);
  grid.addColumn({"FORNITORE", "", 500, ColumnKind::Lookup},
                 [](const std::string& t) { return t; });
  int asked = 0;
  grid.OnEditing.on([&](const std::string&, bool&) { ++asked; });
  grid.SelectionBoxClick.on([&](const std::string&, bool&) { ++asked; });
  grid.SelectAllClickEXT.on([&](const std::string&, bool, bool&) { ++asked; });
  grid.setLocked(true);
  EXPECT_THROW(grid.edit(1, "PREZZO", Decimal(2)), GestureRefused);
  EXPECT_THROW(grid.tickCell(1, "SCELTO"), GestureRefused);
  EXPECT_THROW(grid.tickAll("SCELTO", true), GestureRefused);
  EXPECT_THROW(grid.lookup(1, "FORNITORE"), GestureRefused);
  EXPECT_EQ(asked, 0);
}

TEST_F(QueryGridTest, LookupEntersTheChosenCodeOnly) {
  fill(2);
  grid.addColumn({"FORNITORE", "", 500, ColumnKind::Lookup},
                 [](const std::string& t) { return t; });
  bool chooses = false;
  grid.StartLookup.on([&](const std::string&, Value& code) {
    if (chooses) code = "F12";
  });
  grid.lookup(1, "FORNITORE");
  EXPECT_EQ(grid.cellText(1, 5), "");
  chooses = true;
  grid.lookup(2, "FORNITORE");
  EXPECT_EQ(first("SELECT FORNITORE FROM T WHERE ID = 2"), "F12");
  EXPECT_THROW(grid.lookup(1, "MISURA"), GestureRefused);
  // A text longer than the column is told, too.
  grid.edit(2, "FORNITORE", "F123456");
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_TRUE(host.messages.front().starts_with("Valore non valido: \"F123456\". "));
  EXPECT_EQ(grid.cellText(2, 5), "F12");
}

TEST_F(QueryGridTest, CellsShowAndTakeTheListThatTheyBorrow) {
  static constexpr ValueListItem colours[] = {{1, "Rosso"}, {7, "Blu"}};
  fill(3);
  grid.addColumn({"LISTA", "", 0, ColumnKind::ValueList, colours},
                 [](const std::string& text) { return text; });
  grid.GetCellRenderColumn.on([&](std::int32_t row, const std::string& field, std::string& lender) {
    EXPECT_GE(row, 1);
    EXPECT_TRUE(field == "MISURA" || field == "LISTA") << field << " has no list";
    if (field == "MISURA" && row == 2) lender = "LISTA";
  });
  EXPECT_EQ(grid.cellText(2, 0), "2");
  EXPECT_EQ(grid.cellText(1, 1), "Grande");
  EXPECT_EQ(grid.cellText(2, 1), "Rosso");
  EXPECT_EQ(grid.cellText(2, 5), "");
  EXPECT_EQ(grid.itemsOf(2, grid.columns()[1]).size(), 2U);
  EXPECT_EQ(grid.itemsOf(0, grid.columns()[1]).front().second, "Piccolo");
  grid.edit(2, "MISURA", "7");
  EXPECT_EQ(grid.cellText(2, 1), "Blu");
  EXPECT_THROW(grid.edit(2, "MISURA", "2"), GestureRefused);
  EXPECT_THROW(grid.edit(1, "MISURA", "7"), GestureRefused);
}

TEST_F(QueryGridTest, LockedCellsRefuseAnEditUnlessAHandlerAnswersFirst) {
  fill(3);
  grid.cellLocked = [](std::int32_t row, const std::string& field) {
    return row == 2 && field == "PREZZO";
  };
  grid.edit(1, "PREZZO", "10");
  EXPECT_THROW(grid.edit(2, "PREZZO", "20"), GestureRefused);
  grid.OnEditing.on([](const std::string&, bool& cancel) { cancel = true; });
  grid.edit(2, "PREZZO", "20");
  EXPECT_EQ(first("SELECT SUM(PREZZO) FROM T"), "15");
}

TEST_F(QueryGridTest, RequeriedRowsAreShown) {
  fill(3);
  EXPECT_EQ(grid.cellText(2, 3), "0");
  run("UPDATE T SET SCELTO = 1");
  grid.requery();
  EXPECT_EQ(grid.cellText(2, 3), "1");
  grid.tickCell(2, "SCELTO");
  EXPECT_EQ(first("SELECT SUM(SCELTO) FROM T"), "2");
  // The recordset cannot be read while its statement runs.
  std::int32_t shownMeanwhile = -1;
  faults.whileRunning = [&] { shownMeanwhile = grid.rowCount(); };
  grid.requery();
  EXPECT_EQ(shownMeanwhile, 0);
  EXPECT_EQ(grid.rowCount(), 3);
}

}  // namespace
}  // namespace kebu::controls
