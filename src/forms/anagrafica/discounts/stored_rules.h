#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "ado/recordset.h"
#include "common/row_values.h"
#include "sql/discount_rules.h"

namespace kebu::forms {

/// Which rules of a kind are stored, as far as the page knows since it loaded or saved them. They
/// are rows of a working table, told apart by GM61_ID, as they were before the user changed them.
/// Rows are copied only when they change: there may be 100,000.
class StoredRules {
 public:
  using Id = std::int32_t;
  static Id idOf(const Value& id);

  /// No rule is stored.
  void none() { *this = {}; }
  /// The rows were loaded from the stored rules.
  void loaded(const Ref<ado::Recordset>& rows);
  /// These of the rows were stored, with the options of the save; the rules before are gone.
  void saved(const Ref<ado::Recordset>& rows, std::set<Id> ids, const sql::RuleOptions& options);

  /// The current row is about to be changed.
  void rowChanges(const Ref<ado::Recordset>& rows);
  /// All rows are about to be changed, and to be read again.
  void rowsChange(const Ref<ado::Recordset>& rows);
  /// Other rows are shown now: none of them is a stored rule, whatever its GM61_ID.
  void otherRows() { areShown_ = false; }
  /// Whether the stored rules are among the rows that are shown.
  bool areShown() const { return areShown_; }

  /// The columns of the rows, in the order of their values.
  std::vector<std::string> columns() const;
  /// The stored rules as rows of the working table.
  std::map<Id, RowValues> read() const;
  /// The options with which they were saved; nothing for loaded rules, whose rows have them.
  const std::optional<sql::RuleOptions>& options() const { return options_; }

 private:
  Ref<ado::Recordset> rows_;
  std::optional<std::set<Id>> ids_;    ///< nothing for all rows
  std::map<Id, RowValues> unchanged_;  ///< rows changed since, as they were before
  std::optional<sql::RuleOptions> options_;
  bool areShown_ = true;
};

}  // namespace kebu::forms
