#include "workbench/engine/syntax/statement_parser.h"

#include <array>
#include <cstdlib>
#include <string>
#include <utility>

#include "common/convert.h"

namespace kebu::engine {

using ast::makeStatement;

std::vector<ast::StatementPtr> StatementParser::statementsToEnd() {
  std::vector<ast::StatementPtr> statements;
  while (true) {
    reader_.skipSemicolons();
    if (reader_.atEnd()) return statements;
    statements.push_back(statement());
  }
}

ast::StatementPtr StatementParser::statement() {
  const auto at = reader_.peek().text;
  auto& expressions = queries_.expressions();
  const auto level = reader_.nested();
  if (reader_.isSymbol("(") || reader_.atQuery()) return makeStatement(at, queries_.query());
  if (reader_.accept("INSERT")) return makeStatement(at, insert());
  if (reader_.accept("UPDATE")) return makeStatement(at, update());
  if (reader_.accept("DELETE")) return makeStatement(at, deleteRows());
  if (reader_.accept("MERGE")) return makeStatement(at, merge());
  if (reader_.accept("DECLARE")) return makeStatement(at, declare());
  if (reader_.accept("SET")) return set();
  if (reader_.is("BEGIN") && !isWord(reader_.peek(1), "TRAN") &&
      !isWord(reader_.peek(1), "TRANSACTION") && !isWord(reader_.peek(1), "TRY")) {
    reader_.take();
    return makeStatement(at, block());
  }
  if (reader_.accept("IF")) {
    ast::If result;
    result.condition = expressions.condition();
    result.then = statement();
    const auto place = reader_.place();
    reader_.skipSemicolons();
    if (reader_.accept("ELSE")) {
      result.otherwise = statement();
    } else {
      reader_.rewind(place);
    }
    return makeStatement(at, std::move(result));
  }
  if (reader_.accept("WHILE")) {
    ast::While loop;
    loop.condition = expressions.condition();
    loop.body = statement();
    return makeStatement(at, std::move(loop));
  }
  if (reader_.is("CREATE") || reader_.is("ALTER")) return create();
  if (reader_.accept("DROP")) return makeStatement(at, drop());
  if (reader_.accept("TRUNCATE")) {
    reader_.expect("TABLE");
    return makeStatement(at, ast::Truncate{reader_.objectName()});
  }
  if (reader_.accept("EXEC") || reader_.accept("EXECUTE")) return makeStatement(at, exec());
  if (reader_.accept("RETURN")) {
    ast::Return result;
    const bool hasValue =
        isLiteral(reader_.peek()) || reader_.peek().kind == TokenKind::Variable ||
        reader_.isSymbol("(") || reader_.isSymbol("-") || reader_.is("CASE") ||
        reader_.is("NULL") ||
        (reader_.atName() && (reader_.isSymbol("(", 1) || reader_.isSymbol(".", 1)));
    if (hasValue) result.value = expressions.expression();
    return makeStatement(at, std::move(result));
  }
  if (reader_.accept("BREAK")) return makeStatement(at, ast::Break{});
  if (reader_.accept("CONTINUE")) return makeStatement(at, ast::Continue{});
  if (reader_.accept("PRINT")) {
    expressions.expression();
    return makeStatement(at, ast::Nothing{});
  }
  if (reader_.is("RAISERROR") || reader_.is("THROW")) return raise();
  if (reader_.accept("USE")) {
    reader_.name();
    return makeStatement(at, ast::Nothing{});
  }
  // EXEC may be left out at the beginning of a batch.
  if (reader_.atName() && reader_.literalsBefore() == 0 &&
      at.data() == reader_.batch().data() + reader_.batch().find_first_not_of(" \t\r\n") &&
      reader_.peek().kind == TokenKind::Word && (reader_.peek(1).kind == TokenKind::End)) {
    return makeStatement(at, exec());
  }
  reader_.fail("A statement that is not known");
}

ast::Block StatementParser::block() {
  ast::Block result;
  while (true) {
    reader_.skipSemicolons();
    if (reader_.accept("END")) return result;
    if (reader_.atEnd()) reader_.fail();
    result.statements.push_back(statement());
  }
}

ast::Declare StatementParser::declare() {
  return {commaSeparated(reader_, [this] {
    ast::Declaration variable;
    variable.name = reader_.variable();
    reader_.accept("AS");
    variable.type = reader_.type();
    if (reader_.acceptSymbol("=")) variable.value = queries_.expressions().expression();
    return variable;
  })};
}

ast::StatementPtr StatementParser::set() {
  const auto at = reader_.peek().text;
  if (reader_.peek().kind == TokenKind::Variable) {
    std::string name = reader_.variable();
    static constexpr std::array<std::pair<std::string_view, ArithmeticOperator>, 4> compound{
        {{"+=", ArithmeticOperator::Add},
         {"-=", ArithmeticOperator::Subtract},
         {"*=", ArithmeticOperator::Multiply},
         {"/=", ArithmeticOperator::Divide}}};
    for (const auto& [symbol, op] : compound) {
      if (!reader_.acceptSymbol(symbol)) continue;
      const auto variable = std::make_shared<const ast::Expr>(ast::Expr{at, ast::Variable{name}});
      auto sum = std::make_shared<const ast::Expr>(
          ast::Expr{at, ast::Arithmetic{op, variable, queries_.expressions().expression()}});
      return makeStatement(at, ast::SetVariable{std::move(name), std::move(sum)});
    }
    reader_.expectSymbol("=");
    return makeStatement(at,
                         ast::SetVariable{std::move(name), queries_.expressions().expression()});
  }
  if (reader_.accept("IDENTITY_INSERT")) {
    ast::ObjectName table = reader_.objectName();
    return makeStatement(at, ast::SetIdentityInsert{std::move(table), onOrOff()});
  }
  if (reader_.accept("XACT_ABORT")) return makeStatement(at, ast::SetXactAbort{onOrOff()});
  static constexpr std::array<std::string_view, 6> switches{
      "NOCOUNT", "ANSI_NULLS", "QUOTED_IDENTIFIER", "ANSI_PADDING", "ANSI_WARNINGS", "ARITHABORT"};
  if (!reader_.isAny(switches)) reader_.fail("A setting that is not known");
  reader_.take();
  onOrOff();
  return makeStatement(at, ast::Nothing{});
}

bool StatementParser::onOrOff() {
  const bool on = reader_.accept("ON");
  if (!on) reader_.expect("OFF");
  return on;
}

ast::Insert StatementParser::insert() {
  ast::Insert result;
  reader_.accept("INTO");
  result.table = reader_.objectName();
  if (reader_.isSymbol("(") && !isWord(reader_.peek(1), "SELECT"))
    result.columns = reader_.nameList();
  if (reader_.accept("DEFAULT", "VALUES")) return result;
  if (!reader_.isSymbol("(") && !reader_.atQuery()) reader_.fail();
  result.query = queries_.query();
  return result;
}

std::vector<ast::Assignment> StatementParser::assignments() {
  return commaSeparated(reader_, [this] {
    const ast::ObjectName column = reader_.objectName();
    reader_.expectSymbol("=");
    return ast::Assignment{column.last(), queries_.expressions().valueOrDefault(), column.at};
  });
}

ast::Update StatementParser::update() {
  ast::Update result;
  result.table = reader_.objectName();
  reader_.expect("SET");
  result.set = assignments();
  if (reader_.accept("FROM")) result.from = queries_.sources();
  if (reader_.accept("WHERE")) result.where = queries_.expressions().condition();
  return result;
}

ast::Delete StatementParser::deleteRows() {
  ast::Delete result;
  reader_.accept("FROM");
  result.table = reader_.objectName();
  if (reader_.accept("FROM")) result.from = queries_.sources();
  if (reader_.accept("WHERE")) result.where = queries_.expressions().condition();
  return result;
}

ast::Merge StatementParser::merge() {
  ast::Merge result;
  reader_.accept("INTO");
  result.table = reader_.objectName();
  if (reader_.accept("AS")) {
    result.alias = reader_.name();
  } else if (reader_.atName() && !reader_.is("USING")) {
    result.alias = reader_.name();
  }
  reader_.expect("USING");
  result.source = queries_.singleSource();
  reader_.expect("ON");
  result.on = queries_.expressions().condition();
  while (reader_.is("WHEN")) result.branches.push_back(mergeBranch());
  if (result.branches.empty()) reader_.fail();
  if (!reader_.isSymbol(";")) reader_.fail("A MERGE must end with a semicolon; incorrect syntax");
  return result;
}

ast::MergeBranch StatementParser::mergeBranch() {
  using When = ast::MergeBranch::When;
  using Action = ast::MergeBranch::Action;
  ast::MergeBranch branch{};
  reader_.expect("WHEN");
  if (reader_.accept("MATCHED")) {
    branch.when = When::Matched;
  } else {
    reader_.expect("NOT");
    reader_.expect("MATCHED");
    const bool bySource = reader_.accept("BY", "SOURCE");
    if (!bySource) reader_.accept("BY", "TARGET");
    branch.when = bySource ? When::NotMatchedBySource : When::NotMatchedByTarget;
  }
  if (reader_.accept("AND")) branch.condition = queries_.expressions().condition();
  reader_.expect("THEN");
  if (branch.when == When::NotMatchedByTarget) {
    reader_.expect("INSERT");
    branch.action = Action::Insert;
    if (reader_.isSymbol("(")) branch.columns = reader_.nameList();
    reader_.expect("VALUES");
    branch.values =
        listInParentheses(reader_, [this] { return queries_.expressions().valueOrDefault(); });
  } else if (reader_.accept("DELETE")) {
    branch.action = Action::Delete;
  } else {
    reader_.expect("UPDATE");
    reader_.expect("SET");
    branch.action = Action::Update;
    branch.set = assignments();
  }
  return branch;
}

ast::Exec StatementParser::exec() {
  ast::Exec result{reader_.objectName(), {}};
  const auto atArgument = [&] {
    return isLiteral(reader_.peek()) || reader_.peek().kind == TokenKind::Variable ||
           reader_.isSymbol("-") || reader_.is("NULL") || reader_.is("DEFAULT");
  };
  if (!atArgument()) return result;
  result.args = commaSeparated(reader_, [&] {
    if (!atArgument()) reader_.fail();
    ast::Argument argument;
    if (reader_.peek().kind == TokenKind::Variable && reader_.isSymbol("=", 1)) {
      argument.name = reader_.variable();
      reader_.take();
    }
    argument.value = queries_.expressions().valueOrDefault();
    return argument;
  });
  return result;
}

ast::StatementPtr StatementParser::raise() {
  const auto at = reader_.peek().text;
  ast::Raise result;
  if (reader_.accept("THROW")) {
    result.endsBatch = true;
    if (!isLiteral(reader_.peek())) reader_.fail("THROW without arguments is not known");
    queries_.expressions().expression();
    reader_.expectSymbol(",");
    result.message = queries_.expressions().expression();
    reader_.expectSymbol(",");
    queries_.expressions().expression();
    return makeStatement(at, std::move(result));
  }
  reader_.expect("RAISERROR");
  reader_.expectSymbol("(");
  result.message = queries_.expressions().expression();
  while (reader_.acceptSymbol(",")) queries_.expressions().expression();
  reader_.expectSymbol(")");
  return makeStatement(at, std::move(result));
}

std::string_view StatementParser::textSince(std::string_view from) const {
  const auto start = static_cast<std::size_t>(from.data() - reader_.batch().data());
  const auto end = static_cast<std::size_t>(reader_.peek().text.data() - reader_.batch().data());
  std::string_view text = reader_.batch().substr(start, end - start);
  return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

}  // namespace kebu::engine
