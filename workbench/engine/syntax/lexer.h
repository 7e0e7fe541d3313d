#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {

enum class TokenKind : std::uint8_t {
  Word,      ///< a keyword or plain name
  Name,      ///< a name in [brackets] or "quotes"
  Variable,  ///< @name, @@name
  Integer,
  Decimal,
  Text,
  Symbol,
  End
};

struct Token {
  TokenKind kind = TokenKind::End;
  std::string_view text;  ///< as it stands in the batch, delimiters included
};

/// Whether the token is this keyword, in whatever case.
bool isWord(const Token& token, std::string_view keyword);
inline bool isLiteral(const Token& token) {
  return token.kind == TokenKind::Integer || token.kind == TokenKind::Decimal ||
         token.kind == TokenKind::Text;
}
/// The name that a Word or Name token stands for.
std::string nameOf(const Token& token);
/// The characters of a text literal, doubled quotes made single.
std::string textOf(const Token& token);

/// Splits a batch into tokens, the last one End. Comments and blanks are
/// skipped. SqlError 105 for an unclosed text or name, 102 for a stray character.
std::vector<Token> tokenize(std::string_view batch);

/// The line of a place in a text, from 1.
int lineOf(std::string_view text, std::string_view at);
/// An error at a place of the batch: the text names line, column and token.
SqlError errorAt(std::string_view batch, std::string_view at, std::int32_t number,
                 const std::string& what);

}  // namespace kebu::engine
