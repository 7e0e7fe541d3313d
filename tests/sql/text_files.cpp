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

std::map<std::string, std::string> readTexts(const std::filesystem::path& folder) {
  std::map<std::string, std::string> texts;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    const std::string content = readFile(entry.path());
    std::size_t at = 0;
    while ((at = content.find(heading, at)) != std::string::npos) {
      const std::size_t nameEnd = content.find(lineEnd, at);
      const std::size_t textEnd = content.find(separator, at);
      if (textEnd == std::string::npos) {
        throw std::runtime_error(entry.path().string() + ": the last text has no GO");
      }
      std::string name = content.substr(at + heading.size(), nameEnd - at - heading.size());
      if (name.ends_with(conditionMark)) name.resize(name.size() - conditionMark.size());
      const std::size_t begin = nameEnd + lineEnd.size();
      if (!texts.emplace(name, content.substr(begin, textEnd - begin)).second) {
        throw std::runtime_error(entry.path().string() + ": a second text named " + name);
      }
      at = textEnd + separator.size();
    }
  }
  return texts;
}

}  // namespace kebu::sql
