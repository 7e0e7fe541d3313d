// Every place that takes a value gets every nasty one. Each time the value is kept as it is, or
// refused, or the user is told: nothing is changed without a word, and no error leaves the plug-in.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/edit_box.h"
#include "controls/lookup_list.h"
#include "controls/query_editor.h"
#include "controls/query_grid.h"
#include "forms/anagrafica/frame/pages.h"
#include "tests/plugin/plugin_fixture.h"
#include "tests/support/test_workplace.h"
#include "tests/values/nasty_values.h"
#include "workbench/host/host_properties.h"

namespace kebu::tests {
namespace {

using controls::as;
using controls::EditBox;
using controls::QueryGrid;

/// Whether both are the same for people: blanks at the end do not count, and a number may be
/// written in another form.
bool isSameValue(const std::string& given, const std::string& kept) {
  if (trimRight(given) == trimRight(kept)) return true;
  // A point that does not group three digits was meant for something else.
  static const std::regex number(R"(\s*[+-]?(\d+|\d{1,3}(\.\d{3})+)(,\d+)?([eE][+-]?\d+)?\s*)");
  if (!std::regex_match(given, number) || !std::regex_match(kept, number)) return false;
  try {
    return toDecimal(given) == toDecimal(kept);
  } catch (const RuntimeError&) {
    return false;  // larger than any column
  }
}

std::shared_ptr<engine::Database> newCompany() {
  static const std::shared_ptr<engine::Database> demo = workbench::demoCompany();
  return demo->clone();
}

/// The window on the demo company, whose user leaves whatever asks and notes that they were told.
class NastyValues : public testing::Test {
 protected:
  NastyValues() {
    workplace_.user().answerTo = [this](const workbench::ShownMessage& box) {
      told_.push_back(box.text);
      if (workbench::offers(box.style, msgbox::no)) return msgbox::no;
      return workbench::offers(box.style, msgbox::abort) ? msgbox::abort
                                                         : workbench::wayOut(box.style);
    };
    workplace_.open();
    EXPECT_TRUE(told_.empty());
  }
  ~NastyValues() override { workplace_.close(); }

  controls::Form& form() { return *workplace_.desktop().front(); }
  workbench::ModelHands& hands() { return workplace_.hands(); }
  template <class Gesture>
  bool isRefusedOrTold(Gesture&& gesture) {
    told_.clear();
    try {
      gesture();
    } catch (const controls::GestureRefused&) {
      return true;
    }
    return !told_.empty();
  }
  void press(const char* bar, const char* button) {
    if (hands().isButtonEnabled(bar, button)) hands().press(bar, button);
  }
  /// Types into every box that can be reached; the texts of those that took the value, by name.
  std::map<std::string, std::string> typeEverywhere(const std::string& value);
  /// What the database has of the one row of a query, as people write it; "" for nothing.
  std::string stored(const std::string& query) {
    const auto results = workplace_.company().session().execute(query);
    return toDisplay(results.at(0).rows.at(0).at(0));
  }

  TestWorkplace workplace_{newCompany()};
  std::vector<std::string> told_;
};

std::map<std::string, std::string> NastyValues::typeEverywhere(const std::string& value) {
  std::map<std::string, std::string> taken;
  for (controls::Control* control : form().controls()) {
    auto* const box = as<EditBox>(*control);
    if (!box || !box->isReachable() || !box->isEditable()) continue;
    const std::string before = box->text();
    const bool isTold = isRefusedOrTold([&] { box->type(value); });
    if (isSameValue(value, box->text())) {
      taken[box->Name()] = box->text();
    } else {
      EXPECT_TRUE(isTold) << box->Name() << " shows \"" << box->text() << '"';
      EXPECT_EQ(box->text(), before) << box->Name();
    }
  }
  return taken;
}

TEST_F(NastyValues, InTheBoxesOfTheProfile) {
  const std::string forced =
      "GM03_CODICEDISPOSITIVO";  // whatever is typed, the profile's code is 1
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    hands().choose("CMB_GM04_INDTIPODEPIMP", "1");
    hands().choose("CBO_TIPOVALORIZZ", "16");
    const auto shown = typeEverywhere(value.text);
    if (isRefusedOrTold([&] { press("INAV_PAR", "Conferma"); })) {
      press("INAV_PAR", "Annulla");
      continue;
    }
    for (const auto& [name, text] : shown) {
      auto& box = dynamic_cast<EditBox&>(*form().find(name));
      const std::string column = box.frame() ? box.DBField() : forced;
      if (column == forced) continue;
      const bool isProfile = column.starts_with("GM03_");
      const std::string kept =
          stored("SELECT " + column + " FROM " +
                 (isProfile ? "GM03_DISPOSITIVI WHERE GM03_IDDISPOSITIVO = 2"
                            : "GM04_PARAMETRITVRO WHERE GM04_IDDISPOSITIVO_GM03 = 2"));
      EXPECT_TRUE(isSameValue(text, kept)) << column << " holds \"" << kept << '"';
    }
  }
}

TEST_F(NastyValues, InTheLevelsOfCategories) {
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    for (const std::int32_t view : {6, 7}) {
      hands().openPage(view);
      const auto shown = typeEverywhere(value.text);
      if (isRefusedOrTold([&] { press("INAV_CATCLIART", "Conferma"); })) {
        press("INAV_CATCLIART", "Annulla");
        continue;
      }
      workplace_.close();
      workplace_.open();
      hands().openPage(view);
      for (const auto& [name, text] : shown) {
        auto& box = dynamic_cast<EditBox&>(*form().find(name));
        EXPECT_TRUE(isSameValue(text, box.text())) << name << " shows \"" << box.text() << '"';
      }
    }
  }
}

TEST_F(NastyValues, InTheConditionsOfFilters) {
  using controls::QueryEditor;
  for (const auto& [view, name] : {std::pair(11, "ENHQUERY_ART"), std::pair(10, "ENHQUERY_CLI")}) {
    hands().openPage(view);
    QueryEditor& editor = workplace_.editor(name);
    for (std::size_t field = 1; field <= editor.fieldCount(); ++field) {
      const std::string choice = QueryEditor::operatorName(name, field);
      const std::string box = QueryEditor::valueName(name, field, controls::RangeEnd::First);
      for (const char* const op : {"=", "contains", "in"}) {
        if (isRefusedOrTold([&] { hands().choose(choice, op); })) continue;  // numbers lack some
        for (const NastyValue& value : nastyValues()) {
          SCOPED_TRACE(choice + ' ' + op + ' ' + value.name);
          const std::string before = hands().value(box);
          const bool isTold = isRefusedOrTold([&] { hands().type(box, value.text); });
          const std::string kept = hands().value(box);
          EXPECT_TRUE(isSameValue(value.text, kept) || (isTold && kept == before)) << kept;
        }
        // The condition that is made of what was taken last is one that the database understands.
        isRefusedOrTold([&] { hands().clickButton(std::string(name) + ".CONTA"); });
        EXPECT_EQ(told_, std::vector<std::string>());
        hands().choose(choice, "clear");
      }
    }
  }
}

TEST_F(NastyValues, InTheCellsOfGrids) {
  hands().openPage(2);
  auto& grid = dynamic_cast<QueryGrid&>(*form().find("QGRID_LISTINI"));
  const std::pair<const char*, std::int16_t> cells[] = {
      {"GM57_NUMLIST_LI10", 1},     {"GM57_CATEGORIA", 2}, {"GM57_CATEGORIA", 3},
      {"GM57_DEPGIACENZE_MG58", 4}, {"GM57_QUANTITA", 5},  {"GM57_CLIFOR_CG44", 6},
      {"GM57_INDTIPO", 0},          {"GM57_FLGATTIVO", 0},
  };
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    std::map<std::int32_t, std::pair<std::string, std::string>> shown;
    std::int32_t row = 0;
    for (const auto& [field, type] : cells) {
      ++row;
      grid.edit(row, "GM57_INDTIPO", Value(type));
      const std::string before = toDisplay(grid.cell(row, field));
      const bool isTold = isRefusedOrTold([&] { grid.edit(row, field, Value(value.text)); });
      const std::string kept = toDisplay(grid.cell(row, field));
      EXPECT_TRUE(isSameValue(value.text, kept) || (isTold && kept == before))
          << field << " shows \"" << kept << '"';
      // Incomplete slots are switched off when they are saved.
      if (std::string_view(field) != "GM57_FLGATTIVO") shown[row] = {field, kept};
    }
    if (isRefusedOrTold([&] { press("INAV_PAR", "Conferma"); })) continue;
    for (const auto& [slot, cell] : shown) {
      const std::string kept =
          stored("SELECT " + cell.first +
                 " FROM GM57_KBLISTINI WHERE GM57_IDDISPOSITIVO_GM03 = 2 AND GM57_CODPREZZO = " +
                 std::to_string(slot));
      EXPECT_TRUE(isSameValue(cell.second, kept)) << cell.first << " holds \"" << kept << '"';
    }
  }
}

TEST_F(NastyValues, InThePositionOfARule) {
  hands().openPage(forms::DiscountsPage::view);
  hands().choose("CMB_LISTINISCONTO", "4");
  hands().tick("CHK_SCONTOPREZZOART", true);
  auto& grid = dynamic_cast<QueryGrid&>(*form().find("QGRID_SCONTOSUPREZZO"));
  ASSERT_GT(grid.rowCount(), 0);
  if (grid.cellText(1, 0) != "1") grid.tickCell(1, "GM61_ATTIVA");
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    const std::string before = toDisplay(grid.cell(1, "GM61_POSIZIONE"));
    const bool isTold = isRefusedOrTold([&] { grid.edit(1, "GM61_POSIZIONE", Value(value.text)); });
    const std::string kept = toDisplay(grid.cell(1, "GM61_POSIZIONE"));
    EXPECT_TRUE(isSameValue(value.text, kept) || (isTold && kept == before)) << kept;
  }
}

TEST_F(NastyValues, InTheSearchOfListsAndGrids) {
  hands().openPage(3);
  auto& grid = dynamic_cast<QueryGrid&>(*form().find("QGRID_DEP"));
  const auto connection = workplace_.newConnection();
  connection->Open();
  controls::LookupList list("Elenco depositi", {"Codice", "Descrizione"},
                            connection->Execute("SELECT MG58_CODDEP, MG58_DESCRDEP FROM "
                                                "MG58_DEPOSITI WHERE MG58_DITTA_CG18 = 1"));
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    grid.tools().find(value.text, std::nullopt);
    grid.tools().finish();
    EXPECT_GE(grid.currentRow(), 1);
    list.search(value.text);
    EXPECT_EQ(static_cast<std::size_t>(list.shownCount()), list.matching(value.text).size());
    list.setCurrent(value.text);
    list.search("");
    EXPECT_EQ(list.shownCount(), list.rowCount());
  }
}

TEST_F(NastyValues, InThePropertiesOfTheContract) {
  for (const workbench::HostProperty& property : workbench::hostProperties()) {
    if (!property.set) continue;
    for (const NastyValue& value : nastyValues()) {
      SCOPED_TRACE(std::string(property.name) + ' ' + value.name);
      const std::string before = property.get(*workplace_.plugin());
      try {
        if (property.check) property.check(value.text);
      } catch (const RuntimeError&) {
        continue;  // the host's own language does not take it
      }
      property.set(*workplace_.plugin(), value.text);
      const std::string kept = property.get(*workplace_.plugin());
      const bool isFlag = kept == "true" || kept == "false";
      const bool isDiscarded = property.name == "Filtro" && kept.empty();
      // A whole number takes what automation makes of the text.
      const bool isRounded =
          property.check && !isFlag && toInt32(Value(value.text)) == std::stoi(kept);
      const bool isPlace = property.name == "Top" || property.name == "Left";
      EXPECT_TRUE(isFlag || isDiscarded || isRounded || isPlace || kept == before ||
                  isSameValue(value.text, kept))
          << kept;
      property.set(*workplace_.plugin(), before);
    }
  }
}

/// A host whose services answer with a nasty value.
class NastyServices : public workbench::GlobalServices {
 public:
  using GlobalServices::GlobalServices;

  Value CompanyCode() override {
    return company.isEmpty() ? GlobalServices::CompanyCode() : company;
  }
  Ref<host::MessageService> Messages() override {
    return messages ? messages : GlobalServices::Messages();
  }

  Value company;
  Ref<host::MessageService> messages;
};

/// Every translation and answer is nasty.
class NastyMessages : public host::MessageService {
 public:
  explicit NastyMessages(std::string text) : text_(std::move(text)) {}
  std::string Translate(const std::string&) override { return text_; }
  std::int32_t MsgBox(const Value&, std::int32_t, const Value&, const Value&) override {
    return 4711;
  }
  std::int32_t MsgBoxFromId(std::int32_t, std::int32_t, const Value&, const Value&) override {
    return -1;
  }

 private:
  std::string text_;
};

class NastyHost : public plugin::PluginTest {
 protected:
  /// Opens the window, goes through its pages and closes it; whether it could be closed.
  bool openAndClose(const Ref<host::ClsGlobal>& global) {
    user.answerTo = [this](const workbench::ShownMessage& box) {
      told.push_back(box.text);
      return workbench::offers(box.style, msgbox::abort) ? msgbox::abort
                                                         : workbench::wayOut(box.style);
    };
    const auto instance = create();
    instance->setClsGlobal(global);
    instance->setCanUpdate(true);
    instance->ShowForm();
    for (const std::int32_t view : {2, 3, 6, 7, 10, 11, 12, 1}) {
      for (controls::Control* each : desktop.front()->controls()) {
        if (auto* const links = as<controls::SideBar>(*each)) links->click(view);
      }
    }
    return toBoolean(instance->CloseForm());
  }

  std::vector<std::string> told;
};

TEST_F(NastyHost, GivesACompanyThatIsNoNumber) {
  std::vector<Value> codes{Value(Null{}), Value(std::int32_t{-1}), Value(*Decimal::parse("1.5")),
                           Value(true), Value(Date())};
  for (const NastyValue& value : nastyValues()) codes.emplace_back(value.text);
  for (const Value& code : codes) {
    SCOPED_TRACE(toDisplay(code).substr(0, 50));
    const auto global = makeRef<NastyServices>(surroundings());
    global->company = code;
    told.clear();
    statements.clear();
    EXPECT_TRUE(openAndClose(global));
    std::string number;
    try {
      number = toSqlNumber(code);
    } catch (const RuntimeError&) {
      EXPECT_FALSE(told.empty());
    }
    // It stands in a statement as a number or not at all.
    for (const std::string& statement : statements.statements()) {
      const std::string beginning = "MG58_DITTA_CG18 = ";
      const std::size_t place = statement.find(beginning);
      if (place == std::string::npos) continue;
      const std::size_t from = place + beginning.size();
      EXPECT_EQ(statement.substr(from, statement.find_first_of(" \r", from) - from), number)
          << statement;
    }
  }
}

TEST_F(NastyHost, TranslatesAndAnswersAnything) {
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    const auto global = makeRef<NastyServices>(surroundings());
    global->messages = makeRef<NastyMessages>(value.text);
    statements.clear();
    EXPECT_TRUE(openAndClose(global));
    for (const std::string& statement : statements.statements()) {
      const bool isLongEnough = trim(value.text).size() > 5;
      if (isLongEnough) {
        EXPECT_EQ(statement.find(value.text), std::string::npos) << statement;
      }
    }
  }
}

}  // namespace
}  // namespace kebu::tests
