#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/syntax/ast.h"
#include "workbench/engine/syntax/lexer.h"

namespace kebu::engine {

/// A batch as it was parsed, with the text that its nodes refer to.
struct Batch {
  std::shared_ptr<const std::string> text;
  std::vector<ast::StatementPtr> statements;
  /// Whether no literal is part of the form. The tree then serves all batches that differ in
  /// their literals only.
  bool liftable = false;
};

/// The types of the literals, by their place in the batch.
using LiteralTypes = std::vector<SqlType>;

/// SqlError 102, naming line, column and token, for what is not understood.
/// `literals`: null to leave their values in the tree.
Batch parseBatch(std::shared_ptr<const std::string> text, const std::vector<Token>& tokens,
                 const LiteralTypes* literals);
/// The text of a CREATE VIEW, PROCEDURE or FUNCTION.
ast::Module parseModule(std::string_view text);
/// The one CREATE TABLE of a text.
ast::CreateTable parseTable(std::string_view text);
/// An expression that stands alone, as a column's default does.
ast::ExprPtr parseExpression(std::string_view text);
/// The literal that a number or text token stands for.
ast::Literal literalOf(const Token& token);

}  // namespace kebu::engine
