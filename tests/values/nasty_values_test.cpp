// Every place that takes a value gets every nasty one. Each time the value is kept as it is, or
// refused, or the user is told: nothing is changed without a word, and no error leaves the plug-in.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "common/convert.h"
#include "common/nulls.h"
#include "controls/edit_box.h"
#include "controls/lookup_list.h"
#include "controls/query_grid.h"
#include "forms/anagrafica/frame/pages.h"
#include "tests/plugin/plugin_fixture.h"
#include "tests/support/test_workplace.h"
#include "tests/values/entry_checks.h"
#include "tests/values/nasty_values.h"
#include "workbench/host/host_properties.h"

namespace kebu::tests {
namespace {

using controls::as;
using controls::EditBox;
using controls::QueryGrid;

std::shared_ptr<engine::Database> newCompany() {
  static const std::shared_ptr<engine::Database> demo = workbench::demoCompany();
  return demo->clone();
}

/// The window on models, whose user leaves whatever asks.
class ModelEntryWindow : public EntryWindow {
 public:
  explicit ModelEntryWindow(TestWorkplace& workplace) : workplace_(workplace) {
    workplace_.user().answerTo = [this](const workbench::ShownMessage& box) {
      ++told_;
      if (workbench::offers(box.style, msgbox::no)) return msgbox::no;
      return workbench::offers(box.style, msgbox::abort) ? msgbox::abort
                                                         : workbench::wayOut(box.style);
    };
  }

  void openPage(std::int32_t view) override { hands().openPage(view); }
  void refresh() override { hands().refresh(); }
  std::vector<std::string> boxes() override {
    std::vector<std::string> names;
    for (controls::Control* control : workplace_.desktop().front()->controls()) {
      const auto* const box = as<EditBox>(*control);
      if (box && box->isReachable() && box->isEditable()) names.push_back(box->Name());
    }
    return names;
  }
  std::string text(const std::string& box) override { return hands().value(box); }
  Outcome type(const std::string& box, const std::string& text) override {
    return {text, isTold([&] { hands().type(box, text); })};
  }
  bool choose(const std::string& combo, const std::string& code) override {
    try {
      hands().choose(combo, code);
      return true;
    } catch (const controls::GestureRefused&) {
      return false;
    } catch (const workbench::StepError&) {
      return false;
    }
  }
  bool press(const std::string& bar, const std::string& button) override {
    return hands().isButtonEnabled(bar, button) && isTold([&] { hands().press(bar, button); });
  }
  bool click(const std::string& button) override {
    return isTold([&] { hands().clickButton(button); });
  }
  Outcome edit(const std::string& grid, std::int32_t row, const std::string& field,
               const std::string& text) override {
    return {text, isTold([&] { hands().edit(grid, row, field, Value(text)); })};
  }
  void chooseInCell(const std::string& grid, std::int32_t row, const std::string& field,
                    std::int16_t value) override {
    hands().edit(grid, row, field, Value(value));
  }
  void tickCell(const std::string& grid, std::int32_t row, const std::string& field) override {
    hands().tickCell(grid, row, field);
  }
  std::string cell(const std::string& grid, std::int32_t row, const std::string& field) override {
    auto& control = dynamic_cast<QueryGrid&>(*workplace_.desktop().front()->find(grid));
    return toDisplay(control.cell(row, field));
  }
  std::string stored(const std::string& query) override {
    return toDisplay(workplace_.company().session().execute(query).at(0).rows.at(0).at(0));
  }

  /// The messages since the window was made.
  int told() const { return told_; }

 private:
  workbench::ModelHands& hands() { return workplace_.hands(); }
  template <class Gesture>
  bool isTold(Gesture&& gesture) {
    const int before = told_;
    try {
      gesture();
    } catch (const controls::GestureRefused&) {
      return true;
    }
    return told_ > before;
  }

  TestWorkplace& workplace_;
  int told_ = 0;
};

class NastyValues : public testing::Test {
 protected:
  NastyValues() {
    workplace_.open();
    EXPECT_EQ(window_.told(), 0);
  }
  ~NastyValues() override { workplace_.close(); }

  TestWorkplace workplace_{newCompany()};
  ModelEntryWindow window_{workplace_};
};

TEST_F(NastyValues, InTheBoxesOfTheProfile) {
  enterInBoxesOfTheProfile(window_);
}

TEST_F(NastyValues, InTheLevelsOfCategories) {
  enterInLevelsOfCategories(window_, Share::All);
}

TEST_F(NastyValues, InTheConditionsOfFilters) {
  enterInConditionsOfFilters(window_, Share::All);
}

TEST_F(NastyValues, AreManyInAListOfCodes) {
  using controls::QueryEditor;
  using controls::RangeEnd;
  constexpr const char* editor = "ENHQUERY_CLI";
  constexpr int last = 5'000;
  window_.openPage(10);
  const auto counted = [&] {
    EXPECT_FALSE(window_.click(std::string(editor) + ".CONTA"));
    return workplace_.hands().value(std::string(editor) + ".ESITO");
  };
  const auto state = [&](std::size_t field, const char* op, const std::string& value) {
    EXPECT_TRUE(window_.choose(QueryEditor::operatorName(editor, field), op));
    EXPECT_FALSE(
        window_.type(QueryEditor::valueName(editor, field, RangeEnd::First), value).isTold);
  };
  std::string codes;
  for (int code = 1; code <= last; ++code) codes += std::to_string(code) + ';';
  constexpr std::size_t customer = 1;  // a number
  constexpr std::size_t name = 2;      // a text
  state(customer, "between", "1");
  window_.type(QueryEditor::valueName(editor, customer, RangeEnd::Second), std::to_string(last));
  const std::string between = counted();
  EXPECT_NE(between, "");
  state(customer, "in", codes);
  EXPECT_EQ(counted(), between);
  state(name, "in", codes);
  EXPECT_NE(counted(), between) << "nobody has such a name";
}

TEST_F(NastyValues, InTheCellsOfGrids) {
  enterInCellsOfPriceLists(window_, Share::All);
}

TEST_F(NastyValues, InThePositionOfARule) {
  enterInThePositionOfARule(window_);
}

TEST_F(NastyValues, InTheSearchOfListsAndGrids) {
  workplace_.hands().openPage(3);
  auto& grid = dynamic_cast<QueryGrid&>(*workplace_.desktop().front()->find("QGRID_DEP"));
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

/// Every other service answers with a nasty text: as a statement, a path, a title, a saved filter.
class NastyTexts : public host::SqlDecodeService,
                   public host::LookupService,
                   public host::EnvironmentService,
                   public host::SavedFilterService {
 public:
  explicit NastyTexts(std::string text) : text_(std::move(text)) {}

  void Initialize(const Ref<host::Cinterface>&) override {}
  std::string DocumentType(const std::string&, const std::string&) override { return text_; }
  std::string Customer(const std::string&, const std::string&) override { return text_; }
  std::string Code(const std::string&, const std::string&,
                   const std::vector<std::string>&) override {
    return text_;
  }
  std::string GetPath(std::int32_t, const std::string&) override { return text_; }
  Value Load(const std::string&, const std::string&) override { return text_; }
  void Save(const std::string&, const std::string&, const std::string&, bool) override {}
  host::LookupDefinition DocumentTypes(const std::string&) override { return list(); }
  host::LookupDefinition Customers(const std::string&) override { return list(); }
  host::LookupDefinition Configurator(const std::string&) override { return list(); }
  host::LookupDefinition CustomerNames(const std::string&) override { return list(); }
  host::LookupDefinition Suppliers(const std::string&) override { return list(); }
  host::LookupDefinition Codes(const std::string&, const std::string&,
                               const std::vector<std::string>&) override {
    return list();
  }

 private:
  host::LookupDefinition list() const { return {text_, text_, {text_, text_}, text_}; }

  std::string text_;
};

class NastyTextServices : public workbench::GlobalServices {
 public:
  NastyTextServices(const workbench::HostSurroundings& surroundings, const std::string& text)
      : GlobalServices(surroundings), texts_(makeRef<NastyTexts>(text)), text_(text) {}

  std::string ApplicationCode() override { return text_; }
  Value SessionId() override { return text_; }
  Value UserId() override { return text_; }
  Ref<host::SqlDecodeService> CreateSqlDecode() override { return texts_; }
  Ref<host::LookupService> CreateLookups() override { return texts_; }
  Ref<host::EnvironmentService> CreateEnvironment() override { return texts_; }
  Ref<host::SavedFilterService> CreateSavedFilters() override { return texts_; }

 private:
  Ref<NastyTexts> texts_;
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
    auto& document = control<EditBox>("TXT_GM04_CODDOCWEB_MG36");
    if (document.isReachable() && document.isEditable()) document.lookup();
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

TEST_F(NastyHost, GivesTextsThatAreNoStatements) {
  for (const NastyValue& value : nastyValues()) {
    SCOPED_TRACE(value.name);
    told.clear();
    statements.clear();
    EXPECT_TRUE(openAndClose(makeRef<NastyTextServices>(surroundings(), value.text)));
    // What the host gives as a statement is run as it is, and its error is told.
    const auto all = statements.statements();
    const bool isRun = std::ranges::find(all, value.text) != all.end();
    EXPECT_TRUE(isRun || value.text.find_first_not_of(' ') == std::string::npos);
    EXPECT_TRUE(!told.empty() || !isRun || value.text.starts_with("/*"));
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
