#include "controls/saved_filter.h"

#include "common/error.h"
#include "controls/query_operators.h"

namespace kebu::controls {

namespace {

constexpr std::string_view head = "ENHQUERY 1";

struct Escape {
  char plain;
  char letter;
};
constexpr Escape escapes[] = {{'\\', '\\'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}};

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    char letter = 0;
    for (const Escape& escape : escapes) letter = escape.plain == c ? escape.letter : letter;
    if (letter) result += '\\';
    result += letter ? letter : c;
  }
  return result;
}

std::string unescaped(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\\' && i + 1 < text.size()) {
      c = text[++i];
      for (const Escape& escape : escapes) {
        if (escape.letter == text[i]) c = escape.plain;
      }
    }
    result += c;
  }
  return result;
}

/// Cuts off and gives the text before `end`, or all of it.
std::string_view cut(std::string_view& text, char end) {
  const std::size_t at = text.find(end);
  const std::string_view part = text.substr(0, at);
  text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
  return part;
}

RuntimeError unreadable() {
  return {5, "The saved filter cannot be read."};
}

}  // namespace

std::string writeFilter(const std::vector<SavedCondition>& conditions) {
  std::string text(head);
  for (const SavedCondition& each : conditions) {
    text += "\n" + escaped(each.dataField) + "\t" + std::string(traitsOf(each.condition.op).code);
    for (const std::string& value : each.condition.values) text += "\t" + escaped(value);
  }
  return text;
}

std::vector<SavedCondition> readFilter(std::string_view text) {
  if (cut(text, '\n') != head) throw unreadable();
  std::vector<SavedCondition> conditions;
  while (!text.empty()) {
    std::string_view line = cut(text, '\n');
    SavedCondition& each = conditions.emplace_back();
    each.dataField = unescaped(cut(line, '\t'));
    // Whatever follows a tab is a value, be it empty.
    bool more = line.find('\t') != std::string_view::npos;
    const auto op = operatorByCode(cut(line, '\t'));
    if (each.dataField.empty() || !op) throw unreadable();
    each.condition.op = *op;
    while (more) {
      more = line.find('\t') != std::string_view::npos;
      each.condition.values.push_back(unescaped(cut(line, '\t')));
    }
  }
  return conditions;
}

}  // namespace kebu::controls
