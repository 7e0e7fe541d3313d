#include "forms/anagrafica/discounts/stored_rules.h"

#include <utility>

#include "common/convert.h"
#include "common/nulls.h"

namespace kebu::forms {

namespace {

constexpr const char* idColumn = "GM61_ID";

}  // namespace

StoredRules::Id StoredRules::idOf(const Value& id) {
  return toInt32(CDecN(id));
}

void StoredRules::loaded(const Ref<ado::Recordset>& rows) {
  none();
  rows_ = rows;
}

void StoredRules::saved(const Ref<ado::Recordset>& rows, std::set<Id> ids,
                        const sql::RuleOptions& options) {
  none();
  rows_ = rows;
  ids_ = std::move(ids);
  options_ = options;
}

void StoredRules::rowChanges(const Ref<ado::Recordset>& rows) {
  if (!rows_ || !(rows_ == rows) || rows->AbsolutePosition() < 1) return;
  const Id id = idOf(rows->value(idColumn));
  if (unchanged_.contains(id)) return;
  std::vector<Value> values;
  for (const ado::Field& field : rows->fields()) values.push_back(rows->value(field.name));
  unchanged_.emplace(id, RowValues(std::move(values)));
}

// A clone keeps its rows when those of the other recordset are read again.
void StoredRules::rowsChange(const Ref<ado::Recordset>& rows) {
  if (rows_ && rows_ == rows) rows_ = rows->Clone();
}

std::vector<std::string> StoredRules::columns() const {
  std::vector<std::string> names;
  if (!rows_) return names;
  for (const ado::Field& field : rows_->fields()) names.push_back(field.name);
  return names;
}

std::map<StoredRules::Id, RowValues> StoredRules::read() const {
  std::map<Id, RowValues> rules;
  if (!rows_ || rows_->RecordCount() == 0) return rules;
  const Ref<ado::Recordset> reader = rows_->Clone();
  const std::size_t id = ado::requireIndex(reader->fields(), idColumn);
  reader->MoveFirst();
  for (RowValues& row : reader->GetRows(-1)) {
    const Id own = idOf(row[id]);
    if (ids_ && !ids_->contains(own)) continue;
    const auto before = unchanged_.find(own);
    rules.insert_or_assign(own, before == unchanged_.end() ? row : before->second);
  }
  return rules;
}

}  // namespace kebu::forms
