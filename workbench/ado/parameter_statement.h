#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/syntax/ast.h"

namespace kebu::workbench {

/// A statement with values, made piece by piece in two forms: with "?" for the values, as it
/// is run, and with the values in the text, for the statement log.
class ParameterStatement {
 public:
  /// `isReadable`: whether the text with the values is made as well.
  ParameterStatement(std::size_t valueCount, bool isReadable);

  ParameterStatement& add(std::string_view piece);
  /// The name in brackets.
  ParameterStatement& addName(const std::string& name);
  /// The value, converted to the type. SqlError when it cannot be.
  ParameterStatement& addValue(const engine::SqlType& type, const Value& value);

  bool readable;
  std::string text;     ///< with the values; "" when it is not readable
  std::string command;  ///< with a "?" in the place of every value
  std::vector<engine::ast::Literal> values;
};

/// Appends the name in brackets.
void appendName(std::string& text, const std::string& name);

}  // namespace kebu::workbench
