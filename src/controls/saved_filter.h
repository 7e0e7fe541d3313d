#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/query_condition.h"

namespace kebu::controls {

/// A field with what is stated on it, as a saved filter holds it.
struct SavedCondition {
  std::string dataField;
  QueryCondition condition;

  friend bool operator==(const SavedCondition&, const SavedCondition&) = default;
};

/// The text under which a filter is kept: a line that tells the format,
/// then one a field with tabs between its name, operator and values. Never empty.
std::string writeFilter(const std::vector<SavedCondition>& conditions);
/// And back; RuntimeError 5 for a text of another kind.
std::vector<SavedCondition> readFilter(std::string_view text);

}  // namespace kebu::controls
