#include "workbench/engine/row_filter.h"

#include <algorithm>
#include <array>
#include <compare>
#include <optional>

#include "common/convert.h"
#include "workbench/engine/ado_error.h"
#include "workbench/engine/cast.h"
#include "workbench/engine/functions.h"
#include "workbench/engine/lexer.h"
#include "workbench/engine/parser.h"

namespace kebu::engine {
namespace {

using Tokens = std::vector<Token>;

/// The value at the place, which moves behind it.
Value readValue(const Tokens& tokens, std::size_t& at) {
  const bool negative = tokens[at].text == "-";
  if (negative) ++at;
  const Token& token = tokens[at++];
  if (isWord(token, "NULL") && !negative) return Null{};
  if (!isLiteral(token)) throw adoerror::badArgument();
  Value value = literalOf(token).value;
  if (!negative) return value;
  if (!value.isNumber()) throw adoerror::badArgument();
  return -toDecimal(value);
}

/// Nothing when either is null.
std::optional<int> compared(const Value& field, const Value& value) {
  if (field.isNull() || value.isNull()) return std::nullopt;
  const auto sign = [](auto order) { return std::is_lt(order) ? -1 : std::is_gt(order) ? 1 : 0; };
  if (field.holds<Date>()) {
    return sign(field.as<Date>() <=> castTo(value, {TypeKind::DateTime}).as<Date>());
  }
  if (field.isText()) return compareTexts(field.as<std::string>(), toText(value));
  if (field.holds<bool>())
    return sign(Decimal(field.as<bool>() ? 1 : 0) <=> Decimal(toBoolean(value) ? 1 : 0));
  return sign(toDecimal(field) <=> castTo(value, SqlType::decimal(38, 10)).as<Decimal>());
}

bool holds(const Value& field, const std::string& op, const Value& value) {
  if (value.isNull()) return (op == "=") == field.isNull();
  if (op == "LIKE") return !field.isNull() && matchesLike(toText(field), toText(value));
  const auto order = compared(field, value);
  if (!order) return false;
  if (op == "=") return *order == 0;
  if (op == "<>") return *order != 0;
  if (op == "<") return *order < 0;
  if (op == "<=") return *order <= 0;
  if (op == ">") return *order > 0;
  return *order >= 0;
}

}  // namespace

RowFilter::RowFilter(const std::string& text, const RowSet& rows) {
  const Tokens tokens = tokenize(text);
  std::size_t at = 0;
  while (tokens[at].kind != TokenKind::End) {
    if (!conditions_.empty() && !isWord(tokens[at++], "AND")) throw adoerror::badArgument();
    const Token& name = tokens[at];
    if (name.kind != TokenKind::Word && name.kind != TokenKind::Name) throw adoerror::badArgument();
    Condition condition{rows.indexOf(nameOf(name)), toUpperAscii(tokens[at + 1].text), {}};
    static constexpr std::array<std::string_view, 7> known{"=", "<>", "<", "<=", ">", ">=", "LIKE"};
    if (std::find(known.begin(), known.end(), condition.op) == known.end())
      throw adoerror::badArgument();
    at += 2;
    condition.value = readValue(tokens, at);
    conditions_.push_back(std::move(condition));
  }
}

bool RowFilter::passes(const Values& values) const {
  return std::all_of(conditions_.begin(), conditions_.end(), [&](const Condition& condition) {
    return holds(values[condition.field], condition.op, condition.value);
  });
}

}  // namespace kebu::engine
