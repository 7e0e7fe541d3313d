#include "tests/windows/story.h"

#include <algorithm>
#include <iostream>

#include "common/convert.h"
#include "tests/windows/checks.h"

namespace kebu::tests {

namespace {

struct Describer {
  std::string operator()(std::monostate) const { return "empty"; }
  std::string operator()(Null) const { return "null"; }
  std::string operator()(bool value) const { return value ? "bool true" : "bool false"; }
  std::string operator()(std::int16_t value) const { return "int16 " + std::to_string(value); }
  std::string operator()(std::int32_t value) const { return "int32 " + std::to_string(value); }
  std::string operator()(const Decimal& value) const { return "decimal " + value.toString(); }
  std::string operator()(const Date& value) const { return "date " + value.toIso(); }
  std::string operator()(const std::string& value) const {
    return "text \"" + replaceAll(value, {"\0", 1}, "\\0") + "\"";
  }
  std::string operator()(const std::shared_ptr<Object>& value) const {
    return value ? "object" : "no object";
  }
};

}  // namespace

std::string describe(const Value& value) {
  return std::visit(Describer(), value.storage());
}

std::string describe(const std::vector<RowValues>& rows) {
  std::string text = std::to_string(rows.size()) + " rows";
  for (const auto& row : rows) {
    text += " (";
    for (const Value& value : row) text += describe(value) + "; ";
    text += ")";
  }
  return text;
}

std::string describe(const std::vector<ado::Field>& fields) {
  std::string text = std::to_string(fields.size()) + " fields";
  for (const ado::Field& field : fields) {
    text += " (" + field.name + ", " + describe(field.type) + ", " + describe(field.definedSize) +
            ", " + describe(field.precision) + ", " + describe(field.numericScale) + ")";
  }
  return text;
}

std::string describe(const ado::Errors& errors) {
  std::string text = std::to_string(errors.size()) + " errors";
  for (const ado::Error& error : errors) {
    text += " (" + describe(error.number) + ", " + error.description + ", " + error.source + ", " +
            describe(error.nativeError) + ", " + error.sqlState + ")";
  }
  return text;
}

bool Story::mentions(const std::string& text) const {
  return std::any_of(lines_.begin(), lines_.end(),
                     [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

void expectSameStory(const std::string& name, const Story& expected, const Story& told,
                     const std::vector<std::string>& milestones) {
  const std::size_t count = std::max(expected.lines().size(), told.lines().size());
  std::size_t different = 0;
  const auto line = [](const Story& story, std::size_t index) {
    return index < story.lines().size() ? story.lines()[index] : std::string("(nothing)");
  };
  for (std::size_t i = 0; i < count; ++i) {
    if (line(expected, i) == line(told, i)) continue;
    ++different;
    std::cout << "    expected " << line(expected, i) << "\n    but saw  " << line(told, i) << '\n';
  }
  expectThat(different == 0, name + " (" + std::to_string(count) + " steps)");
  for (const std::string& milestone : milestones) {
    if (!expected.mentions(milestone)) expectThat(false, name + " comes to \"" + milestone + '"');
  }
}

}  // namespace kebu::tests
