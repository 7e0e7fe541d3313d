#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "common/query_condition.h"
#include "workbench/engine/execution/session.h"

namespace kebu::workbench {

/// A text or number of a row; nothing for NULL.
using StoredValue = std::optional<std::string>;

/// Whether a value is as a condition says, worked out without the database.
bool holds(const StoredValue& cell, bool isNumeric, const QueryCondition& condition);

/// The values that rows of `table` have in `column`, by the key that they belong
/// to: read plain, and of them those that have 1 in the columns `ones`.
std::multimap<std::string, StoredValue> read(engine::Session& session, const std::string& table,
                                             const std::string& key, const std::string& column,
                                             const std::vector<std::string>& ones);

}  // namespace kebu::workbench
