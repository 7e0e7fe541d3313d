// What saving the rules of the list type that is shown would change.

#include <algorithm>

#include "controls/progress.h"
#include "forms/anagrafica/discounts/discounts_page.h"
#include "forms/changes/record_changes.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

namespace {

constexpr std::int32_t rowsAtATime = 500;

using Row = sql::RuleStatements::Row;
using SavedValues = std::vector<sql::SavedValue>;

std::vector<std::string> namesOf(const std::vector<ado::Field>& fields) {
  std::vector<std::string> names;
  names.reserve(fields.size());
  for (const ado::Field& field : fields) names.push_back(field.name);
  return names;
}

bool readTheSame(const SavedValues& a, const SavedValues& b) {
  return std::ranges::equal(a, b, readsTheSame, &sql::SavedValue::value, &sql::SavedValue::value);
}

/// The stored rules of a mode, by which the ticked rows are compared.
class StoredValues {
 public:
  StoredValues(const StoredRules& rules, const sql::Company& company, const sql::DiscountKind& kind)
      : isSaved_(rules.options().has_value()),
        statements_(company, kind, rules.columns(), rules.options().value_or(sql::RuleOptions{})) {}

  const sql::RuleStatements& statements() const { return statements_; }

  /// What is stored of a row in the columns of `saved`.
  SavedValues of(const Row& row, const SavedValues& saved) const {
    if (isSaved_) return statements_.savedValues(row);
    SavedValues stored;
    for (const auto& [column, value] : saved) {
      stored.push_back({column, statements_.value(row, column)});
    }
    return stored;
  }

 private:
  bool isSaved_;  ///< by the page; the rows were else loaded as they are stored
  sql::RuleStatements statements_;
};

}  // namespace

void DiscountsPage::addChanges(PlannedChanges& changes, Procedure& p) {
  if (listType_ == 0) return;
  for (const DiscountGrid* mode : {&onPrice, &byGrid}) {
    // Rules that could not be read are not replaced.
    if (loadOf(*mode).hasFailed()) continue;
    if (mode->isOn()) {
      addChanges(*mode, changes, p);
    } else {
      changes.note(mode->check.caption() + ": " +
                   context_.translate("la casella non è selezionata, le regole memorizzate restano "
                                      "come sono."));
    }
  }
}

void DiscountsPage::addChanges(const DiscountGrid& mode, PlannedChanges& changes, Procedure& p) {
  const sql::DiscountKind& kind = kindOf(mode);
  // The same statement as in a save, which stores these rows.
  const Ref<ado::Recordset> ticked = p.step([&] {
    const auto painted = context_.paintedMeanwhile();
    return context_.openReadable(sql::RegoleSelezionate(mode.table(), kind));
  });
  if (!ticked) return;
  p.step([&] {
    const sql::Company company = context_.companyKey();
    const sql::RuleStatements statements(company, kind, namesOf(ticked->fields()),
                                         options.values());
    const StoredValues stored(mode.stored, company, kind);
    std::map<StoredRules::Id, Row> deleted = mode.stored.read();
    std::int32_t kept = 0;
    while (!ticked->EOF_()) {
      for (const Row& row : ticked->GetRows(rowsAtATime)) {
        const std::string name = mode.nameOf(statements, row);
        const auto id = StoredRules::idOf(statements.value(row, "GM61_ID"));
        auto before = decltype(deleted)::node_type();
        if (mode.stored.areShown()) before = deleted.extract(id);
        if (before.empty()) {
          changes.add(name, std::nullopt, ReadRow{});
          continue;
        }
        ++kept;
        const SavedValues after = statements.savedValues(row);
        const SavedValues past = stored.of(before.mapped(), after);
        // Most rules are as they were, and need not be put into words.
        if (!readTheSame(past, after)) changes.add(name, read(mode, past), read(mode, after));
      }
    }
    for (const auto& [id, row] : deleted) {
      changes.add(mode.nameOf(stored.statements(), row), ReadRow{}, std::nullopt);
    }
    addNotes(mode, kept, changes);
  });
}

ReadRow DiscountsPage::read(const DiscountGrid& mode, const SavedValues& values) const {
  ReadRow read;
  for (const auto& [column, value] : values) {
    if (const controls::BoundControl* const option = options.controlOf(column)) {
      read.push_back(readColumn(context_, *option, option->caption(), value));
    } else {
      read.push_back(mode.readColumn(column, value, values));
    }
  }
  return read;
}

void DiscountsPage::addNotes(const DiscountGrid& mode, std::int32_t kept,
                             PlannedChanges& changes) const {
  if (kept > 0) {
    changes.note(mode.check.caption() + ": " +
                 context_.translate("regole già memorizzate che vengono riscritte con la data di "
                                    "oggi: ") +
                 controls::groupedNumber(kept) + ".");
  }
  if (mode.mode() == sql::DiscountMode::Grid) {
    changes.note(mode.check.caption() + ": " +
                 context_.translate("gli scaglioni si rileggono dal listino."));
  }
}

}  // namespace kebu::forms
