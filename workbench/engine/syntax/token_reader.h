#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/nesting_level.h"
#include "workbench/engine/syntax/ast.h"
#include "workbench/engine/syntax/lexer.h"

namespace kebu::engine {

/// The tokens of a batch, and which of them is read next. All parsers share one reader.
class TokenReader {
 public:
  TokenReader(std::string_view batch, const std::vector<Token>& tokens)
      : batch_(batch), tokens_(tokens) {}

  const Token& peek(std::size_t ahead = 0) const;
  Token take();
  /// How many literals stand before the current token.
  int literalsBefore() const { return place_.literals; }
  /// A place to which rewind() goes back.
  struct Place {
    std::size_t token = 0;
    int literals = 0;
  };
  Place place() const { return place_; }
  void rewind(Place place) { place_ = place; }
  bool atEnd() const { return peek().kind == TokenKind::End; }

  bool is(std::string_view keyword) const { return isWord(peek(), keyword); }
  bool isAny(std::span<const std::string_view> keywords) const;
  bool isAny(std::initializer_list<std::string_view> keywords) const {
    return isAny(std::span(keywords.begin(), keywords.size()));
  }
  bool isSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  /// Reads the keyword, or both keywords in a row, if they come next.
  bool accept(std::string_view keyword);
  bool accept(std::string_view first, std::string_view second);
  bool acceptSymbol(std::string_view symbol);
  void expect(std::string_view keyword);
  void expectSymbol(std::string_view symbol);
  void skipSemicolons();

  /// A name that is no reserved word.
  std::string name();
  bool atName() const;
  /// name[.name…], also with empty parts ("tempdb..x").
  ast::ObjectName objectName();
  /// ( name, name … )
  std::vector<std::string> nameList();
  std::string variable();
  /// A number that is part of the statement's form, such as the size of a type.
  int wholeNumber();
  /// A type's name; a text without a size has `defaultSize` characters.
  SqlType type(int defaultSize = 1);

  /// Whether a query begins here. One in parentheses is told from a value and from a join by
  /// what follows its parenthesis.
  bool atQuery() const;

  /// A level of what is being parsed, which is parsed recursively. SqlError 191 when it is too deep
  /// for the program's stack.
  NestingLevel<int> nested() {
    constexpr int deepest = 128;
    return {depth_, deepest, [this] { return tooDeep(); }};
  }
  /// SqlError 191 when so many links in a chain, such as a + b + …, are too many.
  void checkChain(int links) const;

  /// SqlError 102 at the current token, 156 when that is a keyword.
  [[noreturn]] void fail() const;
  [[noreturn]] void fail(const std::string& what) const;
  std::string_view batch() const { return batch_; }
  /// Whether a literal was read as part of the form.
  bool readStructuralLiteral() const { return structural_; }
  void markStructural() { structural_ = true; }

 private:
  SqlError tooDeep() const;

  std::string_view batch_;
  const std::vector<Token>& tokens_;
  Place place_;
  bool structural_ = false;
  int depth_ = 0;
};

/// What `item` reads, once and once more after every comma.
template <class Item>
auto commaSeparated(TokenReader& reader, Item&& item) {
  std::vector<decltype(item())> items;
  do {
    items.push_back(item());
  } while (reader.acceptSymbol(","));
  return items;
}

/// What `content` reads between parentheses.
template <class Content>
auto inParentheses(TokenReader& reader, Content&& content) {
  reader.expectSymbol("(");
  auto result = content();
  reader.expectSymbol(")");
  return result;
}

/// ( item, item … )
template <class Item>
auto listInParentheses(TokenReader& reader, Item&& item) {
  return inParentheses(reader, [&] { return commaSeparated(reader, item); });
}

}  // namespace kebu::engine
