#include "workbench/engine/syntax/lexer.h"

#include <algorithm>
#include <cstddef>

#include "common/convert.h"

namespace kebu::engine {
namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool startsName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '#' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}
bool continuesName(char c) {
  return startsName(c) || isDigit(c) || c == '@';
}

class Lexer {
 public:
  explicit Lexer(std::string_view batch) : batch_(batch) {}

  std::vector<Token> run() {
    std::vector<Token> tokens;
    tokens.reserve(batch_.size() / 5 + 2);
    while (skipBlanksAndComments()) tokens.push_back(next());
    tokens.push_back({TokenKind::End, batch_.substr(batch_.size())});
    return tokens;
  }

 private:
  char at(std::size_t position) const { return position < batch_.size() ? batch_[position] : '\0'; }
  bool startsWith(std::string_view text) const {
    return batch_.compare(position_, text.size(), text) == 0;
  }

  /// False at the end of the batch.
  bool skipBlanksAndComments() {
    while (position_ < batch_.size()) {
      const char c = batch_[position_];
      if (c == ' ' || (c >= '\t' && c <= '\r')) {
        ++position_;
      } else if (startsWith("--")) {
        position_ = std::min(batch_.find('\n', position_), batch_.size());
      } else if (startsWith("/*")) {
        skipComment();
      } else {
        return true;
      }
    }
    return false;
  }

  void skipComment() {
    const std::string_view start = batch_.substr(position_, 2);
    int depth = 0;
    do {
      if (position_ >= batch_.size())
        throw errorAt(batch_, start, 113, "Missing end comment mark '*/'");
      if (startsWith("/*")) {
        ++depth;
        position_ += 2;
      } else if (startsWith("*/")) {
        --depth;
        position_ += 2;
      } else {
        ++position_;
      }
    } while (depth > 0);
  }

  Token next() {
    const std::size_t start = position_;
    const char c = batch_[start];
    if (c == '\'') return delimited(TokenKind::Text, start, '\'');
    if ((c == 'N' || c == 'n') && at(start + 1) == '\'') {
      ++position_;
      return delimited(TokenKind::Text, start, '\'');
    }
    if (c == '[') return delimited(TokenKind::Name, start, ']');
    if (c == '"') return delimited(TokenKind::Name, start, '"');
    if (startsName(c)) return run(TokenKind::Word, start);
    if (c == '@' && continuesName(at(start + 1))) return run(TokenKind::Variable, start);
    if (isDigit(c) || (c == '.' && isDigit(at(start + 1)))) return number(start);
    return symbol(start);
  }

  Token token(TokenKind kind, std::size_t start) const {
    return {kind, batch_.substr(start, position_ - start)};
  }

  Token run(TokenKind kind, std::size_t start) {
    do {
      ++position_;
    } while (continuesName(at(position_)));
    return token(kind, start);
  }

  Token delimited(TokenKind kind, std::size_t start, char close) {
    for (++position_; position_ < batch_.size(); ++position_) {
      if (batch_[position_] != close) continue;
      if (at(position_ + 1) != close) {
        ++position_;
        return token(kind, start);
      }
      ++position_;
    }
    throw errorAt(batch_, batch_.substr(start, 20), 105, "Unclosed quotation mark");
  }

  Token number(std::size_t start) {
    while (isDigit(at(position_))) ++position_;
    TokenKind kind = TokenKind::Integer;
    if (at(position_) == '.') {
      kind = TokenKind::Decimal;
      ++position_;
      while (isDigit(at(position_))) ++position_;
    }
    if (startsName(at(position_))) {
      throw errorAt(batch_, batch_.substr(start, position_ - start + 1), 102,
                    "Floating-point and hexadecimal numbers are not known");
    }
    return token(kind, start);
  }

  Token symbol(std::size_t start) {
    static constexpr std::string_view pairs[] = {"<=", ">=", "<>", "!=", "!<",
                                                 "!>", "+=", "-=", "*=", "/="};
    static constexpr std::string_view singles = "()+-*/%,.;=<>&|^~:";
    for (const auto pair : pairs) {
      if (!startsWith(pair)) continue;
      position_ += 2;
      return token(TokenKind::Symbol, start);
    }
    ++position_;
    if (singles.find(batch_[start]) == std::string_view::npos) {
      throw errorAt(batch_, batch_.substr(start, 1), 102, "Incorrect syntax");
    }
    return token(TokenKind::Symbol, start);
  }

  std::string_view batch_;
  std::size_t position_ = 0;
};

std::string undoubled(std::string_view text, char delimiter) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (text[i] == delimiter) ++i;
  }
  return result;
}

}  // namespace

bool isWord(const Token& token, std::string_view keyword) {
  return token.kind == TokenKind::Word && equalsIgnoringCase(token.text, keyword);
}

std::string nameOf(const Token& token) {
  if (token.kind == TokenKind::Word) return std::string(token.text);
  return undoubled(token.text.substr(1, token.text.size() - 2), token.text.back());
}

std::string textOf(const Token& token) {
  const std::size_t start = token.text.front() == '\'' ? 1 : 2;
  return undoubled(token.text.substr(start, token.text.size() - start - 1), '\'');
}

std::vector<Token> tokenize(std::string_view batch) {
  return Lexer(batch).run();
}

int lineOf(std::string_view text, std::string_view at) {
  const std::string_view before = text.substr(0, static_cast<std::size_t>(at.data() - text.data()));
  return static_cast<int>(std::count(before.begin(), before.end(), '\n')) + 1;
}

SqlError errorAt(std::string_view batch, std::string_view at, std::int32_t number,
                 const std::string& what) {
  const auto offset = static_cast<std::size_t>(at.data() - batch.data());
  const std::string_view before = batch.substr(0, offset);
  const int line = lineOf(batch, at);
  const std::size_t lineStart = before.rfind('\n') + 1;  // npos + 1 is 0
  const std::string near = at.empty() ? "the end" : "'" + std::string(at) + "'";
  SqlError error(number, what + " near " + near + " (line " + std::to_string(line) + ", column " +
                             std::to_string(offset - lineStart + 1) + ").");
  error.setPlace(line, {});
  return error;
}

}  // namespace kebu::engine
