#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "workbench/engine/binding/bound.h"

namespace kebu::engine {

bool isAggregate(std::string_view name);
/// A call of one of T-SQL's own functions; nothing when there is none of that
/// name, SqlError 174 for a wrong number of arguments.
std::optional<Bound> callBuiltin(std::string_view name, const std::vector<Bound>& args);

}  // namespace kebu::engine
