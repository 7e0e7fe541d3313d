#pragma once

#include <string>
#include <vector>

#include "workbench/ado/row_set.h"

namespace kebu::workbench {

/// A recordset's filter: conditions "FIELD op value" that must all hold.
class RowFilter {
 public:
  RowFilter() = default;
  /// RuntimeError 3001 when the text is no such filter, 3265 for an unknown field.
  RowFilter(const std::string& text, const RowSet& rows);

  bool passes(const Values& values) const;
  bool passesAll() const { return conditions_.empty(); }

 private:
  struct Operator;
  static const Operator operators[];
  struct Condition {
    std::size_t field = 0;
    const Operator* op = nullptr;
    Value value;  ///< as the field's values are compared with it
  };

  static bool holds(const Condition& condition, const Value& field);

  std::vector<Condition> conditions_;
};

}  // namespace kebu::workbench
