#include "forms/anagrafica/discounts/rule_details.h"

#include <set>
#include <span>
#include <vector>

#include "common/convert.h"
#include "forms/anagrafica/discounts/step_reader.h"
#include "sql/discount_rules.h"
#include "sql/price_lists.h"

namespace kebu::forms {

namespace {

/// A level of a classification: the ERP table of its codes and the column of their descriptions.
struct Level {
  const char* table;
  const char* description;
};

/// What the four family columns of a rule hold.
struct Classification {
  const char* caption;
  std::span<const Level> levels;
};

constexpr Level familyLevels[] = {{"MG53", "MG53_DESCRFAM"},
                                  {"MG54", "MG54_DESCRSFAM"},
                                  {"MG55", "MG55_DESCRGRUPPO"},
                                  {"MG56", "MG56_DESCRSGRUPPO"}};
constexpr Level areaLevels[] = {
    {"MG07", "MG07_DESCRMACROAR"}, {"MG08", "MG08_DESCRAREA"}, {"MG09", "MG09_DESCRZONA"}};
constexpr Level categoryLevels[] = {
    {"MG10", "MG10_DESCRMACROCAT"}, {"MG11", "MG11_DESCRCAT"}, {"MG12", "MG12_DESCRSOTTOCAT"}};

Classification classificationOf(const sql::DiscountSource& source) {
  if (source.table == "LI12_LISTARTZONE") return {"Area", areaLevels};
  if (source.table == "LI13_LISTARTCAT") return {"Categoria", categoryLevels};
  return {"Famiglia", familyLevels};
}

using Codes = std::vector<std::string>;

class RuleDescription {
 public:
  RuleDescription(PageContext& context, const sql::DiscountKind& kind,
                  const Ref<ado::Recordset>& rows, Procedure& p)
      : context_(context), kind_(kind), p_(p) {
    std::vector<Value> values;
    for (const ado::Field& field : rows->fields()) {
      columns_.push_back(field.name);
      values.push_back(rows->value(field.name));
    }
    row_ = RowValues(std::move(values));
    statements_.emplace(p.company(), kind, columns_, sql::RuleOptions{});
  }

  std::string text() {
    add("Regola", code("GM61_NOMEREGOLA"));
    addList();
    if (const std::string customer = code("GM61_CODCLIENTE"); !customer.empty()) {
      const std::string statement =
          p_.step([&] { return context_.hostServices.decodes->Customer(company(), customer); });
      add("Cliente", described(customer, statement, "CG16_RAGSOANAG"));
    }
    if (const std::string article = code("GM61_CODART_MG66"); !article.empty()) {
      const std::string option = code("GM61_OPZIONE_MG5E");
      add("Articolo", described(article, decode("MG66", {article}), "MG87_DESCART") +
                          (option.empty() ? "" : ", " + translate("variante ") + option));
    }
    addFamilies();
    if (kind_.mode == sql::DiscountMode::OnPrice) {
      add("Sconto", number("GM61_SC1PER") + " %");
      add("Prezzo lordo", number("GM61_PREZZOLORDO"));
      add("Prezzo netto", number("GM61_PREZZONETTO"));
    } else {
      addSteps();
    }
    const std::string from = code("GM61_DATAINIZIO");
    const std::string to = code("GM61_DATAFINE");
    add("Validità", (from.empty() ? "" : translate("dal ") + from + " ") +
                        (to.empty() ? "" : translate("al ") + to));
    return text_;
  }

 private:
  const sql::DiscountSource& source() const { return statements_->source(row_); }
  std::string company() { return p_.company().text; }
  std::string translate(const std::string& text) const { return context_.translate(text); }

  void add(const char* caption, const std::string& content) {
    if (content.empty()) return;
    text_ += (text_.empty() ? "" : "\r\n") + translate(caption) + ": " + content;
  }

  std::string code(std::string_view column) const {
    return trim(toDisplay(statements_->value(row_, column)));
  }
  std::string number(std::string_view column) const {
    return toDisplay(CDecN(statements_->value(row_, column)));
  }

  std::string decode(const char* table, const Codes& keys) {
    return p_.step([&] { return context_.hostServices.decodes->Code(table, company(), keys); });
  }

  /// The code with its description, which the statement reads.
  std::string described(const std::string& code, const std::string& statement, const char* column) {
    const std::string description = statement.empty() ? "" : p_.lookUpText(statement, column);
    return code + " - " + (description.empty() ? translate("Codice non trovato") : description);
  }

  /// The values that columns have in the price list that the rule came from, each once.
  std::set<Codes> originOf(std::span<const std::string_view> columns) {
    std::set<Codes> found;
    const Ref<ado::Recordset> rows = p_.read(statements_->LeggiOrigine(row_));
    while (rows && p_.more(rows)) {
      Codes codes;
      for (const std::string_view column : columns) {
        const bool isOwn = column.starts_with(source().prefix());
        codes.push_back(isOwn ? trim(toDisplay(p_.value(rows, column))) : "");
      }
      found.insert(codes);
      p_.next(rows);
    }
    return found;
  }

  // The second description of an article's price is the number of its list, or its deposit.
  void addList() {
    add("Listino", code("GM61_DESCLISTCORVANE"));
    const bool isNumber = source().desc2.expression[0].find("_NUMLIST") != std::string_view::npos;
    const bool isDeposit = source().desc2.expression[0].find("_DEPOS") != std::string_view::npos;
    if (!isNumber && !isDeposit) return;
    std::set<Codes> known;
    if (const std::string stored = code("GM61_DESC2"); !stored.empty()) {
      known.insert({stored});
    } else {
      const std::string_view column = isDeposit                     ? "LI10_DEPOS_MG58"
                                      : source().prefix() == "LI10" ? "LI10_NUMLIST"
                                                                    : "LI14_NUMLISTUTIL";
      known = originOf({&column, 1});
    }
    for (const Codes& codes : known) {
      const std::string& own = codes.front();
      if (own.empty()) continue;
      if (isDeposit) {
        add("Deposito",
            described(own, sql::DescrizioneDeposito(p_.company(), own), "MG58_DESCRDEP"));
      } else {
        add("Numero di listino",
            described(own, sql::DescrizioneNumeroListino(p_.company(), own), "MG44_DESCLIST"));
      }
    }
  }

  void addFamilies() {
    const bool hasFamilies = source().families[0].starts_with(source().prefix());
    Codes stored;
    for (const std::string_view column : sql::ruleFamilies) stored.push_back(code(column));
    std::set<Codes> known;
    if (!stored.front().empty()) {
      known.insert(stored);
    } else if (hasFamilies) {
      known = originOf(source().families);
    }
    const Classification classification = classificationOf(source());
    for (const Codes& codes : known) {
      std::string path;
      Codes keys;
      for (const Level& level : classification.levels) {
        const std::string& own = codes[keys.size()];
        if (own.empty()) break;
        keys.push_back(own);
        path += (path.empty() ? "" : " / ") +
                described(own, decode(level.table, keys), level.description);
      }
      add(classification.caption, path);
    }
  }

  /// The steps that a stored rule keeps, else those of the price list.
  std::vector<sql::RuleStep> steps() {
    std::vector<sql::RuleStep> stored;
    for (int i = 0; i < 10; ++i) {
      const Value& from = statements_->value(row_, "GM61_GRIGLIAVALINF" + std::to_string(i));
      const Value& value = statements_->value(row_, "GM61_GRIGLIAVALORESC" + std::to_string(i));
      if (from.isNull() || from.isEmpty()) break;
      stored.push_back({toDecimal(CDecN(from)), toDecimal(CDecN(value))});
    }
    if (!stored.empty()) return stored;
    const Ref<ado::Recordset> rows = p_.read(statements_->LeggiScaglioni(row_));
    if (!rows) return stored;
    return p_.step([&] { return StepReader(*statements_, row_).read(*rows); });
  }

  void addSteps() {
    std::string text;
    for (const sql::RuleStep& step : steps()) {
      text += (text.empty() ? "" : "; ") + translate("da ") + toDisplay(step.from) + ": " +
              toDisplay(step.value);
    }
    add("Scaglioni", text.empty() ? translate("nessuno") : text);
  }

  PageContext& context_;
  const sql::DiscountKind& kind_;
  Procedure& p_;
  std::vector<std::string> columns_;
  RowValues row_;
  std::optional<sql::RuleStatements> statements_;
  std::string text_;
};

}  // namespace

std::string describeRule(PageContext& context, const sql::DiscountKind& kind,
                         const Ref<ado::Recordset>& rows, Procedure& p) {
  return RuleDescription(context, kind, rows, p).text();
}

}  // namespace kebu::forms
