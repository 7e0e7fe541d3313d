#pragma once

#include <set>

#include "workbench/ado/ado_connection.h"
#include "workbench/ado/parameter_statement.h"
#include "workbench/ado/row_set.h"

namespace kebu::workbench {

/// Sends changed rows of a recordset to the table that they came from, as ADO does.
class RowWriter {
 public:
  RowWriter(AdoConnection& connection, const RowSet& rows) : connection_(connection), rows_(rows) {}

  /// Writes the row's pending change and then settles it. On an error the row stays as it was.
  void send(Row& row) const;

 private:
  ParameterStatement begin(const char* start, std::size_t valueCount) const;
  ParameterStatement insert(const Row& row) const;
  ParameterStatement update(const Row& row) const;
  ParameterStatement remove(const Row& row) const;
  void addPlace(ParameterStatement& statement, const Row& row) const;
  std::set<std::size_t> keyFields() const;
  std::string readableKey(const Row& row) const;
  static void keepAsStored(Row& row, ParameterStatement& update);
  void readBack(Row& row) const;

  AdoConnection& connection_;
  const RowSet& rows_;
};

}  // namespace kebu::workbench
