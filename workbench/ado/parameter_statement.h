#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/syntax/ast.h"

namespace kebu::engine {

/// A statement with values, written piece by piece in two forms: as it is run, and as one
/// reads it; the readable one only when somebody wants it.
class ParameterStatement {
 public:
  ParameterStatement(std::size_t valueCount, bool isReadable);

  ParameterStatement& add(std::string_view piece);
  /// The name in brackets.
  ParameterStatement& addName(const std::string& name);
  /// The value, which becomes one of the type. SqlError when it cannot.
  ParameterStatement& addValue(const SqlType& type, const Value& value);

  bool readable;
  std::string text;     ///< with the values; "" when nobody wants it
  std::string command;  ///< with a "?" in the place of every value
  std::vector<ast::Literal> values;
};

/// Appends the name in brackets.
void appendName(std::string& text, const std::string& name);

}  // namespace kebu::engine
