#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "common/value.h"
#include "workbench/engine/values/sql_error.h"
#include "workbench/engine/values/types.h"

namespace kebu::engine {

struct ResultColumn {
  std::string name;
  SqlType type;
  std::string baseColumn;  ///< the column of ResultSet::table; "" for a computed one
};

/// The rows of one query.
struct ResultSet {
  std::vector<ResultColumn> columns;
  std::vector<std::vector<Value>> rows;
  std::int64_t rowsAffected = 0;

  std::string table;  ///< whose rows these are; "" when not those of one table
};

/// What a batch tells its caller, in the order in which it happens.
using BatchEvent = std::variant<ResultSet, SqlError>;

}  // namespace kebu::engine
