#pragma once

#include "workbench/engine/syntax/query_parser.h"

namespace kebu::engine {

/// Statements; one begins where the one before ends, with or without a semicolon.
class StatementParser {
 public:
  StatementParser(TokenReader& reader, const LiteralTypes* literals)
      : reader_(reader), queries_(reader, literals) {}

  std::vector<ast::StatementPtr> statementsToEnd();
  ast::StatementPtr statement();
  ast::CreateTable createTable();
  /// Behind CREATE or ALTER: VIEW, PROCEDURE or FUNCTION with all that belongs to it.
  ast::Module module();

 private:
  ast::Declare declare();
  ast::StatementPtr set();
  bool onOrOff();
  ast::Insert insert();
  ast::Update update();
  ast::Delete deleteRows();
  ast::Merge merge();
  ast::MergeBranch mergeBranch();
  std::vector<ast::Assignment> assignments();
  ast::StatementPtr create();
  ast::CreateIndex createIndex(bool unique);
  ast::ColumnDef columnDef(ast::CreateTable& table);
  void tableConstraint(ast::CreateTable& table);
  std::vector<std::string> keyColumns();
  ast::Drop drop();
  ast::Exec exec();
  ast::Block block();
  ast::StatementPtr raise();
  void skipIndexOptions();
  std::vector<ast::Parameter> parameters();
  std::string_view textSince(std::string_view from) const;

  TokenReader& reader_;
  QueryParser queries_;
};

}  // namespace kebu::engine
