#include "tests/windows/transcript.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "common/convert.h"

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

bool Transcript::contains(const std::string& text) const {
  return std::any_of(lines_.begin(), lines_.end(),
                     [&](const std::string& line) { return line.find(text) != std::string::npos; });
}

void expectSame(const Transcript& expected, const Transcript& actual,
                const std::vector<std::string>& landmarks) {
  const std::size_t count = std::max(expected.lines().size(), actual.lines().size());
  const auto line = [](const Transcript& transcript, std::size_t index) {
    return index < transcript.lines().size() ? transcript.lines()[index] : std::string("(nothing)");
  };
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_EQ(line(expected, i), line(actual, i)) << "line " << i + 1;
  }
  for (const std::string& landmark : landmarks) {
    EXPECT_TRUE(expected.contains(landmark)) << "no line contains " << landmark;
  }
}

}  // namespace kebu::tests
