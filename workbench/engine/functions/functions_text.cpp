// Texts: comparison, patterns and the functions over characters.

#include <algorithm>
#include <array>

#include "common/convert.h"
#include "workbench/engine/functions/functions.h"
#include "workbench/engine/values/cast.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

constexpr char32_t broken = 0xFFFD;

char32_t nextCharacter(std::string_view& utf8) {
  const auto lead = static_cast<unsigned char>(utf8.front());
  utf8.remove_prefix(1);
  if (lead < 0x80) return lead;
  const int following = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : lead >= 0xC0 ? 1 : 0;
  if (following == 0) return broken;
  char32_t character = lead & (0x3FU >> following);
  for (int i = 0; i < following; ++i) {
    if (utf8.empty() || (utf8.front() & 0xC0) != 0x80) return broken;
    character = character << 6 | (static_cast<unsigned char>(utf8.front()) & 0x3FU);
    utf8.remove_prefix(1);
  }
  return character;
}

void append(std::string& utf8, char32_t c) {
  if (c < 0x80) {
    utf8 += static_cast<char>(c);
  } else if (c < 0x800) {
    utf8 += static_cast<char>(0xC0 | c >> 6);
    utf8 += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    utf8 += static_cast<char>(0xE0 | c >> 12);
    utf8 += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    utf8 += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    utf8 += static_cast<char>(0xF0 | c >> 18);
    utf8 += static_cast<char>(0x80 | (c >> 12 & 0x3F));
    utf8 += static_cast<char>(0x80 | (c >> 6 & 0x3F));
    utf8 += static_cast<char>(0x80 | (c & 0x3F));
  }
}

/// Latin, Greek and Cyrillic letters.
char32_t lower(char32_t c) {
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  if ((c >= 0xC0 && c <= 0xDE && c != 0xD7) || (c >= 0x391 && c <= 0x3A9) ||
      (c >= 0x410 && c <= 0x42F))
    return c + 32;
  if (c >= 0x400 && c <= 0x40F) return c + 80;
  const bool evenIsUpper = (c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
  const bool oddIsUpper = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
  if ((evenIsUpper && c % 2 == 0) || (oddIsUpper && c % 2 == 1)) return c + 1;
  return c == 0x178 ? 0xFF : c;
}

char32_t upper(char32_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z' ? c - 32 : c;
  if (c == 0xFF) return 0x178;
  for (const char32_t candidate : {c - 32, c - 80, c - 1}) {
    if (lower(candidate) == c) return candidate;
  }
  return c;
}

std::u32string decoded(std::string_view utf8) {
  std::u32string characters;
  characters.reserve(utf8.size());
  while (!utf8.empty()) characters += nextCharacter(utf8);
  return characters;
}

std::string encoded(std::u32string_view characters) {
  std::string utf8;
  utf8.reserve(characters.size());
  for (const char32_t c : characters) append(utf8, c);
  return utf8;
}

std::u32string lowered(std::string_view utf8) {
  std::u32string characters = decoded(utf8);
  std::transform(characters.begin(), characters.end(), characters.begin(), lower);
  return characters;
}

std::string_view withoutTrailingBlanks(std::string_view text) {
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// A LIKE pattern: % for any text, _ for a character, [a-f] and [^a-f] for one of a set.
class Pattern {
 public:
  Pattern(std::u32string_view pattern, char32_t escape) : pattern_(pattern), escape_(escape) {}

  bool matches(std::u32string_view text) const { return matchesFrom(0, text); }

 private:
  bool matchesFrom(std::size_t at, std::u32string_view text) const {
    for (; at < pattern_.size(); text.remove_prefix(1)) {
      const char32_t c = pattern_[at];
      if (c == U'%') {
        while (at < pattern_.size() && pattern_[at] == U'%') ++at;
        for (std::size_t skipped = 0; skipped <= text.size(); ++skipped) {
          if (matchesFrom(at, text.substr(skipped))) return true;
        }
        return false;
      }
      if (text.empty()) return false;
      if (escape_ != 0 && c == escape_ && at + 1 < pattern_.size()) {
        if (pattern_[at + 1] != text.front()) return false;
        at += 2;
      } else if (c == U'[' && pattern_.find(U']', at + 1) != std::u32string_view::npos) {
        const std::size_t close = pattern_.find(U']', at + 1);
        if (!inSet(pattern_.substr(at + 1, close - at - 1), text.front())) return false;
        at = close + 1;
      } else {
        if (c != U'_' && c != text.front()) return false;
        ++at;
      }
    }
    // Trailing blanks of the text do not count.
    return text.find_first_not_of(U' ') == std::u32string_view::npos;
  }

  static bool inSet(std::u32string_view set, char32_t c) {
    const bool negated = !set.empty() && set.front() == U'^';
    if (negated) set.remove_prefix(1);
    for (std::size_t i = 0; i < set.size(); ++i) {
      if (i + 2 < set.size() && set[i + 1] == U'-') {
        if (c >= set[i] && c <= set[i + 2]) return !negated;
        i += 2;
      } else if (set[i] == c) {
        return !negated;
      }
    }
    return negated;
  }

  std::u32string_view pattern_;
  char32_t escape_;
};

/// kb_like(text, pattern[, escape])
Cell like(CellArguments args) {
  if (anyNull(args)) return {};
  const std::string_view escape = args.size() > 2 ? textAt(args, 2) : std::string_view();
  return Cell::of(matchesLike(textAt(args, 0), textAt(args, 1), escape) ? 1 : 0);
}

/// kb_fit(text, size, table, column): the text as a column of the size takes it. Blanks at its
/// end are dropped when they do not fit; SqlError 2628 for more.
Cell fit(CellArguments args) {
  if (sqlite3_value_type(args[0]) == SQLITE_NULL) return {};
  const std::string_view text = textAt(args, 0);
  const auto size = static_cast<std::size_t>(integerAt(args, 1));
  if (text.size() <= size || characterCount(text) <= size) return Cell::text(std::string(text));
  const std::string_view cut = firstCharacters(text, size);
  if (withoutTrailingBlanks(text).size() <= cut.size()) return Cell::text(std::string(cut));
  throw SqlError(2628,
                 "String or binary data would be truncated in table '" +
                     std::string(textAt(args, 2)) + "', column '" + std::string(textAt(args, 3)) +
                     "'. Truncated value: '" + std::string(cut) + "'.",
                 "22001");
}

template <char32_t (*change)(char32_t)>
Cell eachCharacter(CellArguments args) {
  if (anyNull(args)) return {};
  std::u32string text = decoded(textAt(args, 0));
  std::transform(text.begin(), text.end(), text.begin(), change);
  return Cell::text(encoded(text));
}

Cell reversed(CellArguments args) {
  if (anyNull(args)) return {};
  std::u32string text = decoded(textAt(args, 0));
  std::reverse(text.begin(), text.end());
  return Cell::text(encoded(text));
}

std::size_t lengthAt(CellArguments args, std::size_t index) {
  const std::int64_t length = integerAt(args, index);
  if (length < 0)
    throw SqlError(537,
                   "Invalid length parameter passed to the LEFT, RIGHT or SUBSTRING function.");
  return static_cast<std::size_t>(length);
}

Cell left(CellArguments args) {
  if (anyNull(args)) return {};
  return Cell::text(std::string(firstCharacters(textAt(args, 0), lengthAt(args, 1))));
}

Cell right(CellArguments args) {
  if (anyNull(args)) return {};
  const std::u32string text = decoded(textAt(args, 0));
  const std::size_t length = std::min(lengthAt(args, 1), text.size());
  return Cell::text(encoded(std::u32string_view(text).substr(text.size() - length)));
}

/// kb_substring(text, start, length): a start before the first character shortens the result.
Cell substring(CellArguments args) {
  if (anyNull(args)) return {};
  const std::u32string text = decoded(textAt(args, 0));
  const auto size = static_cast<std::int64_t>(text.size());
  const std::int64_t start = integerAt(args, 1) - 1;
  const std::int64_t end =
      std::clamp<std::int64_t>(start + static_cast<std::int64_t>(lengthAt(args, 2)), 0, size);
  const std::int64_t first = std::clamp<std::int64_t>(start, 0, size);
  if (end <= first) return Cell::text({});
  return Cell::text(encoded(std::u32string_view(text).substr(
      static_cast<std::size_t>(first), static_cast<std::size_t>(end - first))));
}

Cell replicate(CellArguments args) {
  if (anyNull(args) || integerAt(args, 1) < 0) return {};
  std::string result;
  constexpr std::size_t most = 8000;
  const std::string_view text = textAt(args, 0);
  for (std::int64_t i = 0;
       i < integerAt(args, 1) && result.size() + text.size() <= most && !text.empty(); ++i)
    result += text;
  return Cell::text(std::move(result));
}

/// Finds what to replace without regard to case, as comparisons do.
Cell replace(CellArguments args) {
  if (anyNull(args)) return {};
  const std::u32string text = decoded(textAt(args, 0));
  const std::u32string folded = lowered(textAt(args, 0));
  const std::u32string what = lowered(textAt(args, 1));
  const std::u32string with = decoded(textAt(args, 2));
  if (what.empty()) return Cell::text(encoded(text));
  std::u32string result;
  std::size_t from = 0;
  for (std::size_t at = folded.find(what); at != std::u32string::npos;
       at = folded.find(what, from)) {
    result.append(text, from, at - from);
    result += with;
    from = at + what.size();
  }
  result.append(text, from);
  return Cell::text(encoded(result));
}

Cell length(CellArguments args) {
  if (anyNull(args)) return {};
  return Cell::of(
      static_cast<std::int64_t>(characterCount(withoutTrailingBlanks(textAt(args, 0)))));
}

/// kb_charindex(what, text, start)
Cell charIndex(CellArguments args) {
  if (anyNull(args)) return {};
  const std::u32string what = lowered(textAt(args, 0));
  const std::u32string text = lowered(textAt(args, 1));
  const auto start = static_cast<std::size_t>(std::max<std::int64_t>(integerAt(args, 2), 1) - 1);
  const std::size_t found = what.empty() ? std::u32string::npos : text.find(what, start);
  return Cell::of(found == std::u32string::npos ? 0 : static_cast<std::int64_t>(found) + 1);
}

constexpr std::array entries{
    FunctionEntry{"kb_like", 2, true, like},
    FunctionEntry{"kb_like", 3, true, like},
    FunctionEntry{"kb_fit", 4, true, fit},
    FunctionEntry{"kb_upper", 1, true, eachCharacter<upper>},
    FunctionEntry{"kb_lower", 1, true, eachCharacter<lower>},
    FunctionEntry{"kb_reverse", 1, true, reversed},
    FunctionEntry{"kb_left", 2, true, left},
    FunctionEntry{"kb_right", 2, true, right},
    FunctionEntry{"kb_substring", 3, true, substring},
    FunctionEntry{"kb_replicate", 2, true, replicate},
    FunctionEntry{"kb_replace", 3, true, replace},
    FunctionEntry{"kb_len", 1, true, length},
    FunctionEntry{"kb_charindex", 3, true, charIndex},
};

}  // namespace

std::span<const FunctionEntry> textFunctions() {
  return entries;
}

bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape) {
  const std::u32string folded = lowered(pattern);
  return Pattern(folded, escape.empty() ? 0 : lowered(escape).front()).matches(lowered(text));
}

int compareTexts(std::string_view a, std::string_view b) {
  a = withoutTrailingBlanks(a);
  b = withoutTrailingBlanks(b);
  while (!a.empty() && !b.empty()) {
    if (a.front() == b.front() && static_cast<unsigned char>(a.front()) < 0x80) {
      a.remove_prefix(1);
      b.remove_prefix(1);
      continue;
    }
    const char32_t x = lower(nextCharacter(a));
    const char32_t y = lower(nextCharacter(b));
    if (x != y) return x < y ? -1 : 1;
  }
  // The shorter text compares as if it were filled with blanks.
  if (a.empty() && b.empty()) return 0;
  return a.empty() ? (static_cast<unsigned char>(b.front()) < ' ' ? 1 : -1)
                   : (static_cast<unsigned char>(a.front()) < ' ' ? -1 : 1);
}

}  // namespace kebu::engine
