#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/query_condition.h"

namespace kebu::controls {

/// A field with what is stated on it, as a saved specification holds it.
struct SpecifiedCondition {
  std::string dataField;
  QueryCondition condition;

  friend bool operator==(const SpecifiedCondition&, const SpecifiedCondition&) = default;
};

/// The text under which a specification is kept: a line that tells the format,
/// then one a field with tabs between its name, operator and values. Never empty.
std::string writeSpecification(const std::vector<SpecifiedCondition>& conditions);
/// And back; RuntimeError 5 for a text of another kind.
std::vector<SpecifiedCondition> readSpecification(std::string_view text);

}  // namespace kebu::controls
