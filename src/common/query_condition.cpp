#include "common/query_condition.h"

#include <algorithm>
#include <cstddef>

#include "common/convert.h"
#include "common/error.h"

namespace kebu {

namespace {

bool isAlphanumeric(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z');
}

/// Every collation that the database may have puts digits before letters and
/// letters in their order. Where signs and accents stand depends on the collation.
bool isTextReversed(std::string_view first, std::string_view second) {
  const std::string low = trimRight(toUpperAscii(first));
  const std::string high = trimRight(toUpperAscii(second));
  const std::size_t shorter = std::min(low.size(), high.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    if (low[i] == high[i]) continue;
    return isAlphanumeric(low[i]) && isAlphanumeric(high[i]) && low[i] > high[i];
  }
  return low.size() > high.size() && isAlphanumeric(low[shorter]);
}

bool isNumberReversed(std::string_view first, std::string_view second) {
  const std::string low = normalizedWholeNumber(first);
  const std::string high = normalizedWholeNumber(second);
  const bool negative = low.front() == '-';
  if (negative != (high.front() == '-')) return !negative;
  const auto greater = [](const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() > b.size() : a > b;
  };
  return negative ? greater(high, low) : greater(low, high);
}

}  // namespace

bool isWholeNumber(std::string_view text) {
  constexpr std::size_t mostDigits = 18;
  if (text.starts_with('-')) text.remove_prefix(1);
  return !text.empty() && text.size() <= mostDigits &&
         std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

std::string normalizedWholeNumber(std::string_view text) {
  if (!isWholeNumber(text)) throw RuntimeError::typeMismatch();
  const bool negative = text.front() == '-';
  text.remove_prefix(negative ? 1 : 0);
  const std::size_t first = std::min(text.find_first_not_of('0'), text.size() - 1);
  const std::string digits(text.substr(first));
  return (negative && digits != "0" ? "-" : "") + digits;
}

bool isReversed(const QueryColumn& column, std::string_view first, std::string_view second) {
  if (first.empty() || second.empty()) return false;
  return column.isNumeric ? isNumberReversed(first, second) : isTextReversed(first, second);
}

}  // namespace kebu
