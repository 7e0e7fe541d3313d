#include "workbench/engine/functions/like_pattern.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "workbench/engine/functions/collation.h"
#include "workbench/engine/values/characters.h"

namespace kebu::engine {
namespace {

struct Range {
  SortWeight first;
  SortWeight last;
};

/// One element of a pattern: any text, or what one character may be.
struct Element {
  enum class Kind : std::uint8_t { AnyText, AnyCharacter, Set } kind = Kind::Set;
  std::vector<Range> ranges = {};
  bool negated = false;

  bool accepts(char32_t c) const {
    if (kind == Kind::AnyCharacter) return true;
    const SortWeight weight = sortWeight(c);
    const bool found = std::any_of(ranges.begin(), ranges.end(), [&](const Range& range) {
      return range.first <= weight && weight <= range.last;
    });
    return found != negated;
  }
};

class PatternReader {
 public:
  PatternReader(std::u32string_view pattern, char32_t escape)
      : pattern_(pattern), escape_(escape) {}

  std::vector<Element> run() {
    std::vector<Element> elements;
    while (!atEnd()) elements.push_back(element());
    return elements;
  }

 private:
  using Kind = Element::Kind;

  bool atEnd() const { return at_ == pattern_.size(); }
  bool is(char32_t c) const { return !atEnd() && pattern_[at_] == c; }
  bool accept(char32_t c) {
    if (!is(c)) return false;
    ++at_;
    return true;
  }

  /// A character that stands for itself.
  SortWeight plain() {
    if (escape_ != 0 && pattern_[at_] == escape_ && at_ + 1 < pattern_.size()) ++at_;
    return sortWeight(pattern_[at_++]);
  }

  Element element() {
    const bool escaped = escape_ != 0 && is(escape_);
    if (!escaped && accept(U'%')) return {Kind::AnyText};
    if (!escaped && accept(U'_')) return {Kind::AnyCharacter};
    if (!escaped && accept(U'[')) return set();
    const SortWeight weight = plain();
    return {Kind::Set, {{weight, weight}}};
  }

  Element set() {
    Element result;
    result.negated = accept(U'^');
    while (!atEnd() && !is(U']')) {
      const SortWeight first = plain();
      SortWeight last = first;
      if (is(U'-') && at_ + 1 < pattern_.size() && pattern_[at_ + 1] != U']') {
        ++at_;
        last = plain();
      }
      result.ranges.push_back({first, last});
    }
    if (!accept(U']')) return {};
    return result;
  }

  std::u32string_view pattern_;
  char32_t escape_;
  std::size_t at_ = 0;
};

/// Where a mismatch goes back to the last "any text" and lets it take one character more, so
/// that the time grows with the product of both lengths at most.
bool matches(std::u32string_view text, const std::vector<Element>& elements) {
  // Trailing blanks of the text do not count.
  const std::size_t counted = text.find_last_not_of(U' ') + 1;
  std::size_t at = 0;
  std::size_t element = 0;
  bool mayRetry = false;
  std::size_t retryAt = 0;
  std::size_t retryElement = 0;
  while (true) {
    if (element < elements.size() && elements[element].kind == Element::Kind::AnyText) {
      if (++element == elements.size()) return true;
      mayRetry = true;
      retryAt = at;
      retryElement = element;
    } else if (element < elements.size() && at < text.size() &&
               elements[element].accepts(text[at])) {
      ++element;
      ++at;
    } else if (element == elements.size() && at >= counted) {
      return true;
    } else {
      if (!mayRetry || retryAt >= text.size()) return false;
      at = ++retryAt;
      element = retryElement;
    }
  }
}

}  // namespace

bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape) {
  const char32_t escapeCharacter = escape.empty() ? 0 : decoded(escape).front();
  const std::u32string characters = decoded(pattern);
  return matches(decoded(text), PatternReader(characters, escapeCharacter).run());
}

}  // namespace kebu::engine
