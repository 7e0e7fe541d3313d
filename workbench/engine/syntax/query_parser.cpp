#include "workbench/engine/syntax/query_parser.h"

#include <array>
#include <string_view>
#include <utility>

namespace kebu::engine {
namespace {

template <class Node>
ast::SourcePtr makeSource(std::string_view at, Node node) {
  return std::make_shared<const ast::Source>(ast::Source{at, std::move(node)});
}

template <class Body>
ast::QueryPtr makeQuery(std::string_view at, Body body) {
  auto query = std::make_shared<ast::Query>();
  query->at = at;
  query->body = std::move(body);
  return query;
}

}  // namespace

QueryParser::QueryParser(TokenReader& reader, const LiteralTypes* literals)
    : reader_(reader), expressions_(reader, literals) {
  expressions_.query = [this] { return query(); };
}

ast::QueryPtr QueryParser::query() {
  const auto level = reader_.nested();
  const auto at = reader_.peek().text;
  std::vector<ast::Cte> ctes;
  if (reader_.accept("WITH")) {
    ctes = commaSeparated(reader_, [this] {
      ast::Cte cte;
      cte.name = reader_.name();
      if (reader_.isSymbol("(")) cte.columns = reader_.nameList();
      reader_.expect("AS");
      cte.query = inParentheses(reader_, [this] { return query(); });
      return cte;
    });
  }
  auto body = std::make_shared<ast::Query>(*setOperations());
  body->at = at;
  if (!ctes.empty()) body->ctes = std::move(ctes);
  if (reader_.accept("ORDER", "BY")) body->orderBy = expressions_.orderItems();
  return body;
}

ast::QueryPtr QueryParser::setOperations() {
  ast::QueryPtr left = intersections();
  for (int links = 1; reader_.isAny({"UNION", "EXCEPT"}); ++links) {
    reader_.checkChain(links);
    const auto at = reader_.take();
    SetOperator op = isWord(at, "UNION") ? SetOperator::Union : SetOperator::Except;
    if (op == SetOperator::Union && reader_.accept("ALL")) op = SetOperator::UnionAll;
    ast::QueryPtr right = intersections();
    left = makeQuery(at.text, ast::SetOperation{op, std::move(left), std::move(right)});
  }
  return left;
}

/// INTERSECT binds tighter than UNION and EXCEPT.
ast::QueryPtr QueryParser::intersections() {
  ast::QueryPtr left = operand();
  for (int links = 1; reader_.is("INTERSECT"); ++links) {
    reader_.checkChain(links);
    const auto at = reader_.take().text;
    ast::QueryPtr right = operand();
    left =
        makeQuery(at, ast::SetOperation{SetOperator::Intersect, std::move(left), std::move(right)});
  }
  return left;
}

ast::QueryPtr QueryParser::operand() {
  const auto at = reader_.peek().text;
  if (reader_.isSymbol("(")) return inParentheses(reader_, [this] { return query(); });
  if (reader_.accept("VALUES")) return makeQuery(at, ast::Values{rows()});
  return makeQuery(at, select());
}

std::vector<std::vector<ast::ExprPtr>> QueryParser::rows() {
  return commaSeparated(reader_, [this] {
    return listInParentheses(reader_, [this] { return expressions_.valueOrDefault(); });
  });
}

ast::Select QueryParser::select() {
  ast::Select result;
  reader_.expect("SELECT");
  result.distinct = reader_.accept("DISTINCT");
  if (!result.distinct) reader_.accept("ALL");
  if (reader_.accept("TOP")) {
    // The star in "TOP 3 *" means all columns, it does not multiply.
    result.top = expressions_.primary();
    if (reader_.isAny({"PERCENT"})) reader_.fail("TOP … PERCENT is not known");
  }
  result.items = commaSeparated(reader_, [this] { return selectItem(); });
  if (reader_.accept("INTO")) result.into = reader_.objectName();
  if (reader_.accept("FROM")) result.from = sources();
  if (reader_.accept("WHERE")) result.where = expressions_.condition();
  if (reader_.accept("GROUP", "BY")) result.groupBy = expressions_.list();
  if (reader_.accept("HAVING")) result.having = expressions_.condition();
  return result;
}

ast::SelectItem QueryParser::selectItem() {
  ast::SelectItem item;
  item.at = reader_.peek().text;
  if (reader_.acceptSymbol("*")) return item;
  if (reader_.atName() && reader_.isSymbol(".", 1) && reader_.isSymbol("*", 2)) {
    item.starOf = reader_.name();
    reader_.take();
    reader_.take();
    return item;
  }
  if (reader_.peek().kind == TokenKind::Variable && reader_.isSymbol("=", 1)) {
    item.variable = reader_.variable();
    reader_.take();
    item.expr = expressions_.expression();
    return item;
  }
  if (reader_.atName() && reader_.isSymbol("=", 1)) {
    item.alias = reader_.name();
    reader_.take();
    item.expr = expressions_.expression();
    return item;
  }
  item.expr = expressions_.expression();
  item.alias = alias();
  if (item.alias.empty() && reader_.peek().kind == TokenKind::Text) {
    reader_.markStructural();
    item.alias = textOf(reader_.take());
  }
  return item;
}

std::string QueryParser::alias() {
  if (reader_.accept("AS")) {
    if (reader_.peek().kind != TokenKind::Text) return reader_.name();
    reader_.markStructural();
    return textOf(reader_.take());
  }
  // The next statement may follow without a separator: its first word is no alias.
  return reader_.atName() ? reader_.name() : std::string();
}

void QueryParser::tableHints() {
  const bool with = reader_.is("WITH") && reader_.isSymbol("(", 1);
  const bool bare = reader_.isSymbol("(") && isWord(reader_.peek(1), "NOLOCK");
  if (!with && !bare) return;
  if (with) reader_.take();
  listInParentheses(reader_, [this] {
    static constexpr std::array<std::string_view, 11> known{
        "NOLOCK",   "ROWLOCK",         "UPDLOCK",       "HOLDLOCK",     "READPAST", "TABLOCK",
        "TABLOCKX", "READUNCOMMITTED", "READCOMMITTED", "SERIALIZABLE", "XLOCK"};
    if (!reader_.isAny(known)) reader_.fail("A table hint that is not known");
    return reader_.take();
  });
}

ast::SourcePtr QueryParser::sources() {
  const auto level = reader_.nested();
  ast::SourcePtr left = joined();
  for (int links = 1; reader_.isSymbol(","); ++links) {
    reader_.checkChain(links);
    const auto at = reader_.take().text;
    ast::SourcePtr right = joined();
    left =
        makeSource(at, ast::Join{ast::JoinKind::Cross, std::move(left), std::move(right), nullptr});
  }
  return left;
}

/// The kind of the join that begins here; nothing when none does.
std::optional<ast::JoinKind> QueryParser::joinKind() {
  if (reader_.accept("CROSS", "APPLY")) return ast::JoinKind::CrossApply;
  if (reader_.accept("OUTER", "APPLY")) return ast::JoinKind::OuterApply;
  if (reader_.accept("CROSS", "JOIN")) return ast::JoinKind::Cross;
  if (reader_.accept("INNER", "JOIN") || reader_.accept("JOIN")) return ast::JoinKind::Inner;
  static constexpr std::pair<std::string_view, ast::JoinKind> outerJoins[] = {
      {"LEFT", ast::JoinKind::Left},
      {"RIGHT", ast::JoinKind::Right},
      {"FULL", ast::JoinKind::Full}};
  for (const auto& [word, kind] : outerJoins) {
    if (!reader_.accept(word)) continue;
    reader_.accept("OUTER");
    reader_.expect("JOIN");
    return kind;
  }
  return std::nullopt;
}

ast::SourcePtr QueryParser::joined() {
  ast::SourcePtr left = singleSource();
  for (int links = 1;; ++links) {
    reader_.checkChain(links);
    const auto at = reader_.peek().text;
    const auto kind = joinKind();
    if (!kind) return left;
    ast::SourcePtr right = singleSource();
    ast::ExprPtr on;
    if (*kind <= ast::JoinKind::Full) {
      // "a JOIN b JOIN c ON … ON …": the inner join belongs to the right side.
      if (!reader_.accept("ON")) {
        reader_.fail("A join without its ON directly behind it is not known");
      }
      on = expressions_.condition();
    }
    left = makeSource(at, ast::Join{*kind, left, std::move(right), std::move(on)});
  }
}

ast::SourcePtr QueryParser::singleSource() {
  const auto at = reader_.peek().text;
  if (reader_.isSymbol("(")) {
    reader_.take();
    if (!reader_.atQuery()) {
      ast::SourcePtr inner = sources();
      reader_.expectSymbol(")");
      return inner;
    }
    ast::Derived derived;
    derived.query = query();
    reader_.expectSymbol(")");
    derived.alias = alias();
    if (derived.alias.empty()) reader_.fail();
    if (reader_.isSymbol("(")) derived.columns = reader_.nameList();
    return makeSource(at, std::move(derived));
  }
  ast::ObjectName name = reader_.objectName();
  if (reader_.isSymbol("(") && !isWord(reader_.peek(1), "NOLOCK")) {
    ast::FunctionRef function{std::move(name), {}, {}};
    reader_.take();
    if (!reader_.isSymbol(")")) function.args = expressions_.list();
    reader_.expectSymbol(")");
    function.alias = alias();
    return makeSource(at, std::move(function));
  }
  tableHints();
  ast::TableRef table{std::move(name), alias()};
  tableHints();
  return makeSource(at, std::move(table));
}

}  // namespace kebu::engine
