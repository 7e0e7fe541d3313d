#include "controls/query_operators.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "common/convert.h"

namespace kebu::controls {

namespace {

// What restricts nothing stands first; it is also what clears a field.
constexpr std::array operators{
    OperatorTraits{QueryOperator::Any, "clear", "qualsiasi", 1, false},
    OperatorTraits{QueryOperator::Equal, "=", "uguale a", 1, false},
    OperatorTraits{QueryOperator::Different, "<>", "diverso da", 1, false},
    OperatorTraits{QueryOperator::Range, "between", "compreso tra", 2, false},
    OperatorTraits{QueryOperator::Starts, "starts", "inizia con", 1, true},
    OperatorTraits{QueryOperator::Contains, "contains", "contiene", 1, true},
    OperatorTraits{QueryOperator::OneOf, "in", "uno tra", 1, false},
    OperatorTraits{QueryOperator::Empty, "empty", "vuoto", 0, false},
    OperatorTraits{QueryOperator::NotEmpty, "not-empty", "non vuoto", 0, false},
};

}  // namespace

std::span<const OperatorTraits> queryOperators() {
  return operators;
}

const OperatorTraits& traitsOf(QueryOperator op) {
  return operators.at(static_cast<std::size_t>(op));
}

std::optional<QueryOperator> operatorByCode(std::string_view code) {
  const auto* const at = std::ranges::find(operators, code, &OperatorTraits::code);
  return at == operators.end() ? std::nullopt : std::optional(at->op);
}

std::vector<std::string> splitList(std::string_view text) {
  std::vector<std::string> items;
  std::string item;
  bool isQuoted = false;
  bool inQuotes = false;
  const auto finish = [&] {
    const std::string taken = isQuoted ? item : trim(item);
    if (!taken.empty()) items.push_back(taken);
    item.clear();
    isQuoted = false;
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (inQuotes) {
      const bool doubled = c == '"' && i + 1 < text.size() && text[i + 1] == '"';
      if (c == '"' && !doubled) {
        inQuotes = false;
      } else {
        item += c;
        i += doubled ? 1 : 0;
      }
    } else if (c == ';') {
      finish();
    } else if (c == '"' && trim(item).empty() && !isQuoted) {
      item.clear();
      inQuotes = isQuoted = true;
    } else if (!isQuoted || c != ' ') {
      item += c;
    }
  }
  finish();
  return items;
}

std::string joinList(std::span<const std::string> items) {
  std::string text;
  for (const std::string& item : items) {
    const bool plain =
        item.find(';') == std::string::npos && !item.starts_with('"') && trim(item) == item;
    text +=
        (text.empty() ? "" : "; ") + (plain ? item : "\"" + replaceAll(item, "\"", "\"\"") + "\"");
  }
  return text;
}

}  // namespace kebu::controls
