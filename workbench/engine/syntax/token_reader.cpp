#include "workbench/engine/syntax/token_reader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iterator>

#include "common/convert.h"
#include "workbench/engine/syntax/keywords.h"

namespace kebu::engine {
namespace {

// Not reserved, but they begin a clause where an alias could stand.
constexpr std::array<std::string_view, 3> clauses{"APPLY", "GO", "USING"};

bool isKeyword(const Token& token) {
  return token.kind == TokenKind::Word && isReserved(token.text);
}

struct TypeName {
  std::string_view name;
  SqlType type;
};
constexpr TypeName typeNames[] = {{"BIT", {TypeKind::Bit}},
                                  {"TINYINT", {TypeKind::TinyInt}},
                                  {"SMALLINT", {TypeKind::SmallInt}},
                                  {"INT", {TypeKind::Int}},
                                  {"INTEGER", {TypeKind::Int}},
                                  {"BIGINT", {TypeKind::BigInt}},
                                  {"DECIMAL", {TypeKind::Decimal, 18}},
                                  {"NUMERIC", {TypeKind::Decimal, 18}},
                                  {"DEC", {TypeKind::Decimal, 18}},
                                  {"CHAR", {TypeKind::Char}},
                                  {"VARCHAR", {TypeKind::VarChar}},
                                  {"NCHAR", {TypeKind::NChar}},
                                  {"NVARCHAR", {TypeKind::NVarChar}},
                                  {"SYSNAME", {TypeKind::NVarChar, 0, 0, 128}},
                                  {"TEXT", {TypeKind::VarChar, 0, 0, -1}},
                                  {"NTEXT", {TypeKind::NVarChar, 0, 0, -1}},
                                  {"MONEY", {TypeKind::Decimal, 19, 4}},
                                  {"SMALLMONEY", {TypeKind::Decimal, 10, 4}},
                                  {"DATE", {TypeKind::Date}},
                                  {"DATETIME", {TypeKind::DateTime}},
                                  {"SMALLDATETIME", {TypeKind::DateTime}},
                                  {"DATETIME2", {TypeKind::DateTime}},
                                  {"UNIQUEIDENTIFIER", {TypeKind::Guid}}};

}  // namespace

const Token& TokenReader::peek(std::size_t ahead) const {
  return tokens_[std::min(place_.token + ahead, tokens_.size() - 1)];
}

Token TokenReader::take() {
  const Token token = peek();
  if (!atEnd()) ++place_.token;
  if (isLiteral(token)) ++place_.literals;
  return token;
}

bool TokenReader::isAny(std::span<const std::string_view> keywords) const {
  return std::any_of(keywords.begin(), keywords.end(),
                     [this](auto keyword) { return is(keyword); });
}

bool TokenReader::isSymbol(std::string_view symbol, std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.kind == TokenKind::Symbol && token.text == symbol;
}

bool TokenReader::accept(std::string_view keyword) {
  if (!is(keyword)) return false;
  ++place_.token;
  return true;
}

bool TokenReader::accept(std::string_view first, std::string_view second) {
  if (!is(first) || !isWord(peek(1), second)) return false;
  place_.token += 2;
  return true;
}

bool TokenReader::acceptSymbol(std::string_view symbol) {
  if (!isSymbol(symbol)) return false;
  ++place_.token;
  return true;
}

void TokenReader::expect(std::string_view keyword) {
  if (!accept(keyword)) fail();
}

void TokenReader::expectSymbol(std::string_view symbol) {
  if (!acceptSymbol(symbol)) fail();
}

void TokenReader::skipSemicolons() {
  while (acceptSymbol(";")) {
  }
}

bool TokenReader::atName() const {
  const Token& token = peek();
  if (token.kind == TokenKind::Name) return true;
  return token.kind == TokenKind::Word && !isKeyword(token) &&
         std::ranges::none_of(clauses, [&](auto word) { return isWord(token, word); });
}

std::string TokenReader::name() {
  if (!atName()) fail();
  return nameOf(take());
}

ast::ObjectName TokenReader::objectName() {
  ast::ObjectName result;
  result.at = peek().text;
  result.parts.push_back(name());
  while (acceptSymbol(".")) {
    if (isSymbol(".")) {
      result.parts.emplace_back();
      continue;
    }
    result.at = peek().text;
    result.parts.push_back(name());
  }
  return result;
}

std::vector<std::string> TokenReader::nameList() {
  return listInParentheses(*this, [this] { return name(); });
}

std::string TokenReader::variable() {
  if (peek().kind != TokenKind::Variable) fail();
  return toUpperAscii(take().text);
}

int TokenReader::wholeNumber() {
  if (peek().kind != TokenKind::Integer) fail();
  markStructural();
  const std::string_view text = peek().text;
  int number = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc()) fail("A number out of range");
  take();
  return number;
}

SqlType TokenReader::type(int defaultSize) {
  if (peek().kind != TokenKind::Word && peek().kind != TokenKind::Name) fail();
  const std::string text = nameOf(peek());
  const auto* const found = std::ranges::find_if(
      typeNames, [&](const TypeName& type) { return equalsIgnoringCase(type.name, text); });
  if (found == std::end(typeNames)) {
    throw errorAt(batch_, peek().text, 2715, "Cannot find data type " + text);
  }
  take();
  SqlType result = found->type;
  if (result.scale > 0) return result;  // money: its digits are fixed
  if (result.isText() && result.size == 0) result.size = defaultSize;
  if (!acceptSymbol("(")) return result;
  if (accept("MAX")) {
    result.size = -1;
  } else if (result.kind == TypeKind::Decimal) {
    result.precision = wholeNumber();
    if (acceptSymbol(",")) result.scale = wholeNumber();
    if (result.precision < 1 || result.precision > 38 || result.scale > result.precision ||
        result.scale > Decimal::maxScale) {
      fail("A precision or scale that decimals do not have");
    }
  } else {
    const int size = wholeNumber();
    if (result.isText()) result.size = size;  // datetime2(n) has a size as well, without effect
  }
  expectSymbol(")");
  return result;
}

bool TokenReader::atQuery() const {
  std::size_t ahead = 0;
  while (isSymbol("(", ahead)) ++ahead;
  const Token& first = peek(ahead);
  if (!isWord(first, "SELECT") && !isWord(first, "VALUES") && !isWord(first, "WITH")) return false;
  if (ahead == 0) return true;
  std::size_t end = 0;
  int open = 0;
  do {
    if (isSymbol("(", end)) ++open;
    if (isSymbol(")", end)) --open;
    ++end;
  } while (open > 0 && peek(end).kind != TokenKind::End);
  static constexpr std::array<std::string_view, 4> continuing{"UNION", "EXCEPT", "INTERSECT",
                                                              "ORDER"};
  return isSymbol(")", end) || std::any_of(continuing.begin(), continuing.end(), [&](auto keyword) {
           return isWord(peek(end), keyword);
         });
}

void TokenReader::checkChain(int links) const {
  constexpr int longest = 400;
  if (links > longest) throw tooDeep();
}

SqlError TokenReader::tooDeep() const {
  return errorAt(batch_, peek().text, 191,
                 "Some part of your SQL statement is nested too deeply. Rewrite the query or break "
                 "it up into smaller queries: it is too deep");
}

void TokenReader::fail() const {
  throw errorAt(batch_, peek().text, isKeyword(peek()) ? 156 : 102, "Incorrect syntax");
}

void TokenReader::fail(const std::string& what) const {
  throw errorAt(batch_, peek().text, 102, what);
}

}  // namespace kebu::engine
