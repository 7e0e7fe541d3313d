#include "controls/query_editor.h"

#include <map>

#include "sql/query_predicate.h"
#include "tests/support/control_fixture.h"

namespace kebu::controls {
namespace {

using Op = QueryOperator;

class MapStore : public host::SavedFilterService {
 public:
  void Initialize(const Ref<host::Cinterface>&) override {}
  Value Load(const std::string& key, const std::string& name) override {
    const auto at = texts.find(key + "/" + name);
    return at == texts.end() ? Value() : Value(at->second);
  }
  void Save(const std::string& key, const std::string& name, const std::string& text,
            bool isDefault) override {
    texts[key + "/" + name] = text;
    lastIsDefault = isDefault;
  }
  std::map<std::string, std::string> texts;
  bool lastIsDefault = false;
};

constexpr QueryField field(const char* caption, const char* name, bool lookup, bool numeric,
                           std::size_t length) {
  return {"Standard", caption, name,  true,  0,     lookup,
          !numeric,   numeric, false, false, false, length};
}

class QueryEditorTest : public testing::Test {
 protected:
  QueryEditorTest() { declare(editor); }

  void declare(QueryEditor& declared) {
    declared.setStorageKey("KB_ART");
    declared.setSurroundings({{}, {}, {}, nullptr, store, nullptr});
    declared.addField(field("Famiglia", "FAM", true, false, 3));
    declared.addField(field("Gruppo", "GRP", true, false, 3));
    declared.addField(field("Stato", "STATO", true, true, 2));
    declared.addField(field("Nome", "NOME", false, false, 20));
    declared.completeDeclaration();
    declared.CurrentRecordChanged.on([this](const std::string& name) { changes.push_back(name); });
    declared.StartDecode.on([this](const QueryRequest& request, std::string& description) {
      decodes.push_back(request.caption + "/" + request.value +
                        (request.end == RangeEnd::First ? "/1" : "/2"));
      description = "<" + request.value + ">";
    });
    declared.StartLookup.on(
        [this](const QueryRequest&, std::optional<Value>& chosen) { chosen = answer; });
  }

  QueryEditor::Row& row(std::size_t i) { return editor.row(i); }
  using Names = std::vector<std::string>;

  std::shared_ptr<MapStore> store = std::make_shared<MapStore>();
  RecordingHost host;
  QueryEditor editor{"EDITOR", host, sql::queryComposer};
  Names changes;
  Names decodes;
  std::optional<Value> answer;
};

// A text that is put together is translated in its parts: as a whole it is in no dictionary.
TEST_F(QueryEditorTest, RefusalsAreTranslatedInTheirParts) {
  QueryEditor foreign("EDITOR", host, sql::queryComposer);
  foreign.setTranslator([](const std::string& text) { return "<" + text + ">"; });
  declare(foreign);
  const auto row = [&](std::size_t i) -> QueryEditor::Row& { return foreign.row(i); };
  row(2).op.choose("between");
  row(2).first.type("x");
  EXPECT_EQ(host.messages.back(), "<Stato>: \"x\"< non è un numero intero.>");
  row(2).first.type("9");
  row(2).second.type("1");
  EXPECT_FALSE(foreign.confirmRanges());
  EXPECT_EQ(host.messages.back(),
            "<L'intervallo di >\"<Stato>\"< è rovesciato: da >\"9\"< a >\"1\"< non c'è nulla.>");
  row(0).op.choose("in");
  row(0).first.type("VER;LUNGO");
  EXPECT_EQ(host.messages.back(), "<Famiglia>: \"LUNGO\"< supera i >3< caratteri.>");
}

TEST_F(QueryEditorTest, ItemsAndTheWholeTextSayTheSame) {
  EXPECT_EQ(editor.ComponiCondizione(), "");
  row(3).op.choose("contains");
  row(3).first.type("d'e");
  row(0).first.type("VER");
  EXPECT_EQ(row(0).op.text(), "=") << "a value alone is one to be equal to";
  const auto items = editor.items();
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(items[0].DataField, "FAM");
  EXPECT_EQ(items[0].Condizione, "FAM = 'VER'");
  EXPECT_EQ(items[1].Condizione, "");
  EXPECT_EQ(editor.ComponiCondizione(),
            " AND (" + items[0].Condizione + ") AND (" + items[3].Condizione + ")");
  EXPECT_EQ(editor.composedText().text(), editor.ComponiCondizione());
  EXPECT_EQ(changes, (Names{"NOME", "NOME", "FAM"}));
}

TEST_F(QueryEditorTest, BoxesFollowTheOperator) {
  const auto descriptionsShown = [&] {
    return std::pair(row(0).firstDescription.isVisible(), row(0).secondDescription.isVisible());
  };
  EXPECT_FALSE(row(0).op.showsCodes()) << "the user reads words";
  EXPECT_TRUE(row(0).first.isVisible());
  EXPECT_FALSE(row(0).second.isVisible());
  EXPECT_EQ(descriptionsShown(), std::pair(true, false));
  row(0).op.choose("between");
  EXPECT_EQ(descriptionsShown(), std::pair(true, true));
  row(0).first.type("A");
  row(0).second.type("B");
  EXPECT_EQ(editor.condition("FAM"), (QueryCondition{Op::Range, {"A", "B"}}));
  EXPECT_EQ(row(0).first.hint(), "");
  row(0).op.choose("in");
  EXPECT_EQ(row(0).first.hint(), "valori separati da ;");
  EXPECT_FALSE(row(0).second.isVisible());
  EXPECT_EQ(descriptionsShown(), std::pair(false, false)) << "several codes have no description";
  EXPECT_EQ(editor.condition("FAM"), (QueryCondition{Op::OneOf, {"A"}}));
  row(0).first.type("A; B;C");
  EXPECT_EQ(editor.condition("FAM"), (QueryCondition{Op::OneOf, {"A", "B", "C"}}));
  row(0).op.choose("=");
  EXPECT_EQ(row(0).first.text(), "A") << "of a list the first is left";
  row(0).op.choose("empty");
  EXPECT_FALSE(row(0).first.isVisible());
  row(0).op.choose("clear");
  EXPECT_EQ(row(0).first.text(), "") << "what was not seen is not kept";
  for (const char* op : {"=", "<>", "starts", "contains", "in"}) {
    row(0).op.choose(op);
    EXPECT_TRUE(row(0).first.isVisible() && !row(0).second.isVisible()) << op;
  }
  row(0).op.choose("clear");
  EXPECT_EQ(editor.ComponiCondizione(), "");
}

TEST_F(QueryEditorTest, ValuesAreCheckedAsTheyAreEntered) {
  row(2).first.type("x");
  EXPECT_EQ(host.messages, Names{"Stato: \"x\" non è un numero intero."});
  EXPECT_EQ(row(2).first.text(), "");
  EXPECT_TRUE(changes.empty());
  EXPECT_THROW(row(2).op.choose("starts"), GestureRefused) << "numbers have no beginnings";
  EXPECT_THROW(row(0).first.type("LONG"), GestureRefused);
  row(0).op.choose("in");
  row(0).first.type("A;LONG");
  EXPECT_EQ(host.messages.back(), "Famiglia: \"LONG\" supera i 3 caratteri.");
  row(0).first.type("A;B;C;D");
  EXPECT_EQ(editor.condition("FAM").values.size(), 4U) << "a list may be longer than its items";
}

TEST_F(QueryEditorTest, ARangeTheWrongWayRoundIsTold) {
  row(2).op.choose("between");
  row(2).first.type("3");
  row(2).second.type("1");
  EXPECT_TRUE(editor.warning().isVisible());
  EXPECT_TRUE(host.messages.empty()) << "not while it is typed";
  int counts = 0;
  editor.Count.on([&](std::string& text) { text = std::to_string(++counts); });
  editor.countButton().click();
  EXPECT_EQ(counts, 0);
  ASSERT_EQ(host.messages.size(), 1U);
  EXPECT_NE(host.messages[0].find("\"Stato\""), std::string::npos);
  EXPECT_FALSE(editor.confirmRanges());
  row(2).second.type("5");
  EXPECT_FALSE(editor.warning().isVisible());
  editor.countButton().click();
  EXPECT_EQ(editor.countAnswer().caption(), "1");
  row(2).second.type("6");
  EXPECT_EQ(editor.countAnswer().caption(), "") << "the count was of another filter";
}

TEST_F(QueryEditorTest, CodesAreDecodedWhereTheyAreCodes) {
  row(0).op.choose("between");
  row(0).first.type("A");
  row(0).second.type("B");
  EXPECT_EQ(decodes, (Names{"Famiglia/A/1", "Famiglia/B/2"}));
  EXPECT_EQ(row(0).secondDescription.caption(), "<B>");
  row(0).op.choose("starts");
  EXPECT_EQ(row(0).firstDescription.caption(), "") << "the beginning of a code is none";
  row(3).first.type("testo");
  EXPECT_EQ(decodes.size(), 2U);
  decodes.clear();
  row(0).op.choose("=");
  editor.decodeAgain("FAM");
  EXPECT_EQ(decodes, (Names{"Famiglia/A/1", "Famiglia/A/1"}));
  EXPECT_EQ(editor.value("FAM", RangeEnd::First), "A");
  EXPECT_EQ(editor.value("FAM", RangeEnd::Second), "A") << "begins and ends with it";
  EXPECT_EQ(editor.value("NESSUNO", RangeEnd::First), "");
}

TEST_F(QueryEditorTest, LookupsEnterWhatWasChosen) {
  row(0).first.lookup();
  EXPECT_EQ(row(0).op.text(), "clear") << "nothing was chosen";
  answer = Value("VER  ");
  row(0).first.lookup();
  EXPECT_EQ(editor.condition("FAM"), (QueryCondition{Op::Equal, {"VER"}}));
  row(0).op.choose("in");
  answer = Value("A;B");
  row(0).first.lookup();
  EXPECT_EQ(editor.condition("FAM"), (QueryCondition{Op::OneOf, {"VER", "A;B"}}));
  answer = Value(std::int16_t{2});
  editor.CloseLookup.on([](const QueryRequest&, Value& chosen) { chosen = std::int16_t{3}; });
  row(2).op.choose("between");
  row(2).second.lookup();
  EXPECT_EQ(editor.condition("STATO"), (QueryCondition{Op::Range, {"", "3"}}));
  EXPECT_THROW(row(3).first.lookup(), GestureRefused);
}

TEST_F(QueryEditorTest, SavedFiltersComeBackInAnotherEditor) {
  EXPECT_FALSE(editor.loadFilter("Filtro"));
  row(0).op.choose("in");
  row(0).first.type("A; \"B;C\"");
  row(2).op.choose("between");
  row(2).second.type("5");
  row(3).op.choose("not-empty");
  editor.saveFilter("Filtro", true);
  EXPECT_TRUE(store->lastIsDefault);
  changes.clear();

  QueryEditor other("OTHER", host, sql::queryComposer);
  declare(other);
  ASSERT_TRUE(other.loadFilter("Filtro"));
  EXPECT_EQ(other.ComponiCondizione(), editor.ComponiCondizione());
  EXPECT_EQ(other.sentence(2), "compreso tra ... e 5 (<5>)");
  EXPECT_TRUE(changes.empty()) << "the user changed nothing";
  EXPECT_FALSE(other.loadFilter("Altro"));
  other.setStorageKey("KB_SELART");
  EXPECT_FALSE(other.loadFilter("Filtro"));
}

TEST_F(QueryEditorTest, AnUnreadableFilterChangesNothing) {
  row(0).first.type("VER");
  for (const char* text : {"rubbish", "ENHQUERY 1\nGRP\t=\tX\nSTATO\t=\tx"}) {
    store->texts["KB_ART/Filtro"] = text;
    EXPECT_THROW(editor.loadFilter("Filtro"), RuntimeError) << text;
    EXPECT_EQ(editor.ComponiCondizione(), " AND (FAM = 'VER')");
  }
  // A field that another version of the window has.
  store->texts["KB_ART/Filtro"] = "ENHQUERY 1\nNUOVO\t=\t1\nNOME\t=\tx";
  EXPECT_TRUE(editor.loadFilter("Filtro"));
  EXPECT_EQ(editor.ComponiCondizione(), " AND (NOME = 'x')");
}

TEST_F(QueryEditorTest, PartsAreFoundByNameAndStandInTheOrderOfTheFields) {
  EXPECT_EQ(editor.find("EDITOR(5).VALORE1"), nullptr);
  Control* const third = editor.find("editor(3).operatore");
  ASSERT_NE(third, nullptr);
  EXPECT_EQ(third->caption(), "Stato");
  EXPECT_EQ(third->container(), &editor);

  Names operators;
  for (const Control* part : editor.children()) {
    if (part->Name().ends_with("OPERATORE")) operators.push_back(part->caption());
  }
  EXPECT_EQ(operators, (Names{"Famiglia", "Gruppo", "Stato", "Nome"}));
  EXPECT_EQ(editor.children().back(), &editor.countAnswer());
}

TEST_F(QueryEditorTest, RemovedFieldsRestrictNothing) {
  row(0).first.type("VER");
  const QueryEditor::Row& removed = row(0);
  while (editor.fieldCount() > 0) editor.removeLastField();
  EXPECT_FALSE(removed.op.isVisible());  // a view may still look at it
  EXPECT_EQ(editor.ComponiCondizione(), "");
  EXPECT_THROW(editor.condition("FAM"), RuntimeError);
}

}  // namespace
}  // namespace kebu::controls
