#include "workbench/engine/syntax/expression_parser.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "common/convert.h"

namespace kebu::engine {
namespace {

using ast::Expr;
using ast::ExprPtr;

template <class Node>
ExprPtr make(std::string_view at, Node node) {
  return std::make_shared<const Expr>(Expr{at, std::move(node)});
}

ExprPtr negate(std::string_view at, ExprPtr operand) {
  return make(at, ast::Not{std::move(operand)});
}

/// The token's operator, if it is one of those given.
template <class Operator, std::size_t size>
std::optional<Operator> operatorAt(
    const Token& token, const std::array<std::pair<std::string_view, Operator>, size>& operators) {
  if (token.kind != TokenKind::Symbol) return std::nullopt;
  for (const auto& [symbol, op] : operators) {
    if (token.text == symbol) return op;
  }
  return std::nullopt;
}

std::size_t charactersOf(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

// The size of a text type without one in CAST and CONVERT. In a declaration it is 1.
constexpr int castSize = 30;

// Functions whose first argument is the name of a date part.
constexpr std::array dateFunctions{"DATEADD", "DATEDIFF", "DATEPART", "DATENAME"};

}  // namespace

ast::Literal literalOf(const Token& token) {
  ast::Literal literal;
  if (token.kind == TokenKind::Text) {
    std::string text = textOf(token);
    const auto size = static_cast<int>(charactersOf(text));
    literal.type = SqlType::text(std::max(size, 1));
    if (token.text.front() != '\'') literal.type.kind = TypeKind::NVarChar;
    literal.value = std::move(text);
    return literal;
  }
  std::string digits(token.text);
  if (digits.front() == '.') digits.insert(0, 1, '0');
  if (digits.back() == '.') digits.pop_back();
  const auto number = Decimal::parse(digits);
  const auto whole = number ? number->unscaledAt(0) : std::nullopt;
  if (token.kind == TokenKind::Integer && whole && *whole <= greatestOf(TypeKind::Int)) {
    const auto first = std::min(digits.find_first_not_of('0'), digits.size() - 1);
    literal.type = {TypeKind::Int, static_cast<int>(digits.size() - first), 0, 0};
    literal.value = static_cast<std::int32_t>(*whole);
    return literal;
  }
  const std::size_t point = std::min(digits.find('.'), digits.size());
  const auto leading = std::min(digits.find_first_not_of('0'), point);
  const int scale = number->scale();
  literal.type = SqlType::decimal(std::max(static_cast<int>(point - leading) + scale, 1), scale);
  literal.value = *number;
  return literal;
}

ExprPtr ExpressionParser::condition() {
  return chain(LogicalOperator::Or, &ExpressionParser::conjunction);
}

ExprPtr ExpressionParser::conjunction() {
  return chain(LogicalOperator::And, &ExpressionParser::negation);
}

ExprPtr ExpressionParser::chain(LogicalOperator op, ExprPtr (ExpressionParser::*operand)()) {
  const auto at = reader_.peek().text;
  ExprPtr first = (this->*operand)();
  if (!reader_.is(symbolOf(op))) return first;
  ast::Logical logical{op, {std::move(first)}};
  while (reader_.accept(symbolOf(op))) logical.operands.push_back((this->*operand)());
  return make(at, std::move(logical));
}

ExprPtr ExpressionParser::negation() {
  const auto at = reader_.peek().text;
  if (reader_.accept("NOT")) return negate(at, negation());
  return predicate();
}

bool ExpressionParser::atQuery() const {
  std::size_t ahead = 0;
  while (reader_.isSymbol("(", ahead)) ++ahead;
  return isWord(reader_.peek(ahead), "SELECT");
}

ExprPtr ExpressionParser::predicate() {
  const auto at = reader_.peek().text;
  if (reader_.accept("EXISTS")) {
    reader_.expectSymbol("(");
    auto inner = query();
    reader_.expectSymbol(")");
    return make(at, ast::Exists{std::move(inner)});
  }
  if (!reader_.isSymbol("(")) return comparisonTail(expression());

  // A parenthesis begins a value or a condition: the value is tried first.
  const auto start = reader_.place();
  try {
    return comparisonTail(expression());
  } catch (const SqlError&) {
    reader_.rewind(start);
  }
  reader_.expectSymbol("(");
  ExprPtr inner = condition();
  reader_.expectSymbol(")");
  return inner;
}

ExprPtr ExpressionParser::comparisonTail(ExprPtr left) {
  static constexpr std::array<std::pair<std::string_view, ComparisonOperator>, 9> operators{
      {{"=", ComparisonOperator::Equal},
       {"<>", ComparisonOperator::NotEqual},
       {"!=", ComparisonOperator::NotEqual},
       {"<", ComparisonOperator::Less},
       {">", ComparisonOperator::Greater},
       {"<=", ComparisonOperator::LessOrEqual},
       {">=", ComparisonOperator::GreaterOrEqual},
       {"!<", ComparisonOperator::GreaterOrEqual},
       {"!>", ComparisonOperator::LessOrEqual}}};
  const auto at = reader_.peek().text;
  if (const auto op = operatorAt(reader_.peek(), operators)) {
    reader_.take();
    return make(at, ast::Comparison{*op, std::move(left), expression()});
  }
  if (reader_.accept("IS")) {
    const bool negated = reader_.accept("NOT");
    reader_.expect("NULL");
    ExprPtr test = make(at, ast::IsNull{std::move(left)});
    return negated ? negate(at, test) : test;
  }
  const bool negated = reader_.accept("NOT");
  ExprPtr test;
  if (reader_.accept("BETWEEN")) {
    ExprPtr low = expression();
    reader_.expect("AND");
    ExprPtr high = expression();
    test = make(
        at, ast::Logical{LogicalOperator::And,
                         {make(at, ast::Comparison{ComparisonOperator::GreaterOrEqual, left, low}),
                          make(at, ast::Comparison{ComparisonOperator::LessOrEqual, left, high})}});
  } else if (reader_.accept("IN")) {
    reader_.expectSymbol("(");
    ast::In in{std::move(left), {}, nullptr};
    if (atQuery()) {
      in.query = query();
    } else {
      in.list = list();
    }
    reader_.expectSymbol(")");
    test = make(at, std::move(in));
  } else if (reader_.accept("LIKE")) {
    ast::Like like{std::move(left), expression(), nullptr};
    if (reader_.accept("ESCAPE")) like.escape = expression();
    test = make(at, std::move(like));
  } else {
    reader_.fail();
  }
  return negated ? negate(at, test) : test;
}

ExprPtr ExpressionParser::expression() {
  static constexpr std::array<std::pair<std::string_view, ArithmeticOperator>, 5> operators{
      {{"+", ArithmeticOperator::Add},
       {"-", ArithmeticOperator::Subtract},
       {"&", ArithmeticOperator::BitAnd},
       {"|", ArithmeticOperator::BitOr},
       {"^", ArithmeticOperator::BitXor}}};
  ExprPtr left = term();
  while (const auto op = operatorAt(reader_.peek(), operators)) {
    const auto at = reader_.take().text;
    left = make(at, ast::Arithmetic{*op, left, term()});
  }
  return left;
}

ExprPtr ExpressionParser::term() {
  static constexpr std::array<std::pair<std::string_view, ArithmeticOperator>, 3> operators{
      {{"*", ArithmeticOperator::Multiply},
       {"/", ArithmeticOperator::Divide},
       {"%", ArithmeticOperator::Modulo}}};
  ExprPtr left = unary();
  while (const auto op = operatorAt(reader_.peek(), operators)) {
    const auto at = reader_.take().text;
    left = make(at, ast::Arithmetic{*op, left, unary()});
  }
  return left;
}

ExprPtr ExpressionParser::unary() {
  const auto at = reader_.peek().text;
  if (reader_.acceptSymbol("-")) return make(at, ast::Negative{unary()});
  if (reader_.acceptSymbol("+")) return unary();
  return primary();
}

ExprPtr ExpressionParser::literal() {
  const int slot = reader_.literalsBefore();
  const Token token = reader_.take();
  if (literals_ == nullptr) return make(token.text, literalOf(token));
  // The tree holds the type and the place; the value comes with every run.
  return make(token.text, ast::Literal{literals_->at(static_cast<std::size_t>(slot)),
                                       {},
                                       slot,
                                       token.kind == TokenKind::Parameter});
}

ExprPtr ExpressionParser::primary() {
  const Token& token = reader_.peek();
  switch (token.kind) {
    case TokenKind::Integer:
    case TokenKind::Decimal:
    case TokenKind::Text:
      return literal();
    case TokenKind::Parameter:
      if (literals_ == nullptr) reader_.fail();
      return literal();
    case TokenKind::Variable:
      return make(token.text, ast::Variable{reader_.variable()});
    default:
      break;
  }
  const auto at = token.text;
  if (reader_.isSymbol("(")) {
    if (!atQuery()) {
      reader_.take();
      ExprPtr inner = expression();
      reader_.expectSymbol(")");
      return inner;
    }
    reader_.take();
    auto inner = query();
    reader_.expectSymbol(")");
    return make(at, ast::Subquery{std::move(inner)});
  }
  if (reader_.accept("NULL")) return make(at, ast::Literal{{}, Null{}, -1});
  if (reader_.is("CASE")) return caseExpression();
  if (reader_.is("CAST") && reader_.isSymbol("(", 1)) return castExpression();
  if (reader_.is("CONVERT") && reader_.isSymbol("(", 1)) return convertExpression();
  return nameOrCall();
}

ExprPtr ExpressionParser::caseExpression() {
  const auto at = reader_.take().text;
  ast::Case result;
  ExprPtr operand;
  if (!reader_.is("WHEN")) operand = expression();
  while (reader_.is("WHEN")) {
    const auto whenAt = reader_.take().text;
    ExprPtr test =
        operand ? make(whenAt, ast::Comparison{ComparisonOperator::Equal, operand, expression()})
                : condition();
    reader_.expect("THEN");
    result.branches.push_back({std::move(test), expression()});
  }
  if (result.branches.empty()) reader_.fail();
  if (reader_.accept("ELSE")) result.otherwise = expression();
  reader_.expect("END");
  return make(at, std::move(result));
}

ExprPtr ExpressionParser::castExpression() {
  const auto at = reader_.take().text;
  reader_.expectSymbol("(");
  ExprPtr operand = expression();
  reader_.expect("AS");
  const SqlType type = reader_.type(castSize);
  reader_.expectSymbol(")");
  return make(at, ast::Cast{std::move(operand), type, 0});
}

ExprPtr ExpressionParser::convertExpression() {
  const auto at = reader_.take().text;
  reader_.expectSymbol("(");
  const SqlType type = reader_.type(castSize);
  reader_.expectSymbol(",");
  ast::Cast cast{expression(), type, 0};
  if (reader_.acceptSymbol(",")) cast.style = reader_.wholeNumber();
  reader_.expectSymbol(")");
  return make(at, std::move(cast));
}

ExprPtr ExpressionParser::nameOrCall() {
  const auto at = reader_.peek().text;
  // LEFT and RIGHT are words of joins as well.
  const bool call1 = reader_.isSymbol("(", 1) && reader_.peek().kind == TokenKind::Word;
  if (call1 && reader_.isAny({"LEFT", "RIGHT", "REPLACE", "CHAR"})) {
    return call(toUpperAscii(reader_.take().text), at);
  }
  ast::ObjectName name = reader_.objectName();
  if (!reader_.isSymbol("(")) return make(name.at, ast::Column{std::move(name.parts)});
  return call(toUpperAscii(name.last()), name.at);
}

ExprPtr ExpressionParser::call(std::string name, std::string_view at) {
  ast::Call result;
  result.name = std::move(name);
  reader_.expectSymbol("(");
  if (reader_.acceptSymbol("*")) {
    result.star = true;
  } else if (!reader_.isSymbol(")")) {
    result.distinct = reader_.accept("DISTINCT");
    const bool isDate =
        std::find(dateFunctions.begin(), dateFunctions.end(), result.name) != dateFunctions.end();
    if (isDate) {
      const Token part = reader_.take();
      result.args.push_back(
          make(part.text, ast::Literal{SqlType::text(20), toUpperAscii(part.text), -1}));
      reader_.expectSymbol(",");
    }
    if (result.name == "IIF") {
      result.args.push_back(condition());
      reader_.expectSymbol(",");
    }
    for (auto& arg : list()) result.args.push_back(std::move(arg));
  }
  reader_.expectSymbol(")");
  if (reader_.accept("OVER")) result.over = over();
  return make(at, std::move(result));
}

ast::Over ExpressionParser::over() {
  ast::Over result;
  reader_.expectSymbol("(");
  if (reader_.accept("PARTITION", "BY")) result.partitionBy = list();
  if (reader_.accept("ORDER", "BY")) result.orderBy = orderItems();
  reader_.expectSymbol(")");
  return result;
}

std::vector<ast::OrderItem> ExpressionParser::orderItems() {
  std::vector<ast::OrderItem> items;
  commaSeparated(reader_, [&] {
    // A number is the position of an output column, and so part of the form.
    ast::OrderItem item;
    if (reader_.peek().kind == TokenKind::Integer) {
      const Token token = reader_.take();
      reader_.markStructural();
      item.expr = make(token.text, literalOf(token));
    } else {
      item.expr = expression();
    }
    item.descending = reader_.accept("DESC");
    if (!item.descending) reader_.accept("ASC");
    items.push_back(std::move(item));
  });
  return items;
}

std::vector<ExprPtr> ExpressionParser::list() {
  std::vector<ExprPtr> items;
  commaSeparated(reader_, [&] { items.push_back(expression()); });
  return items;
}

}  // namespace kebu::engine
