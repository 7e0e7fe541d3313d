#include "controls/lookup_list.h"

#include <stdexcept>

#include "controls/control.h"
#include "tests/support/control_fixture.h"

namespace kebu::controls {
namespace {

TEST_F(ControlTest, LookupListFindsByCodeOrDescriptionAndGivesTheCode) {
  run("CREATE TABLE L (CODICE varchar(5), DESCR varchar(20), ALTRO int)");
  run("INSERT INTO L VALUES ('01', 'Lecco', 1), ('02', 'Varese', 2), ('10', 'Vercelli', 3)");
  LookupList list("Elenco", {"Codice", "Descrizione"}, open("SELECT * FROM L ORDER BY CODICE"));
  EXPECT_EQ(list.rowCount(), 3);
  EXPECT_EQ(list.search("1"), 3);
  EXPECT_EQ(list.search("ve"), 3);
  EXPECT_EQ(list.search("VAR"), 2);
  EXPECT_EQ(list.search("x"), std::nullopt);
  EXPECT_FALSE(list.chosen());
  EXPECT_THROW(list.choose(4), GestureRefused);
  list.choose(2);
  EXPECT_EQ(list.chosen(), Value("02"));
}

TEST_F(ControlTest, LookupListTellsOfACaptionWithoutAColumn) {
  run("CREATE TABLE L (CODICE varchar(5))");
  run("INSERT INTO L VALUES ('01')");
  const LookupList list("Elenco", {"Codice", "Descrizione"}, open("SELECT * FROM L"));
  EXPECT_THROW(list.search("x"), std::out_of_range);
}

TEST_F(ControlTest, LookupListOfNothingIsEmpty) {
  run("CREATE TABLE L (CODICE varchar(5))");
  const LookupList list("Elenco", {"Codice"}, open("SELECT * FROM L"));
  EXPECT_EQ(list.rowCount(), 0);
}

}  // namespace
}  // namespace kebu::controls
