#include "sql/discount_rules.h"

#include <utility>

#include "common/convert.h"
#include "common/nulls.h"
#include "sql/script.h"
#include "sql/text.h"

namespace kebu::sql {

namespace {

constexpr std::size_t stepsOfARule = 10;
constexpr std::size_t nowhere = static_cast<std::size_t>(-1);
const Value nothing;

struct ModeFlags {
  std::string_view onPrice;
  std::string_view grid;
};

ModeFlags flagsOf(DiscountMode mode) {
  return mode == DiscountMode::OnPrice ? ModeFlags{"1", "0"} : ModeFlags{"0", "1"};
}

bool isZero(const Value& value) {
  if (value.holds<std::int16_t>()) return value.as<std::int16_t>() == 0;
  return toDecimal(CDecN(value)).isZero();
}

void writeAmount(std::string& text, const Value& value) {
  if (value.isNumber()) {
    appendSqlNumber(text, value);
  } else {
    appendSqlNumber(text, CDecN(value));
  }
}

/// A number as it stands, without quotes.
void writeNumber(std::string& text, const Value& value) {
  if (value.isText()) {
    const std::string number = trim(value.as<std::string>());
    text += number.empty() ? "NULL" : number;
  } else if (value.isEmpty() || value.isNull()) {
    text += "NULL";
  } else {
    appendSqlNumber(text, value);
  }
}

// As it stands: a quote inside of it breaks the statement, and the user is told.
void writeText(std::string& text, const Value& value) {
  if (value.isText()) {
    text += value.as<std::string>();
  } else {
    text += toDisplay(value);
  }
}

std::string stepColumns() {
  std::string names;
  for (std::size_t i = 0; i < stepsOfARule; ++i) {
    const std::string step = std::to_string(i);
    names += join(
        {i > 0 ? ",\r\n" : "", "GM61_GRIGLIAVALINF", step, ",\r\n", "GM61_GRIGLIAVALORESC", step});
  }
  return names;
}

void writeSteps(std::string& text, const std::vector<RuleStep>& steps) {
  for (std::size_t i = 0; i < stepsOfARule; ++i) {
    if (i > 0) text += ",\r\n";
    if (i < steps.size()) {
      appendSqlNumber(text, steps[i].from);
      text += ",\r\n";
      appendSqlNumber(text, steps[i].value);
    } else {
      text += "NULL,\r\nNULL";
    }
  }
}

}  // namespace

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

/// How a value is written into the INSERT.
enum class RuleStatements::Form {
  Absent,  ///< not among the columns of the kind
  Null,
  Zero,
  One,
  Number,     ///< the row's, unquoted
  Text,       ///< the row's, between quotes
  Day,        ///< the row's, between quotes
  Amount,     ///< the row's, nothing being 0
  Published,  ///< what the rule's type and field say
  Steps,      ///< the twenty columns of the steps
  StruckThroughPrices,
  NoOtherDiscounts,
  SingleUse,
  Application,
  Today,
  // What the kind decides.
  Customer,
  Families,
  Descriptions,
  Position,
};

struct RuleStatements::SavedColumn {
  std::string_view name;
  Form onPrice;
  Form grid;
};

// The columns of a stored rule in the order of the INSERT.
const RuleStatements::SavedColumn RuleStatements::savedColumns[] = {
    {"GM61_DITTA_CG18", Form::Number, Form::Number},
    {"GM61_INDTIPOLISTINO", Form::Number, Form::Number},
    {"GM61_DESCLISTCORVANE", Form::Text, Form::Text},
    {"GM61_ATTIVA", Form::Number, Form::Number},
    {"GM61_CODCLIENTE", Form::Customer, Form::Customer},
    {"GM61_CODART_MG66", Form::Text, Form::Text},
    {"GM61_OPZIONE_MG5E", Form::Text, Form::Text},
    {"GM61_FAM_MG53", Form::Families, Form::Families},
    {"GM61_SFAM_MG54", Form::Families, Form::Families},
    {"GM61_GRUPPO_MG55", Form::Families, Form::Families},
    {"GM61_SGRUPPO_MG56", Form::Families, Form::Families},
    {"GM61_DESC1", Form::Descriptions, Form::Descriptions},
    {"GM61_DESC2", Form::Descriptions, Form::Descriptions},
    {"GM61_DATAINIZIO", Form::Day, Form::Day},
    {"GM61_DATAFINE", Form::Day, Form::Day},
    {"GM61_FLGSCONTISUPRZ", Form::One, Form::Zero},
    {"GM61_FLGGRIGLIASCONTI", Form::Zero, Form::One},
    {"GM61_NOMEREGOLA", Form::Text, Form::Text},
    {"GM61_TIPOSCONTO", Form::Number, Form::Number},
    {"GM61_VALORESCONTO", Form::Published, Form::Null},
    {"GM61_TIPOGRIGLIASCONTO", Form::Zero, Form::Number},
    {"", Form::Absent, Form::Steps},
    {"GM61_SC1PER", Form::Amount, Form::Null},
    {"GM61_PREZZOLORDO", Form::Amount, Form::Null},
    {"GM61_PREZZONETTO", Form::Amount, Form::Null},
    {"GM61_CAMPOCORVANE", Form::Number, Form::Number},
    {"GM61_FLGPRZBARRATI", Form::StruckThroughPrices, Form::StruckThroughPrices},
    {"GM61_FLGNONTRATTAREALTRISC", Form::NoOtherDiscounts, Form::NoOtherDiscounts},
    {"GM61_FLGMONOUSO", Form::SingleUse, Form::SingleUse},
    {"GM61_INDREGOLEINCLUSIONE", Form::Application, Form::Application},
    {"GM61_POSIZIONE", Form::Position, Form::Position},
    {"GM61_DATAULTAGG", Form::Today, Form::Today},
};

RuleStatements::RuleStatements(Company company, const DiscountKind& kind,
                               const std::vector<std::string>& columns, const RuleOptions& options)
    : kind_(kind), company_(std::move(company)) {
  for (std::size_t i = 0; i < columns.size(); ++i) columns_.emplace(columns[i], i);
  std::string names;
  std::string fixed;  // since the last value that rows differ by
  for (const SavedColumn& column : savedColumns) {
    const Form form = formOf(column);
    if (form == Form::Absent) continue;
    if (!names.empty()) {
      names += ",\r\n";
      fixed += ",\r\n";
    }
    names += form == Form::Steps ? stepColumns() : std::string(column.name);
    if (const auto constant = constantOf(form, options)) {
      fixed += *constant;
    } else {
      // The pieces around a text bring its quotes.
      const char* const quote = form == Form::Text || form == Form::Day ? "'" : "";
      pieces_.push_back({fixed + quote, form, indexOf(column.name)});
      fixed = quote;
    }
  }
  insert_ = lines({"INSERT INTO  ", " GM61_KBDISCOUNTRULES ", " (", names, " )", " VALUES ", " ("});
  columnsEnd_ = insert_.size();
  tail_ = join({fixed, " )"});
  type_ = indexOf("GM61_TIPOSCONTO");
  field_ = indexOf("GM61_CAMPOCORVANE");
  discount_ = indexOf("GM61_SC1PER");
  listPrice_ = indexOf("GM61_PREZZOLORDO");
  netPrice_ = indexOf("GM61_PREZZONETTO");
}

RuleStatements::Form RuleStatements::formOf(const SavedColumn& column) const {
  using Customer = SavedColumns::Customer;
  const Form form = kind_.mode == DiscountMode::OnPrice ? column.onPrice : column.grid;
  switch (form) {
    case Form::Customer:
      if (kind_.saved.customer == Customer::Absent) return Form::Absent;
      return kind_.saved.customer == Customer::Null ? Form::Null : Form::Number;
    case Form::Families:
      return kind_.saved.families ? Form::Text : Form::Absent;
    case Form::Descriptions:
      return kind_.saved.descriptions ? Form::Text : Form::Absent;
    case Form::Position:
      return kind_.saved.position ? Form::Number : Form::Null;
    default:
      return form;
  }
}

std::optional<std::string> RuleStatements::constantOf(Form form, const RuleOptions& options) {
  switch (form) {
    case Form::Null:
      return "NULL";
    case Form::Zero:
      return "0";
    case Form::One:
      return "1";
    case Form::StruckThroughPrices:
      return toSqlNumber(CDecN(options.struckThroughPrices));
    case Form::NoOtherDiscounts:
      return toSqlNumber(CDecN(options.noOtherDiscounts));
    case Form::SingleUse:
      return toSqlNumber(CDecN(options.singleUse));
    case Form::Application:
      return toSqlNumber(CDecN(options.application));
    case Form::Today:
      return join({"'", options.today, "'"});
    default:
      return std::nullopt;
  }
}

std::size_t RuleStatements::indexOf(std::string_view column) const {
  const auto found = columns_.find(column);
  return found == columns_.end() ? nowhere : found->second;
}

const Value& RuleStatements::at(const Row& row, std::size_t index) {
  return index == nowhere ? nothing : row.at(index);
}

const Value& RuleStatements::value(const Row& row, std::string_view column) const {
  return at(row, indexOf(column));
}

const DiscountSource& RuleStatements::source(const Row& row) const {
  return sourceOf(kind_, toDisplay(value(row, "GM61_DESCLISTCORVANE")));
}

const Value& RuleStatements::publishedValue(const Row& row) const {
  if (isZero(at(row, type_))) return at(row, discount_);
  return at(row, isZero(at(row, field_)) ? listPrice_ : netPrice_);
}

std::string RuleStatements::LeggiScaglioni(const Row& row) const {
  const DiscountSource& list = source(row);
  const auto own = [&](std::string_view column) { return join({list.prefix, column}); };
  const auto quoted = [](std::string_view text) { return join({"'", text, "'"}); };
  const auto day = [&](std::string_view column) { return quoted(GetAnsiDate(value(row, column))); };
  Script script;
  script.line("SELECT ").line(" * ").line(" FROM ");
  script.line(join({list.table, " WITH(NOLOCK)"})).line(" WHERE ");
  script.line(join({own("_DITTA_CG18"), " = ", company_})).lines(list.steps.filter);
  for (const StepKey& key : list.steps.keys) {
    if (key.column.empty()) break;
    const Value& found = value(row, key.field);
    std::string plain;
    writeNumber(plain, found);
    if (key.form == StepKey::Form::NumberIfKnown && plain == "NULL") continue;
    script.line(join({"AND ", key.column, " = ",
                      key.form == StepKey::Form::Text ? quoted(toDisplay(found)) : plain}));
  }
  script.line(join({"AND ", own("_DATAINIZIOVAL"), " =", day("GM61_DATAINIZIO")}));
  script.line(join({"AND ", own("_DATAFINEVAL"), " =", day("GM61_DATAFINE")}));
  script.line(" ORDER BY ").line(join({own("_DAQTA"), " ASC"}));
  return script.text();
}

const std::string& RuleStatements::InserisciRegola(const Row& row,
                                                   const std::vector<RuleStep>& steps) {
  std::string& text = insert_;
  text.resize(columnsEnd_);
  for (const Piece& piece : pieces_) {
    text += piece.before;
    const Value& own = at(row, piece.index);
    switch (piece.form) {
      case Form::Text:
        writeText(text, own);
        break;
      case Form::Day:
        text += GetAnsiDate(own);
        break;
      case Form::Amount:
        writeAmount(text, own);
        break;
      case Form::Published:
        writeAmount(text, publishedValue(row));
        break;
      case Form::Steps:
        writeSteps(text, steps);
        break;
      default:
        writeNumber(text, own);
    }
  }
  text += tail_;
  return text;
}

}  // namespace kebu::sql
