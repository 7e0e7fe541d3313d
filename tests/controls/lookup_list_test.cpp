#include "controls/lookup_list.h"

#include <stdexcept>

#include "controls/control.h"
#include "tests/support/control_fixture.h"

namespace kebu::controls {
namespace {

TEST_F(ControlTest, LookupListFindsAnywhereInAnyColumnAndGivesTheCode) {
  run("CREATE TABLE L (CODICE varchar(5), DESCR varchar(20), ALTRO int)");
  run("INSERT INTO L VALUES ('01', 'Lecco', 1), ('02', 'Varese', 2), ('10', 'Vercelli', 3)");
  LookupList list("Elenco", {"Codice", "Descrizione"}, open("SELECT * FROM L ORDER BY CODICE"));
  EXPECT_EQ(list.rowCount(), 3);
  using Rows = std::vector<std::int32_t>;
  EXPECT_EQ(list.matching(""), (Rows{1, 2, 3}));
  EXPECT_EQ(list.matching("1"), (Rows{1, 3}));
  EXPECT_EQ(list.matching("ese"), Rows{2});
  EXPECT_EQ(list.matching("EC"), Rows{1});
  EXPECT_EQ(list.matching("x"), Rows{});
  EXPECT_EQ(list.current(), 1);
  list.setCurrent("99");
  EXPECT_EQ(list.current(), 1);
  list.setCurrent("10");
  EXPECT_EQ(list.current(), 3);
  EXPECT_FALSE(list.chosen());
  EXPECT_THROW(list.choose(4), GestureRefused);
  list.choose(3);
  EXPECT_EQ(list.chosen(), Value("10"));
  list.choose(2);
  EXPECT_EQ(list.chosen(), Value("02"));
}

TEST_F(ControlTest, LookupListSortsTheRowsThatTheSearchLeaves) {
  run("CREATE TABLE L (CODICE varchar(5), DESCR varchar(20))");
  run("INSERT INTO L VALUES ('01', 'Varese'), ('02', 'Lecco'), ('03', 'Como'), ('04', 'Lodi')");
  LookupList list("Elenco", {"Codice", "Descrizione"}, open("SELECT * FROM L ORDER BY CODICE"));
  list.setCurrent("03");
  list.tools().sortBy(1);
  EXPECT_EQ(list.rowAt(1), 3);
  EXPECT_EQ(list.currentPlace(), 1);
  list.search("l");
  EXPECT_EQ(list.shownCount(), 2);
  EXPECT_EQ(list.rowAt(1), 2);
  EXPECT_EQ(list.current(), 2);
  list.goTo(2);
  EXPECT_EQ(list.current(), 4);
  list.search("x");
  EXPECT_EQ(list.currentPlace(), 0);
  list.search("");
  EXPECT_EQ(list.current(), 3);
}

TEST_F(ControlTest, LookupListTellsOfACaptionWithoutAColumn) {
  run("CREATE TABLE L (CODICE varchar(5))");
  run("INSERT INTO L VALUES ('01')");
  const LookupList list("Elenco", {"Codice", "Descrizione"}, open("SELECT * FROM L"));
  EXPECT_THROW(list.matching("x"), std::out_of_range);
}

TEST_F(ControlTest, LookupListOfNothingIsEmpty) {
  run("CREATE TABLE L (CODICE varchar(5))");
  const LookupList list("Elenco", {"Codice"}, open("SELECT * FROM L"));
  EXPECT_EQ(list.rowCount(), 0);
}

}  // namespace
}  // namespace kebu::controls
