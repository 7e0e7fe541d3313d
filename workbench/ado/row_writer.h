#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/ado/ado_connection.h"
#include "workbench/ado/row_set.h"

namespace kebu::workbench {

/// Sends changed rows of a recordset to the table that they came from, as ADO does: by a statement
/// that finds the row by values.
class RowWriter {
 public:
  RowWriter(AdoConnection& connection, const RowSet& rows, ado::UpdateCriteria criteria)
      : connection_(connection), rows_(rows), criteria_(criteria) {}

  /// Writes the row's pending change and then settles it. On an error the row stays as it was.
  void send(Row& row) const;

 private:
  std::string insert(const Row& row) const;
  std::string update(const Row& row) const;
  std::string remove(const Row& row) const;
  std::string condition(const Row& row) const;
  std::vector<std::size_t> conditionFields(const Row& row) const;
  std::vector<std::size_t> keyFields() const;
  std::vector<std::size_t> comparableFields() const;
  engine::TablePtr table() const;
  void readIdentity(Row& row) const;
  std::string name(std::size_t field) const;
  std::string newValue(const Row& row, std::size_t field) const;

  AdoConnection& connection_;
  const RowSet& rows_;
  ado::UpdateCriteria criteria_;
};

}  // namespace kebu::workbench
