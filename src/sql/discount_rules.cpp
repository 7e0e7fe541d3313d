#include "sql/discount_rules.h"

#include <algorithm>
#include <utility>

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/script.h"
#include "sql/text.h"

namespace kebu::sql {

enum class SavedContent : std::uint8_t {
  Absent,  ///< nothing: the kind does not write the column
  Null,
  Zero,
  One,
  Number,     ///< the row's, unquoted
  Text,       ///< the row's, between quotes
  Day,        ///< the row's, between quotes
  Amount,     ///< the row's, nothing being 0
  Published,  ///< what the rule's type and field say
  Steps,      ///< in the twenty columns of the steps
  // The same in all rows of a save.
  StruckThroughPrices,
  NoOtherDiscounts,
  SingleUse,
  Application,
  Today,
  // One of the above, by the kind's SavedColumns.
  Customer,
  Families,
  Descriptions,
  Position,
};

namespace {

using Content = SavedContent;

constexpr std::size_t stepsOfARule = 10;
constexpr std::string_view nextColumn = ",\r\n";
constexpr auto nowhere = static_cast<std::size_t>(-1);
const Value nothing;

struct ModeFlags {
  std::string_view onPrice;
  std::string_view grid;
};

ModeFlags flagsOf(DiscountMode mode) {
  return mode == DiscountMode::OnPrice ? ModeFlags{.onPrice = "1", .grid = "0"}
                                       : ModeFlags{.onPrice = "0", .grid = "1"};
}

bool isZero(const Value& value) {
  return toDecimal(CDecN(value)).isZero();
}

std::string quoted(std::string_view text) {
  return join({"'", text, "'"});
}

/// A number, 0 when there is none.
std::string amount(const Value& value) {
  return toSqlNumber(value.isNumber() ? value : CDecN(value));
}

/// A number as it stands, without quotes.
std::string number(const Value& value) {
  const std::string text = value.isNumber() ? toSqlNumber(value) : trim(toDisplay(value));
  return text.empty() ? "NULL" : text;
}

// A quote in the text is not doubled, and is meant not to be: it breaks the statement, and the user
// is told.
std::string text(const Value& value) {
  return quoted(toDisplay(value));
}

std::string day(const Value& value) {
  return quoted(GetAnsiDate(value));
}

bool isStepColumn(std::string_view column) {
  return column.starts_with("GM61_GRIGLIAVAL");
}

std::string stepColumns() {
  std::string names;
  for (std::size_t i = 0; i < stepsOfARule; ++i) {
    const std::string step = std::to_string(i);
    if (i > 0) names += nextColumn;
    names += join({"GM61_GRIGLIAVALINF", step, nextColumn, "GM61_GRIGLIAVALORESC", step});
  }
  return names;
}

std::string stepValues(const std::vector<RuleStep>& steps) {
  std::string values;
  for (std::size_t i = 0; i < stepsOfARule; ++i) {
    if (i > 0) values += nextColumn;
    const bool isThere = i < steps.size();
    values += join({isThere ? toSqlNumber(steps[i].from) : "NULL", nextColumn,
                    isThere ? toSqlNumber(steps[i].value) : "NULL"});
  }
  return values;
}

struct SavedColumn {
  std::string_view name;
  Content onPrice;
  Content byGrid;
};

constexpr SavedColumn inBoth(std::string_view name, Content content) {
  return {.name = name, .onPrice = content, .byGrid = content};
}

/// The columns of a stored rule in the order of the INSERT.
constexpr SavedColumn savedColumns[] = {
    inBoth("GM61_DITTA_CG18", Content::Number),
    inBoth("GM61_INDTIPOLISTINO", Content::Number),
    inBoth("GM61_DESCLISTCORVANE", Content::Text),
    inBoth("GM61_ATTIVA", Content::Number),
    inBoth("GM61_CODCLIENTE", Content::Customer),
    inBoth("GM61_CODART_MG66", Content::Text),
    inBoth("GM61_OPZIONE_MG5E", Content::Text),
    inBoth("GM61_FAM_MG53", Content::Families),
    inBoth("GM61_SFAM_MG54", Content::Families),
    inBoth("GM61_GRUPPO_MG55", Content::Families),
    inBoth("GM61_SGRUPPO_MG56", Content::Families),
    inBoth("GM61_DESC1", Content::Descriptions),
    inBoth("GM61_DESC2", Content::Descriptions),
    inBoth("GM61_DATAINIZIO", Content::Day),
    inBoth("GM61_DATAFINE", Content::Day),
    {.name = "GM61_FLGSCONTISUPRZ", .onPrice = Content::One, .byGrid = Content::Zero},
    {.name = "GM61_FLGGRIGLIASCONTI", .onPrice = Content::Zero, .byGrid = Content::One},
    inBoth("GM61_NOMEREGOLA", Content::Text),
    inBoth("GM61_TIPOSCONTO", Content::Number),
    {.name = "GM61_VALORESCONTO", .onPrice = Content::Published, .byGrid = Content::Null},
    {.name = "GM61_TIPOGRIGLIASCONTO", .onPrice = Content::Zero, .byGrid = Content::Number},
    {.name = "", .onPrice = Content::Absent, .byGrid = Content::Steps},
    {.name = "GM61_SC1PER", .onPrice = Content::Amount, .byGrid = Content::Null},
    {.name = "GM61_PREZZOLORDO", .onPrice = Content::Amount, .byGrid = Content::Null},
    {.name = "GM61_PREZZONETTO", .onPrice = Content::Amount, .byGrid = Content::Null},
    inBoth("GM61_CAMPOCORVANE", Content::Number),
    inBoth("GM61_FLGPRZBARRATI", Content::StruckThroughPrices),
    inBoth("GM61_FLGNONTRATTAREALTRISC", Content::NoOtherDiscounts),
    inBoth("GM61_FLGMONOUSO", Content::SingleUse),
    inBoth("GM61_INDREGOLEINCLUSIONE", Content::Application),
    inBoth("GM61_POSIZIONE", Content::Position),
    inBoth("GM61_DATAULTAGG", Content::Today),
};

Content contentOf(const SavedColumn& column, const DiscountKind& kind) {
  using Customer = SavedColumns::Customer;
  const Content content = kind.mode == DiscountMode::OnPrice ? column.onPrice : column.byGrid;
  switch (content) {
    case Content::Customer:
      if (kind.saved.customer == Customer::Absent) return Content::Absent;
      return kind.saved.customer == Customer::Null ? Content::Null : Content::Number;
    case Content::Families:
      return kind.saved.families ? Content::Text : Content::Absent;
    case Content::Descriptions:
      return kind.saved.descriptions ? Content::Text : Content::Absent;
    case Content::Position:
      return kind.saved.position ? Content::Number : Content::Null;
    default:
      return content;
  }
}

/// The text of what is the same in all rows of a save; "" for the rest.
std::string fixedText(Content content, const RuleOptions& options) {
  switch (content) {
    case Content::Null:
      return "NULL";
    case Content::Zero:
      return "0";
    case Content::One:
      return "1";
    case Content::StruckThroughPrices:
      return amount(options.struckThroughPrices);
    case Content::NoOtherDiscounts:
      return amount(options.noOtherDiscounts);
    case Content::SingleUse:
      return amount(options.singleUse);
    case Content::Application:
      return amount(options.application);
    case Content::Today:
      return quoted(options.today);
    default:
      return "";
  }
}

}  // namespace

std::vector<std::string_view> testiRegola(const DiscountKind& kind) {
  std::vector<std::string_view> names;
  for (const SavedColumn& column : savedColumns) {
    if (contentOf(column, kind) == Content::Text) names.push_back(column.name);
  }
  return names;
}

std::string EliminaTabellaSconti(const std::string& table) {
  return join({"IF OBJECT_ID('TEMPDB.DBO.", table, "') IS NOT NULL DROP TABLE ", table});
}

std::string CaricaRegole(const std::string& table, const Company& company,
                         const DiscountKind& kind) {
  const ModeFlags flags = flagsOf(kind.mode);
  return Script()
      .line("SELECT ")
      .line(" *")
      .line(" INTO ")
      .line(table)
      .line(" FROM ")
      .line("   GM61_KBDISCOUNTRULES WITH(NOLOCK) ")
      .line(" WHERE ")
      .line(join({"   GM61_DITTA_CG18 = ", company}))
      .line(join({"   AND GM61_INDTIPOLISTINO = ", std::to_string(kind.listType), " "}))
      .line(join({"   AND GM61_FLGSCONTISUPRZ = ", flags.onPrice, " "}))
      .line(join({"   AND GM61_FLGGRIGLIASCONTI = ", flags.grid, " "}))
      .line(" ORDER BY GM61_ATTIVA DESC ")
      .text();
}

std::string RigheRegole(const std::string& table) {
  return join({"SELECT * FROM ", table});
}

std::string SelezionaTutte(const std::string& table, bool selected) {
  return join({"UPDATE ", table, " SET GM61_ATTIVA = ", selected ? "1" : "0"});
}

std::string SelezionaRiga(const std::string& table, const std::string& id) {
  return join({"UPDATE ", table, " SET GM61_ATTIVA = 1 WHERE GM61_ID = ", id});
}

std::string EliminaRegole(const Company& company, DiscountMode mode, const std::string& listType) {
  const ModeFlags flags = flagsOf(mode);
  return lines({"DELETE ", " FROM ", "   GM61_KBDISCOUNTRULES ", " WHERE ",
                join({"   GM61_DITTA_CG18 =  ", company}),
                join({"   AND GM61_INDTIPOLISTINO = ", listType}),
                join({"   AND GM61_FLGSCONTISUPRZ = ", flags.onPrice}),
                join({"   AND GM61_FLGGRIGLIASCONTI = ", flags.grid})});
}

std::string RegoleSelezionate(const std::string& table, const DiscountKind& kind) {
  return join({"SELECT * FROM ", table, " WHERE GM61_ATTIVA = 1 AND GM61_INDTIPOLISTINO = ",
               std::to_string(kind.listType), " "});
}

RuleStatements::RuleStatements(Company company, const DiscountKind& kind,
                               const std::vector<std::string>& columns, const RuleOptions& options)
    : kind_(kind), company_(std::move(company)), options_(options) {
  for (std::size_t i = 0; i < columns.size(); ++i) columns_.emplace(columns[i], i);
  std::string names;
  for (const SavedColumn& column : savedColumns) {
    const Content content = contentOf(column, kind_);
    if (content == Content::Absent) continue;
    if (!names.empty()) names += nextColumn;
    names += content == Content::Steps ? stepColumns() : std::string(column.name);
    values_.push_back({column.name, content, indexOf(column.name), fixedText(content, options)});
  }
  for (const auto& [column, index] : columns_) {
    const bool isWritten =
        std::ranges::find(values_, column, &WrittenValue::column) != values_.end();
    if (!isWritten && column != "GM61_ID" && !isStepColumn(column)) unwritten_.push_back(column);
  }
  insert_ = lines({"INSERT INTO  ", " GM61_KBDISCOUNTRULES ", " (", names, " )", " VALUES ", " ("});
}

std::size_t RuleStatements::indexOf(std::string_view column) const {
  const auto found = columns_.find(column);
  return found == columns_.end() ? nowhere : found->second;
}

const Value& RuleStatements::value(const Row& row, std::string_view column) const {
  const std::size_t index = indexOf(column);
  return index == nowhere ? nothing : row.at(index);
}

const DiscountSource& RuleStatements::source(const Row& row) const {
  return sourceOf(kind_, toDisplay(value(row, "GM61_DESCLISTCORVANE")));
}

const Value& RuleStatements::publishedValue(const Row& row) const {
  if (isZero(value(row, "GM61_TIPOSCONTO"))) return value(row, "GM61_SC1PER");
  const bool isGross = isZero(value(row, "GM61_CAMPOCORVANE"));
  return value(row, isGross ? "GM61_PREZZOLORDO" : "GM61_PREZZONETTO");
}

std::string RuleStatements::LeggiScaglioni(const Row& row) const {
  const DiscountSource& list = source(row);
  const auto own = [&](std::string_view column) { return join({list.prefix(), column}); };
  Script script;
  script.line("SELECT ").line(" * ").line(" FROM ");
  script.line(join({list.table, " WITH(NOLOCK)"})).line(" WHERE ");
  script.line(join({own("_DITTA_CG18"), " = ", company_})).lines(list.steps.filter);
  for (const StepKey& key : list.steps.keys) {
    if (key.column.empty()) break;
    const Value& found = value(row, key.field);
    const std::string asNumber = number(found);
    if (key.form == StepKey::Form::NumberIfKnown && asNumber == "NULL") continue;
    script.line(join(
        {"AND ", key.column, " = ", key.form == StepKey::Form::Text ? text(found) : asNumber}));
  }
  script.line(join({"AND ", own("_DATAINIZIOVAL"), " =", day(value(row, "GM61_DATAINIZIO"))}));
  script.line(join({"AND ", own("_DATAFINEVAL"), " =", day(value(row, "GM61_DATAFINE"))}));
  script.line(" ORDER BY ").line(join({own("_DAQTA"), " ASC"}));
  return script.text();
}

// A column that is an expression or of another table is not compared.
std::string RuleStatements::LeggiOrigine(const Row& row) const {
  const DiscountSource& list = source(row);
  const auto own = [&](std::string_view column) { return join({list.prefix(), column}); };
  Script script;
  script.line("SELECT ").line(" * ").line(" FROM ");
  script.line(join({list.table, " WITH(NOLOCK)"})).line(" WHERE ");
  script.line(join({own("_DITTA_CG18"), " = ", company_}));
  for (const std::string_view condition : list.filter) {
    if (condition.starts_with(join({"AND ", list.prefix()}))) script.line(condition);
  }
  const auto codeOf = [&](std::string_view field) { return trim(toDisplay(value(row, field))); };
  const auto compare = [&](std::string_view column, const std::string& literal) {
    if (column.starts_with(list.prefix())) script.line(join({"AND ", column, " = ", literal}));
  };
  const auto compareCode = [&](std::string_view column, std::string_view field) {
    compare(column, quoted(replaceAll(codeOf(field), "'", "''")));
  };
  if (!codeOf("GM61_CODCLIENTE").empty()) {
    compare(list.customer, number(value(row, "GM61_CODCLIENTE")));
  }
  if (!codeOf("GM61_CODART_MG66").empty()) {
    compareCode(list.article, "GM61_CODART_MG66");
    compareCode(list.option, "GM61_OPZIONE_MG5E");
  }
  for (std::size_t i = 0; i < list.families.size(); ++i) {
    if (!codeOf(ruleFamilies[i]).empty()) compareCode(list.families[i], ruleFamilies[i]);
  }
  const auto compareDay = [&](std::string_view column, std::string_view field) {
    if (!value(row, field).holds<Date>()) return;
    script.line(join({"AND ", own(column), " = ", day(value(row, field))}));
  };
  compareDay("_DATAINIZIOVAL", "GM61_DATAINIZIO");
  compareDay("_DATAFINEVAL", "GM61_DATAFINE");
  return script.text();
}

std::vector<SavedValue> RuleStatements::savedValues(const Row& row) const {
  std::vector<SavedValue> saved;
  for (const WrittenValue& written : values_) {
    if (written.content == Content::Steps || written.content == Content::Today) continue;
    saved.push_back({written.column, savedValue(written, row)});
  }
  for (const std::string_view column : unwritten_) saved.push_back({column, Null{}});
  return saved;
}

Value RuleStatements::savedValue(const WrittenValue& written, const Row& row) const {
  const Value& own = written.index == nowhere ? nothing : row.at(written.index);
  switch (written.content) {
    case Content::Zero:
      return std::int16_t{0};
    case Content::One:
      return std::int16_t{1};
    case Content::Number:
    case Content::Text:
    case Content::Day:
      return own;
    case Content::Amount:
      return CDecN(own);
    case Content::Published:
      return CDecN(publishedValue(row));
    case Content::StruckThroughPrices:
      return CDecN(options_.struckThroughPrices);
    case Content::NoOtherDiscounts:
      return CDecN(options_.noOtherDiscounts);
    case Content::SingleUse:
      return CDecN(options_.singleUse);
    case Content::Application:
      return CDecN(options_.application);
    default:
      return Null{};
  }
}

std::string RuleStatements::InserisciRegola(const Row& row,
                                            const std::vector<RuleStep>& steps) const {
  const auto written = [&](const WrittenValue& value) {
    const Value& own = value.index == nowhere ? nothing : row.at(value.index);
    switch (value.content) {
      case Content::Number:
        return number(own);
      case Content::Text:
        return text(own);
      case Content::Day:
        return day(own);
      case Content::Amount:
        return amount(own);
      case Content::Published:
        return amount(publishedValue(row));
      case Content::Steps:
        return stepValues(steps);
      default:
        return value.fixed;
    }
  };
  std::string statement = insert_;
  bool isFirst = true;
  for (const WrittenValue& value : values_) {
    if (!isFirst) statement += nextColumn;
    statement += written(value);
    isFirst = false;
  }
  return statement + " )";
}

}  // namespace kebu::sql
