// Texts: comparison, patterns and the functions over characters.

#include <algorithm>
#include <array>

#include "common/convert.h"
#include "workbench/engine/functions/functions.h"
#include "workbench/engine/functions/like_pattern.h"
#include "workbench/engine/values/cast.h"
#include "workbench/engine/values/characters.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

/// kb_like(text, pattern[, escape])
Cell like(CellArguments args) {
  const std::string_view escape = args.size() > 2 ? textAt(args, 2) : std::string_view();
  if (args.size() > 2 && characterCount(escape) != 1) {
    throw SqlError(506, "The invalid escape character \"" + std::string(escape) +
                            "\" was specified in a LIKE predicate.");
  }
  return Cell::of(matchesLike(textAt(args, 0), textAt(args, 1), escape) ? 1 : 0);
}

/// kb_fit(text, size, table, column): the text as a column of the size takes it. Blanks at its
/// end are dropped when they do not fit; SqlError 2628 for more.
Cell fit(CellArguments args) {
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
  std::u32string text = decoded(textAt(args, 0));
  std::transform(text.begin(), text.end(), text.begin(), change);
  return Cell::text(encoded(text));
}

Cell reversed(CellArguments args) {
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
  return Cell::text(std::string(firstCharacters(textAt(args, 0), lengthAt(args, 1))));
}

Cell right(CellArguments args) {
  const std::u32string text = decoded(textAt(args, 0));
  const std::size_t length = std::min(lengthAt(args, 1), text.size());
  return Cell::text(encoded(std::u32string_view(text).substr(text.size() - length)));
}

/// kb_substring(text, start, length): a start before the first character shortens the result.
Cell substring(CellArguments args) {
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
  if (integerAt(args, 1) < 0) return {};
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
  return Cell::of(
      static_cast<std::int64_t>(characterCount(withoutTrailingBlanks(textAt(args, 0)))));
}

/// kb_charindex(what, text, start)
Cell charIndex(CellArguments args) {
  const std::u32string what = lowered(textAt(args, 0));
  const std::u32string text = lowered(textAt(args, 1));
  const auto start = static_cast<std::size_t>(std::max<std::int64_t>(integerAt(args, 2), 1) - 1);
  const std::size_t found = what.empty() ? std::u32string::npos : text.find(what, start);
  return Cell::of(found == std::u32string::npos ? 0 : static_cast<std::int64_t>(found) + 1);
}

constexpr std::array entries{
    FunctionEntry{"kb_like", 2, like},
    FunctionEntry{"kb_like", 3, like},
    FunctionEntry{"kb_fit", 4, fit},
    FunctionEntry{"kb_upper", 1, eachCharacter<upper>},
    FunctionEntry{"kb_lower", 1, eachCharacter<lower>},
    FunctionEntry{"kb_reverse", 1, reversed},
    FunctionEntry{"kb_left", 2, left},
    FunctionEntry{"kb_right", 2, right},
    FunctionEntry{"kb_substring", 3, substring},
    FunctionEntry{"kb_replicate", 2, replicate},
    FunctionEntry{"kb_replace", 3, replace},
    FunctionEntry{"kb_len", 1, length},
    FunctionEntry{"kb_charindex", 3, charIndex},
};

}  // namespace

std::span<const FunctionEntry> textFunctions() {
  return entries;
}

}  // namespace kebu::engine
