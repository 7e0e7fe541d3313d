#include "workbench/ado/row_filter.h"

#include <algorithm>
#include <compare>
#include <iterator>

#include "common/convert.h"
#include "workbench/ado/ado_error.h"
#include "workbench/engine/functions/collation.h"
#include "workbench/engine/functions/like_pattern.h"
#include "workbench/engine/syntax/lexer.h"
#include "workbench/engine/syntax/parser.h"
#include "workbench/engine/values/cast.h"

namespace kebu::workbench {
namespace {

using Tokens = std::vector<engine::Token>;

/// Reads the value at the place and moves the place behind it.
Value readValue(const Tokens& tokens, std::size_t& at) {
  const bool negative = tokens[at].text == "-";
  if (negative) ++at;
  const engine::Token& token = tokens[at++];
  if (engine::isWord(token, "NULL") && !negative) return Null{};
  if (!engine::isLiteral(token)) throw adoerror::badArgument();
  Value value = engine::literalOf(token).value;
  if (!negative) return value;
  if (!value.isNumber()) throw adoerror::badArgument();
  return -toDecimal(value);
}

/// The value as it is compared with fields of the type.
Value comparable(const Value& value, const engine::SqlType& type, bool asText) {
  if (value.isNull()) return value;
  if (asText) return toText(value);
  if (type.isDate()) return engine::castTo(value, {engine::TypeKind::DateTime});
  if (type.kind == engine::TypeKind::Bit) return toBoolean(value);
  if (type.isNumber() && value.isText())
    return engine::castTo(value, engine::SqlType::decimal(38, 10));
  if (type.isNumber()) return value.isInteger() ? value : toDecimal(value);
  return toText(value);
}

int compared(const Value& field, const Value& value) {
  const auto sign = [](auto order) { return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0; };
  if (field.isText()) return engine::compareTexts(field.as<std::string>(), value.as<std::string>());
  if (field.holds<Date>()) return sign(field.as<Date>() <=> value.as<Date>());
  if (field.holds<bool>()) return sign(field.as<bool>() <=> value.as<bool>());
  if (field.isInteger() && value.isInteger()) return sign(toInt32(field) <=> toInt32(value));
  return sign(toDecimal(field) <=> toDecimal(value));
}

}  // namespace

struct RowFilter::Operator {
  std::string_view text;
  /// Whether it holds for a field that is less than the value (negative), equal (0) or greater.
  /// Null for LIKE, which takes a pattern.
  bool (*holds)(int order);
};

const RowFilter::Operator RowFilter::operators[] = {
    {"=", [](int order) { return order == 0; }},
    {"<>", [](int order) { return order != 0; }},
    {"<", [](int order) { return order < 0; }},
    {"<=", [](int order) { return order <= 0; }},
    {">", [](int order) { return order > 0; }},
    {">=", [](int order) { return order >= 0; }},
    {"LIKE", nullptr},
};

bool RowFilter::holds(const Condition& condition, const Value& field) {
  if (condition.value.isNull()) return (condition.op->text == "=") == field.isNull();
  if (field.isNull()) return false;
  return condition.op->holds
             ? condition.op->holds(compared(field, condition.value))
             : engine::matchesLike(toText(field), condition.value.as<std::string>());
}

RowFilter::RowFilter(const std::string& text, const RowSet& rows) {
  const Tokens tokens = engine::tokenize(text);
  std::size_t at = 0;
  while (tokens[at].kind != engine::TokenKind::End) {
    if (!conditions_.empty() && !engine::isWord(tokens[at++], "AND")) throw adoerror::badArgument();
    const engine::Token& name = tokens[at];
    if (name.kind != engine::TokenKind::Word && name.kind != engine::TokenKind::Name)
      throw adoerror::badArgument();
    const std::size_t field = rows.indexOf(engine::nameOf(name));
    const auto* const op = std::ranges::find_if(operators, [&](const Operator& known) {
      return equalsIgnoringCase(known.text, tokens[at + 1].text);
    });
    if (op == std::end(operators)) throw adoerror::badArgument();
    at += 2;
    const Value value = readValue(tokens, at);
    conditions_.push_back({field, op, comparable(value, rows.types[field], !op->holds)});
  }
}

bool RowFilter::passes(const Values& values) const {
  return std::all_of(conditions_.begin(), conditions_.end(), [&](const Condition& condition) {
    return holds(condition, values[condition.field]);
  });
}

}  // namespace kebu::workbench
