#pragma once

#include <string>
#include <vector>

#include "common/query_condition.h"

namespace kebu::sql {

/// The T-SQL predicate of a condition, to be put behind AND as it stands; "" when
/// nothing is restricted. Quotes and wildcards in values stand for themselves.
/// RuntimeError 13 for a value of a numeric column that is no whole number.
std::string composePredicate(const QueryColumn& column, const QueryCondition& condition);

/// Each predicate that is not "" in parentheses behind " AND ".
std::string composeConjunction(const std::vector<std::string>& predicates);

inline constexpr QueryComposer queryComposer{composePredicate, composeConjunction};

}  // namespace kebu::sql
