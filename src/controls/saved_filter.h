#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/query_condition.h"

namespace kebu::controls {

/// A field and the condition on it.
struct SavedCondition {
  std::string dataField;
  QueryCondition condition;

  friend bool operator==(const SavedCondition&, const SavedCondition&) = default;
};

/// The text in which a filter is stored: a line with the format's name and version,
/// then a line for each field with tabs between its name, operator and values.
/// Never empty.
std::string writeFilter(const std::vector<SavedCondition>& conditions);
/// Reads that text; RuntimeError 5 for another text.
std::vector<SavedCondition> readFilter(std::string_view text);

}  // namespace kebu::controls
