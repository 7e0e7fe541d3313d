#include "workbench/engine/syntax/parser.h"

#include <utility>

#include "workbench/engine/syntax/statement_parser.h"

namespace kebu::engine {
namespace {

/// Parses a whole text as one thing. Its literals stay in the tree.
template <class Read>
auto parseWhole(std::string_view text, Read&& read) {
  const auto tokens = tokenize(text);
  TokenReader reader(text, tokens);
  auto result = read(reader);
  reader.skipSemicolons();
  if (!reader.atEnd()) reader.fail();
  return result;
}

}  // namespace

Batch parseBatch(std::shared_ptr<const std::string> text, const std::vector<Token>& tokens,
                 const LiteralTypes* literals) {
  TokenReader reader(*text, tokens);
  Batch batch;
  batch.statements = StatementParser(reader, literals).statementsToEnd();
  batch.liftable = literals != nullptr && !reader.readStructuralLiteral();
  batch.text = std::move(text);
  return batch;
}

ast::Module parseModule(std::string_view text) {
  return parseWhole(text, [](TokenReader& reader) {
    if (!reader.accept("CREATE")) reader.expect("ALTER");
    return StatementParser(reader, nullptr).module();
  });
}

ast::CreateTable parseTable(std::string_view text) {
  return parseWhole(text, [](TokenReader& reader) {
    reader.expect("CREATE");
    reader.expect("TABLE");
    return StatementParser(reader, nullptr).createTable();
  });
}

ast::ExprPtr parseExpression(std::string_view text) {
  return parseWhole(text, [](TokenReader& reader) {
    return QueryParser(reader, nullptr).expressions().expression();
  });
}

}  // namespace kebu::engine
