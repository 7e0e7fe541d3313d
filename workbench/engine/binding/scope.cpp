#include "workbench/engine/binding/scope.h"

#include <algorithm>
#include <optional>

#include "common/convert.h"

namespace kebu::engine {
namespace {

/// The column of one level, which is noted as not grouped; nothing when it has none of the name.
std::optional<Bound> findAt(const Scope& level, const std::string& qualifier,
                            const std::string& name) {
  std::optional<Bound> found;
  std::string place;
  for (const auto& member : level.members) {
    if (!qualifier.empty() && !equalsIgnoringCase(qualifier, member.name())) continue;
    for (const auto& [columnName, bound] : member.columns) {
      if (!equalsIgnoringCase(columnName, name)) continue;
      if (found) throw SqlError(209, "Ambiguous column name '" + name + "'.");
      found = bound;
      place = member.name() + "." + columnName;
    }
  }
  // The column may be a group itself, also where a subquery refers to it.
  if (found && level.findings != nullptr && !level.findings->isGroup(found->sql))
    level.findings->ungrouped.push_back(std::move(place));
  return found;
}

}  // namespace

std::string withoutPlaces(const std::string& sql) {
  std::string result;
  bool inPlace = false;
  for (const char c : sql) {
    inPlace = inPlace && c >= '0' && c <= '9';
    if (!inPlace) result += c;
    inPlace = inPlace || c == '?';
  }
  return result;
}

void SelectFindings::group(const std::string& sql, std::size_t ungroupedBefore) {
  if (ungrouped.size() > ungroupedBefore && isGroup(sql)) ungrouped.resize(ungroupedBefore);
}

bool SelectFindings::isGroup(const std::string& sql) const {
  return !groups.empty() &&
         std::find(groups.begin(), groups.end(), withoutPlaces(sql)) != groups.end();
}

SqlError unknownColumn(const std::string& name) {
  return {207, "Invalid column name '" + name + "'.", "42S22"};
}

Bound resolveColumn(const Scope& scope, const ast::Column& column) {
  const std::string& name = column.parts.back();
  const std::string qualifier =
      column.parts.size() > 1 ? column.parts[column.parts.size() - 2] : std::string();
  for (const Scope* level = &scope; level != nullptr; level = level->outer) {
    if (auto found = findAt(*level, qualifier, name)) return *std::move(found);
  }
  if (qualifier.empty()) throw unknownColumn(name);
  throw SqlError(4104,
                 "The multi-part identifier \"" + qualifier + "." + name + "\" could not be bound.",
                 "42S22");
}

}  // namespace kebu::engine
