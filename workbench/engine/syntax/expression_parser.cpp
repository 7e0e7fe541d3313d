#include "workbench/engine/syntax/expression_parser.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <utility>

#include "common/convert.h"
#include "common/overloaded.h"
#include "workbench/engine/values/code_page.h"

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

bool isCondition(const Expr& expr) {
  return std::visit(
      Overloaded{[](const ast::Comparison&) { return true; }, [](const ast::Not&) { return true; },
                 [](const ast::Logical&) { return true; }, [](const ast::In&) { return true; },
                 [](const ast::Like&) { return true; }, [](const ast::IsNull&) { return true; },
                 [](const ast::Exists&) { return true; }, [](const auto&) { return false; }},
      expr.node);
}

std::optional<Decimal> parsedNumber(const std::string& digits) {
  try {
    return Decimal::parse(digits);
  } catch (const RuntimeError&) {
    throw SqlError(1007,
                   "The number '" + digits + "' is out of the range for numeric representation.");
  }
}

/// The token's operator, if it is one of those given.
template <class Operator>
std::optional<Operator> operatorAt(const Token& token,
                                   std::span<const OperatorSymbol<Operator>> operators) {
  if (token.kind != TokenKind::Symbol) return std::nullopt;
  for (const auto& [symbol, op] : operators) {
    if (token.text == symbol) return op;
  }
  return std::nullopt;
}

// The size of a text type without one in CAST and CONVERT. In a declaration it is 1.
constexpr int castSize = 30;

// Functions whose first argument is the name of a date part.
constexpr std::array dateFunctions{"DATEADD", "DATEDIFF", "DATEPART", "DATENAME"};

}  // namespace

ast::Literal literalOf(const Token& token) {
  ast::Literal literal;
  if (token.kind == TokenKind::Text) {
    // Without N in front a text is one of the database's code page.
    const bool isUnicode = token.text.front() != '\'';
    std::string text = isUnicode ? textOf(token) : inCodePage(textOf(token));
    const auto size = static_cast<int>(characterCount(text));
    literal.type = SqlType::text(std::max(size, 1));
    if (isUnicode) literal.type.kind = TypeKind::NVarChar;
    literal.value = std::move(text);
    return literal;
  }
  std::string digits(token.text);
  if (digits.front() == '.') digits.insert(0, 1, '0');
  if (digits.back() == '.') digits.pop_back();
  const std::optional<Decimal> number = parsedNumber(digits);
  const auto whole = number->unscaledAt(0);
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
  ExprPtr result = conditionOrValue();
  if (!isCondition(*result)) {
    throw errorAt(reader_.batch(), reader_.peek().text, 4145,
                  "An expression of non-boolean type specified in a context where a condition is "
                  "expected,");
  }
  return result;
}

ExprPtr ExpressionParser::expression() {
  const auto level = reader_.nested();
  return value(sum());
}

ExprPtr ExpressionParser::valueOrDefault() {
  return reader_.accept("DEFAULT") ? nullptr : expression();
}

ExprPtr ExpressionParser::value(ExprPtr expr) const {
  if (isCondition(*expr)) throw errorAt(reader_.batch(), expr->at, 102, "Incorrect syntax");
  return expr;
}

/// A parenthesis begins a value or a condition, and only what follows tells which: both are
/// read by the same functions.
ExprPtr ExpressionParser::conditionOrValue() {
  const auto level = reader_.nested();
  return chain(LogicalOperator::Or, &ExpressionParser::conjunction);
}

ExprPtr ExpressionParser::conjunction() {
  return chain(LogicalOperator::And, &ExpressionParser::negation);
}

ExprPtr ExpressionParser::chain(LogicalOperator op, ExprPtr (ExpressionParser::*operand)()) {
  const auto at = reader_.peek().text;
  ExprPtr first = (this->*operand)();
  if (!reader_.is(symbolOf(op)) || !isCondition(*first)) return first;
  ast::Logical logical{op, {std::move(first)}};
  while (reader_.accept(symbolOf(op))) {
    ExprPtr next = (this->*operand)();
    if (!isCondition(*next)) reader_.fail();
    logical.operands.push_back(std::move(next));
  }
  return make(at, std::move(logical));
}

ExprPtr ExpressionParser::negation() {
  const auto at = reader_.peek().text;
  if (!reader_.accept("NOT")) return predicate();
  const auto level = reader_.nested();
  ExprPtr operand = negation();
  if (!isCondition(*operand)) reader_.fail();
  return negate(at, std::move(operand));
}

ExprPtr ExpressionParser::predicate() {
  const auto at = reader_.peek().text;
  if (reader_.accept("EXISTS")) return make(at, ast::Exists{inParentheses(reader_, query)});
  ExprPtr left = sum();
  return isCondition(*left) ? left : comparisonTail(std::move(left));
}

ExprPtr ExpressionParser::comparisonTail(ExprPtr left) {
  static constexpr OperatorSymbol<ComparisonOperator> operators[] = {
      {"=", ComparisonOperator::Equal},           {"<>", ComparisonOperator::NotEqual},
      {"!=", ComparisonOperator::NotEqual},       {"<", ComparisonOperator::Less},
      {">", ComparisonOperator::Greater},         {"<=", ComparisonOperator::LessOrEqual},
      {">=", ComparisonOperator::GreaterOrEqual}, {"!<", ComparisonOperator::GreaterOrEqual},
      {"!>", ComparisonOperator::LessOrEqual}};
  const auto at = reader_.peek().text;
  if (const auto op = operatorAt<ComparisonOperator>(reader_.peek(), operators)) {
    reader_.take();
    ExprPtr right = expression();
    return make(at, ast::Comparison{*op, std::move(left), std::move(right)});
  }
  if (reader_.accept("IS")) {
    const bool negated = reader_.accept("NOT");
    reader_.expect("NULL");
    ExprPtr test = make(at, ast::IsNull{std::move(left)});
    return negated ? negate(at, test) : test;
  }
  if (!reader_.isAny({"NOT", "BETWEEN", "IN", "LIKE"})) return left;
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
    test = inParentheses(reader_, [&] {
      ast::In in{left, {}, nullptr};
      // Not as a part of the initialization: when it fails there, the compiler also destroys what
      // was not made.
      if (reader_.atQuery()) {
        in.query = query();
      } else {
        in.list = list();
      }
      return make(at, std::move(in));
    });
  } else if (reader_.accept("LIKE")) {
    ast::Like like;
    like.operand = std::move(left);
    like.pattern = expression();
    if (reader_.accept("ESCAPE")) like.escape = expression();
    test = make(at, std::move(like));
  } else {
    reader_.fail();
  }
  return negated ? negate(at, test) : test;
}

ExprPtr ExpressionParser::sum() {
  static constexpr OperatorSymbol<ArithmeticOperator> operators[] = {
      {"+", ArithmeticOperator::Add},
      {"-", ArithmeticOperator::Subtract},
      {"&", ArithmeticOperator::BitAnd},
      {"|", ArithmeticOperator::BitOr},
      {"^", ArithmeticOperator::BitXor}};
  return arithmetic(operators, &ExpressionParser::term);
}

ExprPtr ExpressionParser::term() {
  static constexpr OperatorSymbol<ArithmeticOperator> operators[] = {
      {"*", ArithmeticOperator::Multiply},
      {"/", ArithmeticOperator::Divide},
      {"%", ArithmeticOperator::Modulo}};
  return arithmetic(operators, &ExpressionParser::unary);
}

ExprPtr ExpressionParser::arithmetic(std::span<const OperatorSymbol<ArithmeticOperator>> operators,
                                     ExprPtr (ExpressionParser::*operand)()) {
  ExprPtr left = (this->*operand)();
  for (int links = 1; const auto op = operatorAt(reader_.peek(), operators); ++links) {
    reader_.checkChain(links);
    const auto at = reader_.take().text;
    ExprPtr right = value((this->*operand)());
    left = make(at, ast::Arithmetic{*op, value(std::move(left)), std::move(right)});
  }
  return left;
}

ExprPtr ExpressionParser::unary() {
  const auto at = reader_.peek().text;
  const bool minus = reader_.acceptSymbol("-");
  if (!minus && !reader_.acceptSymbol("+")) return primary();
  const auto level = reader_.nested();
  ExprPtr operand = value(unary());
  return minus ? make(at, ast::Negative{std::move(operand)}) : operand;
}

ExprPtr ExpressionParser::literal() {
  const int slot = reader_.literalsBefore();
  const Token token = reader_.take();
  if (literals_ == nullptr) return make(token.text, literalOf(token));
  // The tree holds the type and the place; the value comes with every run.
  return make(token.text, ast::Literal{literals_->at(static_cast<std::size_t>(slot)), {}, slot});
}

ExprPtr ExpressionParser::primary() {
  const Token& token = reader_.peek();
  switch (token.kind) {
    case TokenKind::Integer:
    case TokenKind::Decimal:
    case TokenKind::Text:
      return literal();
    case TokenKind::Variable:
      return make(token.text, ast::Variable{reader_.variable()});
    default:
      break;
  }
  const auto at = token.text;
  if (reader_.isSymbol("(")) {
    return inParentheses(reader_, [&] {
      if (reader_.atQuery()) return make(at, ast::Subquery{query()});
      return conditionOrValue();
    });
  }
  if (reader_.accept("NULL")) return make(at, ast::Literal{{}, Null{}, -1});
  if (reader_.is("CASE")) return caseExpression();
  if (reader_.is("CAST") && reader_.isSymbol("(", 1)) return castExpression();
  if (reader_.is("CONVERT") && reader_.isSymbol("(", 1)) return convertExpression();
  return nameOrCall();
}

ExprPtr ExpressionParser::caseExpression() {
  const auto at = reader_.peek().text;
  constexpr int deepestCase = 10;
  const NestingLevel level(caseDepth_, deepestCase, [this] {
    return errorAt(reader_.batch(), reader_.peek().text, 125,
                   "Case expressions may only be nested to level 10,");
  });
  reader_.take();
  ast::Case result;
  ExprPtr operand;
  if (!reader_.is("WHEN")) operand = expression();
  while (reader_.is("WHEN")) {
    const auto whenAt = reader_.take().text;
    ExprPtr test = operand ? expression() : condition();
    if (operand) {
      test = make(whenAt, ast::Comparison{ComparisonOperator::Equal, operand, std::move(test)});
    }
    reader_.expect("THEN");
    ExprPtr branch = expression();
    result.branches.push_back({std::move(test), std::move(branch)});
  }
  if (result.branches.empty()) reader_.fail();
  if (reader_.accept("ELSE")) result.otherwise = expression();
  reader_.expect("END");
  return make(at, std::move(result));
}

ExprPtr ExpressionParser::castExpression() {
  const auto at = reader_.take().text;
  return inParentheses(reader_, [&] {
    ExprPtr operand = expression();
    reader_.expect("AS");
    return make(at, ast::Cast{std::move(operand), reader_.type(castSize), 0});
  });
}

ExprPtr ExpressionParser::convertExpression() {
  const auto at = reader_.take().text;
  return inParentheses(reader_, [&] {
    ast::Cast cast;
    cast.type = reader_.type(castSize);
    reader_.expectSymbol(",");
    cast.operand = expression();
    if (reader_.acceptSymbol(",")) cast.style = reader_.wholeNumber();
    return make(at, std::move(cast));
  });
}

ExprPtr ExpressionParser::nameOrCall() {
  const auto at = reader_.peek().text;
  // LEFT and RIGHT are words of joins as well.
  const bool call1 = reader_.isSymbol("(", 1) && reader_.peek().kind == TokenKind::Word;
  if (call1 && reader_.isAny({"LEFT", "RIGHT", "COALESCE", "NULLIF"})) {
    return call({}, toUpperAscii(reader_.take().text), at);
  }
  ast::ObjectName name = reader_.objectName();
  if (!reader_.isSymbol("(")) return make(name.at, ast::Column{std::move(name.parts)});
  std::string schema = name.parts.size() > 1 ? name.parts[name.parts.size() - 2] : std::string();
  return call(std::move(schema), toUpperAscii(name.last()), name.at);
}

ExprPtr ExpressionParser::call(std::string schema, std::string name, std::string_view at) {
  ast::Call result;
  result.schema = std::move(schema);
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
  return inParentheses(reader_, [this] {
    ast::Over result;
    if (reader_.accept("PARTITION", "BY")) result.partitionBy = list();
    if (reader_.accept("ORDER", "BY")) result.orderBy = orderItems();
    return result;
  });
}

std::vector<ast::OrderItem> ExpressionParser::orderItems() {
  return commaSeparated(reader_, [this] {
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
    return item;
  });
}

std::vector<ExprPtr> ExpressionParser::list() {
  return commaSeparated(reader_, [this] { return expression(); });
}

}  // namespace kebu::engine
