#include "tests/sql/text_files.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kebu::sql {

namespace {

constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view heading = "-- ";
constexpr std::string_view conditionMark = " (condition)";
constexpr std::string_view separator = "\r\nGO\r\n";

}  // namespace

std::string fileContent(const ExamplePage& page) {
  std::string content;
  for (const StatementExample& example : page.examples) {
    if (!content.empty()) content += lineEnd;
    content += heading;
    content += example.name;
    if (example.isCondition) content += conditionMark;
    content += lineEnd;
    content += example.text;
    content += separator;
  }
  return content;
}

std::filesystem::path fileOf(const std::filesystem::path& folder, const ExamplePage& page) {
  return folder / (page.name + ".sql");
}

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kebu::sql
