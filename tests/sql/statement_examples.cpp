#include "tests/sql/statement_examples.h"

#include <algorithm>
#include <utility>

#include "sql/categories.h"
#include "sql/deposits.h"
#include "sql/discount_candidates.h"
#include "sql/discount_rules.h"
#include "sql/filters.h"
#include "sql/preview.h"
#include "sql/price_lists.h"
#include "sql/profile.h"
#include "sql/query_predicate.h"
#include "sql/summary.h"
#include "sql/synchronisation.h"
#include "sql/working_tables.h"

namespace kebu::sql {

namespace {

const Company company{"1"};
const ProfileId profile{"2"};
const std::string depositsTable = "##tempDepositi";
const std::string priceListsTable = "##tempListini";

ExamplePage profilePage() {
  const auto deletions = EliminaDipendenze(profile);
  return {"profile",
          {
              {"Profilo", Profilo(company)},
              {"EliminaDipendenze: parameters", deletions[0]},
              {"EliminaDipendenze: activities", deletions[1]},
              {"EliminaDipendenze: categories", deletions[2]},
              {"EliminaDipendenze: deposits", deletions[3]},
              {"EliminaDipendenze: price lists", deletions[4]},
              {"Parametri", Parametri(profile)},
              {"ParametriVuoti", ParametriVuoti()},
              {"DepositoDocumento", DepositoDocumento(company, "OCW")},
              {"DescrizioneListino: of purchases", DescrizioneListino(company, 1, "3")},
              {"DescrizioneListino: of sales", DescrizioneListino(company, 0, "3")},
          }};
}

ExamplePage categoriesPage() {
  return {"categories",
          {
              {"Classificazioni", Classificazioni()},
              {"FiltroClassificazione", FiltroClassificazione(3, "11"), true},
              {"EsisteVariante", EsisteVariante(company)},
              {"EsisteDimensione", EsisteDimensione(company)},
              {"Categorie", Categorie(profile)},
              {"FiltroCategoria", FiltroCategoria(3, 2), true},
              {"DecodificaVariante", DecodificaVariante(company, "12")},
              {"DecodificaDimensione", DecodificaDimensione(company, "3")},
              {"ElencoDimensioni", ElencoDimensioni(company)},
          }};
}

ExamplePage priceListsPage() {
  return {"price_lists",
          {
              {"InizializzaListiniPrezzi", InizializzaListiniPrezzi(profile)},
              {"CreaTabellaListini", CreaTabellaListini(priceListsTable, profile)},
              {"RigheListini", RigheListini(priceListsTable)},
              {"SalvaListini", SalvaListini(priceListsTable)},
              {"DisattivaListiniIncompleti", DisattivaListiniIncompleti(profile)},
              {"AggiornaPrezzi", AggiornaPrezzi(company)},
              {"ElencoChiaviListino: price lists", ElencoChiaviListino(company, 1)},
              {"ElencoChiaviListino: macro-categories", ElencoChiaviListino(company, 2)},
              {"ElencoChiaviListino: macro-areas", ElencoChiaviListino(company, 3)},
              {"ElencoChiaviListino: deposits", ElencoChiaviListino(company, 4)},
              {"DescrizioneNumeroListino", DescrizioneNumeroListino(company, "3")},
              {"DescrizioneMacrocategoria", DescrizioneMacrocategoria(company, "RIV")},
              {"DescrizioneMacroarea", DescrizioneMacroarea(company, "NOR")},
              {"DescrizioneDeposito", DescrizioneDeposito(company, "03")},
          }};
}

ExamplePage depositsPage() {
  return {"deposits",
          {
              {"DecodificaDeposito", DecodificaDeposito(company, "03")},
              {"ElencoDepositi", ElencoDepositi(company)},
              {"CreaTabellaDepositi", CreaTabellaDepositi(depositsTable, profile, company)},
              {"RigheDepositi", RigheDepositi(depositsTable)},
              {"SalvaDepositi", SalvaDepositi(depositsTable, profile)},
          }};
}

/// "Famiglia" = "FER" and the like, as a query editor states it.
std::string equals(const QueryColumn& column, const std::string& value) {
  return composePredicate(column, {QueryOperator::Equal, {value}});
}

constexpr QueryColumn family{.name = "MG66_FAM_MG53"};
constexpr QueryColumn city{.name = "Citta"};

std::string ofTools() {
  return CongiuntoArticoli(family.name, equals(family, "FER"));
}

std::string inForli() {
  return composeConjunction({equals(city, "Forlì")});
}

ExamplePage filtersPage() {
  const auto of = [](const QueryColumn& column, const std::string& value) {
    return CongiuntoArticoli(column.name, equals(column, value));
  };
  return {
      "filters",
      {
          {"CongiuntoArticoli: of the article", ofTools(), true},
          {"CongiuntoArticoli: of its descriptions", of({"MG87_CODART_MG66"}, "ACC-0028"), true},
          {"CongiuntoArticoli: of its applications", of({"MG72_CODAPPLIC_MG57"}, "LEG"), true},
          {"CongiuntoArticoli: of its suppliers", of({"MG73_CLIFOR_CG44", true}, "4"), true},
          {"CongiuntoArticoli: of its product", of({"PD18_INDPROVENIENZA", true}, "1"), true},
          {"DecodificaStatoArticolo", DecodificaStatoArticolo("1")},
          {"ElencoStatiArticolo", ElencoStatiArticolo()},
          {"ContaArticoli", ContaArticoli("VGM19_KBWSPRODUCTS_KELMORIA", company, ofTools())},
          {"ContaClienti", ContaClienti("VGM16_KBWSUSERS_KELMORIA", company, inForli())},
      }};
}

ExamplePage predicatesPage() {
  constexpr QueryColumn text = city;
  constexpr QueryColumn number{.name = "CG44_CLIFOR", .isNumeric = true};
  using Op = QueryOperator;
  const auto example = [](const char* name, const QueryColumn& column, Op op,
                          std::vector<std::string> values) {
    return StatementExample{std::string("composePredicate: ") + name,
                            composePredicate(column, {op, std::move(values)}), true};
  };
  return {"query_predicate",
          {
              example("equal text", text, Op::Equal, {"L'Aquila"}),
              example("equal number", number, Op::Equal, {"1007"}),
              example("different text", text, Op::Different, {"Forlì"}),
              example("different number", number, Op::Different, {"1007"}),
              example("range of texts", text, Op::Range, {"F", "G"}),
              example("range of numbers", number, Op::Range, {"1003", "1007"}),
              example("range without an end", number, Op::Range, {"1250", ""}),
              example("range without a beginning", number, Op::Range, {"", "1007"}),
              example("text that starts", text, Op::Starts, {"For"}),
              example("text that contains", text, Op::Contains, {"_a[%"}),
              example("one of texts", text, Op::OneOf, {"Forlì", "L'Aquila"}),
              example("one of numbers", number, Op::OneOf, {"1003", "1007"}),
              example("empty text", text, Op::Empty, {}),
              example("empty number", number, Op::Empty, {}),
              example("text that is not empty", text, Op::NotEmpty, {}),
              example("number that is not empty", number, Op::NotEmpty, {}),
              {"composeConjunction",
               composeConjunction({equals(city, "Forlì"), "", equals({"Provincia"}, "FC")}), true},
          }};
}

ExamplePage previewPage() {
  const std::string customers = "VGM16_KBWSUSERS_KELMORIA";
  const std::string articles = "VGM19_KBWSPRODUCTS_KELMORIA";
  return {"preview",
          {
              {"NomeTabella: customers", NomeTabella(1)},
              {"NomeTabella: articles", NomeTabella(2)},
              {"ClientiPubblicati", ClientiPubblicati(customers, company, inForli())},
              {"ClientiPubblicati: all", ClientiPubblicati(customers, company, "")},
              {"ArticoliPubblicati", ArticoliPubblicati(articles, company, ofTools())},
              {"ArticoliPubblicati: all", ArticoliPubblicati(articles, company, "")},
          }};
}

ExamplePage synchronisationPage() {
  return {"synchronisation",
          {
              {"ImpostazioneInizialeAttivita", ImpostazioneInizialeAttivita(company)},
              {"TipoSincroStandard", TipoSincroStandard()},
              {"AttivitaDispositivo", AttivitaDispositivo(profile, company)},
          }};
}

ExamplePage summaryPage() {
  const std::string articles = "VGM19_KBWSPRODUCTS_KELMORIA";
  return {"summary",
          {
              {"ListiniMemorizzati", ListiniMemorizzati(profile)},
              {"ContaPrezzi", ContaPrezzi(articles, company, ofTools(), {1, 10})},
              {"ContaPrezzi: without an active slot", ContaPrezzi(articles, company, "", {})},
              {"DepositiMemorizzati", DepositiMemorizzati(profile, company)},
              {"ContaRegole", ContaRegole(company, "20260115", "20260215")},
          }};
}

ExamplePage workingTablesPage() {
  return {"working_tables",
          {
              {"NuovoIdentificativo", NuovoIdentificativo()},
              {"EliminaTabellaLavoro", EliminaTabellaLavoro(depositsTable)},
          }};
}

// --- discount rules -----------------------------------------------------------

bool isOnPrice(const DiscountKind& kind) {
  return kind.mode == DiscountMode::OnPrice;
}

std::string tableOf(const DiscountKind& kind) {
  return isOnPrice(kind) ? "##tempPrezzo" : "##tempGriglia";
}

/// "1 on price" to "4 by grid".
std::string kindName(const DiscountKind& kind) {
  return std::to_string(kind.listType) + (isOnPrice(kind) ? " on price" : " by grid");
}

ExamplePage candidatesPage() {
  constexpr std::int32_t priceRows = 4000;
  ExamplePage page{"discount_candidates", {}};
  for (const DiscountKind& kind : discountKinds()) {
    page.examples.push_back({"CreaCandidati: " + kindName(kind),
                             CreaCandidati(tableOf(kind), company, kind, priceRows)});
    page.examples.push_back(
        {"RigheCandidati: " + kindName(kind), RigheCandidati(tableOf(kind), kind)});
  }
  return page;
}

/// A row of a working table of discount rules, column by column.
using RuleRow = std::vector<std::pair<std::string, Value>>;

Value small(std::int16_t number) {
  return number;
}

Value amount(const char* digits) {
  return *Decimal::parse(digits);
}

/// A ticked rule from the price list with this label.
RuleRow ruleOf(const DiscountKind& kind, std::string_view label) {
  return {
      {"GM61_DITTA_CG18", amount("1")},
      {"GM61_INDTIPOLISTINO", kind.listType},
      {"GM61_DESCLISTCORVANE", label},
      {"GM61_ATTIVA", small(1)},
      {"GM61_CODCLIENTE", std::int32_t{1001}},
      {"GM61_DESC1", "Articolo o famiglia"},
      {"GM61_DESC2", "3"},
      {"GM61_CODART_MG66", "CAT-0003"},
      {"GM61_OPZIONE_MG5E", ""},
      {"GM61_FAM_MG53", "FER"},
      {"GM61_SFAM_MG54", "VIT"},
      {"GM61_GRUPPO_MG55", "G1"},
      {"GM61_SGRUPPO_MG56", "S2"},
      {"GM61_DATAINIZIO", *Date::make(2024, 1, 1)},
      {"GM61_DATAFINE", *Date::make(2099, 12, 31)},
      {"GM61_NOMEREGOLA", std::string(label) + " - 7"},
      {"GM61_TIPOSCONTO", small(0)},
      {"GM61_TIPOGRIGLIASCONTO", small(1)},
      {"GM61_SC1PER", amount("33.33")},
      {"GM61_PREZZOLORDO", amount("219.10")},
      {"GM61_PREZZONETTO", amount("146.07397")},
      {"GM61_CAMPOCORVANE", small(0)},
      {"GM61_POSIZIONE", small(9)},
  };
}

/// A rule that gives a new price, taken from the price list's gross (0) or net (1) price.
RuleRow newPrice(RuleRow row, std::int16_t field) {
  for (auto& [column, value] : row) {
    if (column == "GM61_TIPOSCONTO") value = small(1);
    if (column == "GM61_CAMPOCORVANE") value = small(field);
  }
  return row;
}

class RuleWriter {
 public:
  RuleWriter(const DiscountKind& kind, const RuleRow& row)
      : statements_(company, kind, columnsOf(row),
                    {.struckThroughPrices = small(1),
                     .noOtherDiscounts = small(2),
                     .singleUse = Value(),
                     .application = small(3),
                     .today = "20240229"}),
        row_(valuesOf(row)) {}

  std::string read() { return statements_.LeggiScaglioni(row_); }
  std::string origin() { return statements_.LeggiOrigine(row_); }
  std::string insert(const std::vector<RuleStep>& steps = {}) {
    return statements_.InserisciRegola(row_, steps);
  }

 private:
  static std::vector<std::string> columnsOf(const RuleRow& row) {
    std::vector<std::string> columns;
    for (const auto& cell : row) columns.push_back(cell.first);
    return columns;
  }
  static RowValues valuesOf(const RuleRow& row) {
    std::vector<Value> values;
    for (const auto& cell : row) values.push_back(cell.second);
    return RowValues(std::move(values));
  }

  RuleStatements statements_;
  RowValues row_;
};

void addSteps(const DiscountKind& kind, std::vector<StatementExample>& examples) {
  for (const DiscountSource& source : kind.sources) {
    const std::string name = "LeggiScaglioni: " + kindName(kind) + ", " + std::string(source.table);
    examples.push_back({name, RuleWriter(kind, ruleOf(kind, source.label)).read()});
  }
}

/// Of rules as they are stored, which do not keep the list number, the deposit or a customer's
/// family.
void addOrigins(std::vector<StatementExample>& examples) {
  const DiscountKind& byTariff = discountKind(DiscountMode::OnPrice, 2);
  const DiscountKind& byFamily = discountKind(DiscountMode::OnPrice, 3);
  for (const DiscountSource& source : byTariff.sources.first(2)) {
    examples.push_back({"LeggiOrigine: " + kindName(byTariff) + ", " + std::string(source.label),
                        RuleWriter(byTariff, ruleOf(byTariff, source.label)).origin()});
  }
  RuleRow rule = ruleOf(byFamily, byFamily.sources.front().label);
  std::erase_if(rule, [](const auto& cell) {
    return std::ranges::find(ruleFamilies, cell.first) != ruleFamilies.end();
  });
  examples.push_back({"LeggiOrigine: " + kindName(byFamily), RuleWriter(byFamily, rule).origin()});
}

void addInsert(const DiscountKind& kind, std::vector<StatementExample>& examples) {
  const std::vector<RuleStep> steps{{Decimal(10), Decimal::scaled(25, 1)},
                                    {Decimal(50), Decimal(5)}};
  const RuleRow rule = ruleOf(kind, kind.sources.front().label);
  examples.push_back(
      {"InserisciRegola: " + kindName(kind),
       RuleWriter(kind, rule).insert(isOnPrice(kind) ? std::vector<RuleStep>() : steps)});
}

ExamplePage rulesPage() {
  const DiscountKind& onPrice = discountKind(DiscountMode::OnPrice, 1);
  const DiscountKind& byGrid = discountKind(DiscountMode::Grid, 4);
  const std::string table = tableOf(onPrice);
  ExamplePage page{
      "discount_rules",
      {
          {"EliminaTabellaSconti", EliminaTabellaSconti(table)},
          {"CaricaRegole: on price", CaricaRegole(table, company, onPrice)},
          {"CaricaRegole: by grid", CaricaRegole(tableOf(byGrid), company, byGrid)},
          {"RigheRegole", RigheRegole(table)},
          {"SelezionaTutte: ticked", SelezionaTutte(table, true)},
          {"SelezionaTutte: cleared", SelezionaTutte(table, false)},
          {"SelezionaRiga", SelezionaRiga(table, "3")},
          {"EliminaRegole: on price", EliminaRegole(company, DiscountMode::OnPrice, "1")},
          {"EliminaRegole: by grid", EliminaRegole(company, DiscountMode::Grid, "4")},
          {"RegoleSelezionate", RegoleSelezionate(table, onPrice)},
      }};
  for (const DiscountKind& kind : discountKinds()) {
    if (!isOnPrice(kind)) addSteps(kind, page.examples);
  }
  addOrigins(page.examples);
  for (const DiscountKind& kind : discountKinds()) addInsert(kind, page.examples);
  const RuleRow rule = ruleOf(onPrice, onPrice.sources.front().label);
  page.examples.push_back({"InserisciRegola: a new price from the gross price",
                           RuleWriter(onPrice, newPrice(rule, 0)).insert()});
  page.examples.push_back({"InserisciRegola: a new price from the net price",
                           RuleWriter(onPrice, newPrice(rule, 1)).insert()});
  return page;
}

}  // namespace

std::vector<ExamplePage> examplePages() {
  return {categoriesPage(), depositsPage(), candidatesPage(),      rulesPage(),
          filtersPage(),    previewPage(),  priceListsPage(),      profilePage(),
          predicatesPage(), summaryPage(),  synchronisationPage(), workingTablesPage()};
}

}  // namespace kebu::sql
