// The part of StatementParser that reads definitions.

#include <algorithm>
#include <array>
#include <utility>

#include "workbench/engine/syntax/statement_parser.h"

namespace kebu::engine {

using ast::makeStatement;

ast::StatementPtr StatementParser::create() {
  const auto at = reader_.peek().text;
  const bool alter = reader_.accept("ALTER");
  if (!alter) {
    reader_.expect("CREATE");
    if (reader_.accept("TABLE")) return makeStatement(at, createTable());
    const bool unique = reader_.accept("UNIQUE");
    if (!reader_.accept("CLUSTERED")) reader_.accept("NONCLUSTERED");
    if (reader_.accept("INDEX")) return makeStatement(at, createIndex(unique));
    if (unique) reader_.fail();
  }
  if (!reader_.isAny({"VIEW", "PROCEDURE", "PROC", "FUNCTION"})) {
    reader_.fail("A definition that is not known");
  }
  // Parsing here finds syntax errors. The text itself goes into the catalogue.
  const ast::Module parsed = module();
  return makeStatement(at, ast::CreateModule{parsed.kind, parsed.name, textSince(at), alter});
}

ast::CreateTable StatementParser::createTable() {
  ast::CreateTable table;
  table.name = reader_.objectName();
  reader_.expectSymbol("(");
  do {
    // T-SQL allows a comma after the last column.
    if (!table.columns.empty() && reader_.isSymbol(")")) break;
    if (reader_.isAny({"CONSTRAINT", "PRIMARY", "UNIQUE"})) {
      tableConstraint(table);
    } else {
      table.columns.push_back(columnDef(table));
    }
  } while (reader_.acceptSymbol(","));
  reader_.expectSymbol(")");
  if (reader_.is("ON") && isWord(reader_.peek(1), "PRIMARY")) reader_.fail();
  if (reader_.accept("ON")) reader_.name();
  return table;
}

ast::ColumnDef StatementParser::columnDef(ast::CreateTable& table) {
  ast::ColumnDef column;
  column.name = reader_.name();
  column.type = reader_.type();
  while (true) {
    if (reader_.accept("NOT", "NULL")) {
      column.nullable = false;
    } else if (reader_.accept("NULL")) {
      column.nullable = true;
    } else if (reader_.accept("IDENTITY")) {
      column.identity = true;
      if (!reader_.acceptSymbol("(")) continue;
      column.seed = reader_.wholeNumber();
      reader_.expectSymbol(",");
      if (reader_.wholeNumber() != 1) reader_.fail("An identity that does not count by 1");
      reader_.expectSymbol(")");
    } else if (reader_.accept("CONSTRAINT")) {
      reader_.name();
    } else if (reader_.accept("DEFAULT")) {
      const auto from = reader_.peek().text;
      reader_.markStructural();
      queries_.expressions().expression();
      column.defaultText = textSince(from);
    } else if (reader_.accept("PRIMARY", "KEY")) {
      if (!reader_.accept("CLUSTERED")) reader_.accept("NONCLUSTERED");
      table.keys.push_back({{column.name}, true});
    } else if (reader_.accept("UNIQUE")) {
      table.keys.push_back({{column.name}, false});
    } else if (reader_.accept("COLLATE")) {
      reader_.name();  // has no effect: the engine has one collation only
    } else {
      return column;
    }
  }
}

void StatementParser::tableConstraint(ast::CreateTable& table) {
  if (reader_.accept("CONSTRAINT")) reader_.name();
  const bool primary = reader_.accept("PRIMARY", "KEY");
  if (!primary && !reader_.accept("UNIQUE")) reader_.fail("A constraint that is not known");
  if (!reader_.accept("CLUSTERED")) reader_.accept("NONCLUSTERED");
  table.keys.push_back({keyColumns(), primary});
  skipIndexOptions();
}

std::vector<std::string> StatementParser::keyColumns() {
  return listInParentheses(reader_, [this] {
    std::string column = reader_.name();
    if (!reader_.accept("ASC")) reader_.accept("DESC");
    return column;
  });
}

void StatementParser::skipIndexOptions() {
  if (!reader_.is("WITH") || !reader_.isSymbol("(", 1)) return;
  while (!reader_.atEnd() && !reader_.isSymbol(")")) reader_.take();
  reader_.expectSymbol(")");
}

ast::CreateIndex StatementParser::createIndex(bool unique) {
  ast::CreateIndex index;
  index.unique = unique;
  index.name = reader_.name();
  reader_.expect("ON");
  index.table = reader_.objectName();
  index.columns = inParentheses(reader_, [this] { return queries_.expressions().orderItems(); });
  if (reader_.accept("INCLUDE")) reader_.nameList();
  skipIndexOptions();
  return index;
}

ast::Drop StatementParser::drop() {
  ast::Drop result;
  static constexpr std::array<std::pair<std::string_view, ast::ObjectKind>, 6> kinds{
      {{"TABLE", ast::ObjectKind::Table},
       {"VIEW", ast::ObjectKind::View},
       {"PROCEDURE", ast::ObjectKind::Procedure},
       {"PROC", ast::ObjectKind::Procedure},
       {"FUNCTION", ast::ObjectKind::Function},
       {"INDEX", ast::ObjectKind::Index}}};
  const auto* const kind = std::find_if(
      kinds.begin(), kinds.end(), [this](const auto& known) { return reader_.is(known.first); });
  if (kind == kinds.end()) reader_.fail("A kind of object that is not known");
  result.kind = kind->second;
  reader_.take();
  result.ifExists = reader_.accept("IF", "EXISTS");
  result.names = commaSeparated(reader_, [&] {
    ast::ObjectName name = reader_.objectName();
    if (result.kind == ast::ObjectKind::Index && reader_.accept("ON")) reader_.objectName();
    return name;
  });
  return result;
}

std::vector<ast::Parameter> StatementParser::parameters() {
  if (reader_.peek().kind != TokenKind::Variable) return {};
  return commaSeparated(reader_, [this] {
    ast::Parameter parameter;
    if (reader_.peek().kind != TokenKind::Variable) reader_.fail();
    parameter.name = std::string(reader_.peek().text);
    reader_.take();
    reader_.accept("AS");
    parameter.type = reader_.type();
    if (reader_.acceptSymbol("=")) parameter.defaultValue = queries_.expressions().expression();
    if (reader_.isAny({"OUTPUT", "OUT"})) reader_.fail("An output parameter is not known");
    return parameter;
  });
}

ast::Module StatementParser::module() {
  ast::Module result;
  if (reader_.accept("VIEW")) {
    result.kind = ast::ModuleKind::View;
    result.name = reader_.objectName();
    if (reader_.isSymbol("(")) result.columns = reader_.nameList();
    reader_.expect("AS");
    result.query = queries_.query();
    return result;
  }
  if (reader_.accept("PROCEDURE") || reader_.accept("PROC")) {
    result.kind = ast::ModuleKind::Procedure;
    result.name = reader_.objectName();
    const bool parenthesis = reader_.acceptSymbol("(");
    result.parameters = parameters();
    if (parenthesis) reader_.expectSymbol(")");
    reader_.expect("AS");
    const auto at = reader_.peek().text;
    result.body = makeStatement(at, ast::Block{statementsToEnd()});
    return result;
  }
  reader_.expect("FUNCTION");
  result.name = reader_.objectName();
  result.parameters = inParentheses(reader_, [this] { return parameters(); });
  reader_.expect("RETURNS");
  if (reader_.accept("TABLE")) {
    result.kind = ast::ModuleKind::TableFunction;
    reader_.accept("AS");
    reader_.expect("RETURN");
    const bool parenthesis = reader_.acceptSymbol("(");
    result.query = queries_.query();
    if (parenthesis) reader_.expectSymbol(")");
    return result;
  }
  result.kind = ast::ModuleKind::ScalarFunction;
  result.returns = reader_.type();
  reader_.accept("AS");
  if (!reader_.is("BEGIN")) reader_.fail();
  result.body = statement();
  return result;
}

}  // namespace kebu::engine
