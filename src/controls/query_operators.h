#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/query_condition.h"

// How people see and type conditions.
namespace kebu::controls {

/// What an operator looks like and takes.
struct OperatorTraits {
  QueryOperator op;
  std::string_view code;
  std::string_view caption;  ///< in Italian
  int values;                ///< boxes that it takes values from
  bool ofTextOnly;
};

/// All, in the order in which they are offered.
std::span<const OperatorTraits> queryOperators();
const OperatorTraits& traitsOf(QueryOperator op);
/// By its code; nothing for an unknown one.
std::optional<QueryOperator> operatorByCode(std::string_view code);

/// The items of a list as people type it: between semicolons, in double quotes
/// where an item holds one. Blanks around items do not count.
std::vector<std::string> splitList(std::string_view text);
/// The text of which splitList makes these items.
std::string joinList(std::span<const std::string> items);

}  // namespace kebu::controls
