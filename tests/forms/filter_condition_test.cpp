// A filter stated in the window and saved must select exactly the rows that it says, and as many as
// "Conta" told: for every operator on fields of every table. What it says is worked out in C++ from
// rows that are read plain.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "common/convert.h"
#include "tests/forms/filter_oracle.h"
#include "tests/support/test_workplace.h"

namespace kebu::workbench {
namespace {

using controls::QueryEditor;
using controls::QueryField;
using controls::RangeEnd;
using Op = QueryOperator;
using tests::TestWorkplace;

/// A field by which articles are filtered, and where its values stand.
struct Source {
  QueryField field;
  const char* table;
  const char* article;            ///< the column that holds the article's code
  std::vector<std::string> ones;  ///< company 1, and suppliers are kind 1
  bool isDirect;                  ///< of the article's own row: without one the value is NULL
};

constexpr QueryField text(const char* caption, const char* name) {
  return {"Standard", caption, name, true, 0, false, true, false, false, false, false, 30};
}
constexpr QueryField number(const char* caption, const char* name) {
  return {"Standard", caption, name, true, 0, false, false, true, false, false, false, 6};
}

const Source sources[] = {
    {text("Famiglia", "MG66_FAM_MG53"), "MG66_ANAGRART", "MG66_CODART", {"MG66_DITTA_CG18"}, true},
    {number("Stato", "MG66_INDSTATO_MG6W"),
     "MG66_ANAGRART",
     "MG66_CODART",
     {"MG66_DITTA_CG18"},
     true},
    {text("Codice articolo", "MG87_CODART_MG66"),
     "MG87_ARTDESC",
     "MG87_CODART_MG66",
     {"MG87_DITTA_CG18"},
     true},
    {text("Applicazione", "MG72_CODAPPLIC_MG57"),
     "MG72_APPLICART",
     "MG72_CODART_MG66",
     {"MG72_DITTA_CG18"},
     false},
    {number("Fornitore", "MG73_CLIFOR_CG44"),
     "MG73_ARTCLIFOR",
     "MG73_CODART_MG66",
     {"MG73_DITTA_CG18", "MG73_TIPOCF_CG44"},
     false},
    {text("Codice del fornitore", "MG73_CODARTCF"),
     "MG73_ARTCLIFOR",
     "MG73_CODART_MG66",
     {"MG73_DITTA_CG18", "MG73_TIPOCF_CG44"},
     false},
    {number("Provenienza prodotto", "PD18_INDPROVENIENZA"),
     "PD18_ARTPROD",
     "PD18_CODART_MG66",
     {"PD18_DITTA_CG18"},
     false},
    {text("Articolo prodotto", "PD18_CODART_MG66"),
     "PD18_ARTPROD",
     "PD18_CODART_MG66",
     {"PD18_DITTA_CG18"},
     false},
};

/// For a text or a number each operator, the range with one end open too.
/// `low` and `high` are values of the column in their order.
std::vector<QueryCondition> conditionsOn(const QueryField& field, const std::string& low,
                                         const std::string& high) {
  std::vector<QueryCondition> all{
      {Op::Equal, {low}},     {Op::Different, {low}}, {Op::Range, {low, high}},
      {Op::Range, {low, ""}}, {Op::Range, {"", low}}, {Op::OneOf, {low, high}},
      {Op::OneOf, {low}},     {Op::Empty, {}},        {Op::NotEmpty, {}},
  };
  if (field.isNumeric) return all;
  all.push_back({Op::Starts, {low.substr(0, 2)}});
  all.push_back({Op::Contains, {low.substr(1)}});
  for (const char* odd : {"'", "%_[", "' OR '1' = '1", "PD18_X"}) {
    all.push_back({Op::Equal, {odd}});
    all.push_back({Op::Different, {odd}});
    all.push_back({Op::Starts, {odd}});
    all.push_back({Op::Contains, {odd}});
    all.push_back({Op::OneOf, {odd, low}});
  }
  return all;
}

class FilterConditionTest : public testing::Test {
 protected:
  FilterConditionTest() {
    addOddRows();
    allArticles = read(workplace.company().session(), "MG66_ANAGRART", "MG66_CODART", "MG66_UNMIS",
                       {"MG66_DITTA_CG18"});
    workplace.open();
  }
  ~FilterConditionTest() override { workplace.close(); }

  /// What real data have: NULL beside "", signs in codes, an article without descriptions.
  void addOddRows() {
    workplace.company().session().execute(
        "UPDATE MG66_ANAGRART SET MG66_FAM_MG53 = NULL, MG66_INDSTATO_MG6W = NULL"
        " WHERE MG66_CODART LIKE '%-00_3'"
        " UPDATE MG66_ANAGRART SET MG66_FAM_MG53 = 'o''c' WHERE MG66_CODART LIKE '%-00_4'"
        " UPDATE MG66_ANAGRART SET MG66_FAM_MG53 = '[%_x' WHERE MG66_CODART LIKE '%-00_5'"
        " DELETE FROM MG87_ARTDESC WHERE MG87_CODART_MG66 LIKE '%-001_'"
        " UPDATE MG73_ARTCLIFOR SET MG73_CODARTCF = NULL WHERE MG73_CODART_MG66 LIKE '%-00_4'"
        " UPDATE MG73_ARTCLIFOR SET MG73_CODARTCF = '' WHERE MG73_CODART_MG66 LIKE '%-00_6'"
        " UPDATE MG73_ARTCLIFOR SET MG73_CODARTCF = 'F''%1' WHERE MG73_CODART_MG66 LIKE '%-00_7'"
        " UPDATE PD18_ARTPROD SET PD18_INDPROVENIENZA = NULL WHERE PD18_CODART_MG66 LIKE '%-00_2'"
        " INSERT INTO MG72_APPLICART VALUES (1, 'VIT-0032', '')"
        " INSERT INTO MG72_APPLICART VALUES (1, 'VIT-0064', 'a_b')"
        " INSERT INTO MG66_ANAGRART (MG66_DITTA_CG18, MG66_CODART, MG66_FAM_MG53)"
        " VALUES (1, 'PD18_X', 'PD18_X')"
        " INSERT INTO PD18_ARTPROD VALUES (1, 'PD18_X', 0, 0)"
        // A customer's code for an article is no supplier's.
        " INSERT INTO MG73_ARTCLIFOR VALUES (1, 0, 3, 'VIT-0032', 'F10032')");
  }

  void state(const std::string& editor, std::size_t row, const QueryCondition& condition) {
    ModelHands& hands = workplace.hands();
    hands.choose(QueryEditor::operatorName(editor, row),
                 std::string(controls::traitsOf(condition.op).code));
    const bool isList = condition.op == Op::OneOf;
    const auto value = [&](std::size_t i) { return condition.values[i]; };
    const std::string first = QueryEditor::valueName(editor, row, RangeEnd::First);
    if (isList) {
      hands.type(first, controls::joinList(condition.values));
    } else if (!condition.values.empty()) {
      hands.type(first, value(0));
    }
    if (condition.op == Op::Range) {
      hands.type(QueryEditor::valueName(editor, row, RangeEnd::Second), value(1));
    }
  }

  /// The counts that the button tells: what is selected, and what the preview lists of it.
  std::pair<std::string, std::string> counted(const std::string& editor) {
    workplace.hands().clickButton(editor + ".CONTA");
    const std::string answer = workplace.hands().value(editor + ".ESITO");
    const std::size_t first = answer.find(": ") + 2;
    const std::size_t end = std::min(answer.find(';'), answer.size());
    return {answer.substr(first, end - first), answer.substr(answer.rfind(": ") + 2)};
  }

  /// The articles of the rows that the preview lists without a filter.
  std::multiset<std::string> publishedArticles() {
    const auto articles = workplace.company().column(
        "SELECT MG87_CODART_MG66 FROM VGM19_KBWSPRODUCTS_KELMORIA v WHERE MG87_DITTA_CG18 = 1");
    return {articles.begin(), articles.end()};
  }

  std::string stored(const char* column) {
    workplace.hands().press("INAV_PAR", "Conferma");
    return workplace.company().value(std::string("SELECT ") + column +
                                     " FROM GM04_PARAMETRITVRO WHERE GM04_DITTA_CG18 = 1");
  }

  using StoredValues = std::multimap<std::string, StoredValue>;

  std::set<std::string> expectedArticles(const Source& source, const StoredValues& values,
                                         const QueryCondition& condition) {
    std::set<std::string> articles;
    for (const auto& [article, unused] : allArticles) {
      auto [from, to] = values.equal_range(article);
      bool any = from == to && source.isDirect && holds({}, source.field.isNumeric, condition);
      for (; from != to; ++from) any |= holds(from->second, source.field.isNumeric, condition);
      if (any) articles.insert(article);
    }
    return articles;
  }

  static std::set<std::string> setOf(const std::vector<std::string>& texts) {
    return {texts.begin(), texts.end()};
  }

  TestWorkplace workplace;
  StoredValues allArticles;
};

/// Two values that occur, in their order.
std::pair<std::string, std::string> twoValues(const Source& source) {
  if (source.field.isNumeric) return {"1", "2"};
  const std::string name(source.field.dataField);
  if (name == "MG66_FAM_MG53") return {"ele", "UTE"};
  if (name == "MG72_CODAPPLIC_MG57") return {"EST", "LEG"};
  if (name == "MG73_CODARTCF") return {"F10030", "F10500"};
  return {"ELE-0036", "VIT-0096"};
}

TEST_F(FilterConditionTest, ArticlesAreThoseThatTheFilterSays) {
  QueryEditor& editor = workplace.editor("ENHQUERY_ART");
  // The window declares the first three itself.
  std::map<std::string, std::size_t> rows{
      {"MG87_CODART_MG66", 1}, {"MG66_FAM_MG53", 2}, {"MG66_INDSTATO_MG6W", 11}};
  for (const Source& source : sources) {
    if (rows.contains(std::string(source.field.dataField))) continue;
    editor.addField(source.field);
    rows[std::string(source.field.dataField)] = editor.fieldCount();
  }
  workplace.hands().openPage(11);
  const std::multiset<std::string> published = publishedArticles();
  int selecting = 0;
  for (const Source& source : sources) {
    const std::string name(source.field.dataField);
    const StoredValues values =
        read(workplace.company().session(), source.table, source.article, name, source.ones);
    const auto [low, high] = twoValues(source);
    for (const QueryCondition& condition : conditionsOn(source.field, low, high)) {
      state("ENHQUERY_ART", rows[name], condition);
      const auto [count, listed] = counted("ENHQUERY_ART");
      const std::string filter = stored("GM04_WHERESELARTICOLI");
      SCOPED_TRACE(filter);
      ASSERT_FALSE(filter.empty());
      const std::string joined =
          name.starts_with("MG87") ? " LEFT JOIN MG87_ARTDESC ON MG87_DITTA_CG18 = MG66_DITTA_CG18"
                                     " AND MG87_CODART_MG66 = MG66_CODART"
                                   : "";
      const auto found =
          setOf(workplace.company().column("SELECT MG66_CODART FROM MG66_ANAGRART" + joined +
                                           " WHERE MG66_DITTA_CG18 = 1" + filter));
      const auto expected = expectedArticles(source, values, condition);
      EXPECT_EQ(found, expected);
      std::size_t articles = 0;
      std::size_t listedRows = 0;
      for (const std::string& article : expected) {
        const std::size_t rowsOfIt = published.count(article);
        listedRows += rowsOfIt;
        articles += rowsOfIt > 0 ? 1 : 0;
      }
      EXPECT_EQ(count, std::to_string(articles));
      EXPECT_EQ(listed, std::to_string(listedRows));
      selecting += !expected.empty() && expected.size() < allArticles.size() ? 1 : 0;
    }
    workplace.hands().choose(QueryEditor::operatorName("ENHQUERY_ART", rows[name]), "clear");
  }
  EXPECT_GT(selecting, 80) << "most of the filters are to select some articles and not others";
  EXPECT_EQ(workplace.user().boxes, std::vector<ShownMessage>());
}

TEST_F(FilterConditionTest, CustomersAreThoseThatTheFilterSays) {
  workplace.hands().openPage(10);
  const std::map<std::string, std::pair<const char*, const char*>> samples{
      {"CG44_CLIFOR", {"1010", "1100"}},
      {"Azienda", {"Colorificio", "Ferramenta D'Amico S.r.l."}},
      {"IndirizzoPrincipaleL1", {"Corso", "Via"}},
      {"Cap", {"20124", "60121"}},
      {"Citta", {"Forlì", "L'Aquila"}},
      {"Provincia", {"AN", "MC"}},
      {"PartitaIva", {"01", "02"}},
  };
  const QueryEditor& editor = workplace.editor("ENHQUERY_CLI");
  int selecting = 0;
  for (std::size_t row = 1; row <= editor.fieldCount(); ++row) {
    const QueryField& field = editor.row(row - 1).field;
    const std::string column(field.dataField);
    const auto values = read(workplace.company().session(), "VGM16_KBWSUSERS_KELMORIA",
                             "CG44_CLIFOR", column, {"CG44_DITTA_CG18"});
    ASSERT_FALSE(values.empty());
    const auto sample = samples.find(column);
    const bool isSampled = sample != samples.end();
    const std::string low = isSampled ? sample->second.first : "EDI";
    const std::string high = isSampled ? sample->second.second : "RIV";
    for (const QueryCondition& condition : conditionsOn(field, low, high)) {
      const bool isTyped = std::all_of(
          condition.values.begin(), condition.values.end(),
          [&](const std::string& value) { return characterCount(value) <= field.length; });
      if (!isTyped) continue;  // nobody could have
      state("ENHQUERY_CLI", row, condition);
      const auto [count, listed] = counted("ENHQUERY_CLI");
      const std::string filter = stored("GM04_WHERECLIFOR");
      SCOPED_TRACE(filter);
      std::multiset<std::string> expected;
      for (const auto& [customer, cell] : values) {
        if (holds(cell, field.isNumeric, condition)) expected.insert(customer);
      }
      const auto found = workplace.company().column(
          "SELECT CG44_CLIFOR FROM VGM16_KBWSUSERS_KELMORIA WHERE CG44_DITTA_CG18 = 1" + filter);
      EXPECT_EQ(std::multiset<std::string>(found.begin(), found.end()), expected);
      EXPECT_EQ(count, std::to_string(expected.size()));
      EXPECT_EQ(listed,
                workplace.company().value("SELECT COUNT(*) FROM VGM16_KBWSUSERS_KELMORIA"
                                          " WHERE CG44_DITTA_CG18 = 1 and Email is not NULL" +
                                          filter));
      selecting += !expected.empty() && expected.size() < values.size() ? 1 : 0;
    }
    workplace.hands().choose(QueryEditor::operatorName("ENHQUERY_CLI", row), "clear");
  }
  EXPECT_GT(selecting, 80);
  EXPECT_EQ(workplace.user().boxes, std::vector<ShownMessage>());
}

TEST_F(FilterConditionTest, BoxesTakeWhatTheirColumnsHold) {
  struct Filter {
    const char* editor;
    std::int32_t page;
    const char* rows;
  };
  const Filter filters[] = {
      {"ENHQUERY_CLI", 10, "SELECT * FROM VGM16_KBWSUSERS_KELMORIA"},
      {"ENHQUERY_ART", 11,
       "SELECT * FROM MG66_ANAGRART INNER JOIN MG87_ARTDESC ON MG87_CODART_MG66 = MG66_CODART"},
  };
  // Digits of a number. A longer name is looked for by its beginning.
  const std::map<std::string_view, std::size_t> others{
      {"CG44_CLIFOR", 6}, {"Azienda", 40}, {"MG66_INDSTATO_MG6W", 2}};
  const auto connection = workplace.newConnection();
  connection->Open();
  for (const Filter& filter : filters) {
    const auto rows = connection->Execute(filter.rows);
    const QueryEditor& editor = workplace.editor(filter.editor);
    workplace.hands().openPage(filter.page);
    for (std::size_t row = 1; row <= editor.fieldCount(); ++row) {
      const std::string_view name = editor.row(row - 1).field.dataField;
      SCOPED_TRACE(name);
      const auto other = others.find(name);
      const auto column = static_cast<std::size_t>(
          rows->fields()[ado::requireIndex(rows->fields(), name)].definedSize);
      const std::string longest(other == others.end() ? column : other->second, '1');
      const std::string box = QueryEditor::valueName(filter.editor, row, RangeEnd::First);
      workplace.hands().choose(QueryEditor::operatorName(filter.editor, row), "=");
      EXPECT_THROW(workplace.hands().type(box, longest + '1'), controls::GestureRefused);
      workplace.hands().type(box, longest);
      EXPECT_EQ(workplace.hands().value(box), longest);
    }
  }
}

TEST_F(FilterConditionTest, ACustomerCodeOfSevenDigitsIsNotDecoded) {
  workplace.company().session().execute(
      "INSERT INTO CG44_CLIFOR (CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, CG44_CODICE_CG16)"
      " SELECT 1, 0, 1001001, CG44_CODICE_CG16 FROM CG44_CLIFOR"
      " WHERE CG44_DITTA_CG18 = 1 AND CG44_TIPOCF = 0 AND CG44_CLIFOR = 1072");
  // As a saved filter sets it: seven digits cannot be typed.
  QueryEditor::Row& row = workplace.editor("ENHQUERY_CLI").row(0);
  row.first.setText("1072");
  row.second.setText("1001001");
  EXPECT_EQ(row.firstDescription.caption(), "Ferramenta D'Amico S.r.l.");
  EXPECT_EQ(row.secondDescription.caption(), "");
}

TEST_F(FilterConditionTest, AFieldOfAnUnknownTableIsDropped) {
  QueryEditor& editor = workplace.editor("ENHQUERY_ART");
  editor.addField(text("Sconosciuto", "XX01_COLONNA"));
  editor.addField(text("Minuscolo", "mg66_CODART"));
  editor.addField(text("Corto", "MG6"));
  workplace.hands().openPage(11);
  const std::size_t first = editor.fieldCount() - 2;
  for (std::size_t row = first; row < first + 3; ++row) {
    state("ENHQUERY_ART", row, {Op::Equal, {"x"}});
  }
  state("ENHQUERY_ART", 2, {Op::Equal, {"VER"}});
  EXPECT_EQ(stored("GM04_WHERESELARTICOLI"), " AND (MG66_FAM_MG53 = 'VER') ");
}

}  // namespace
}  // namespace kebu::workbench
