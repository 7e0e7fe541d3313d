#include "workbench/acceptance/sql_test_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "workbench/acceptance/result_rows.h"

namespace kebu::workbench {

namespace {

// How the files of statement texts are made up.
constexpr std::string_view lineEnd = "\r\n";
constexpr std::string_view heading = "-- ";
constexpr std::string_view conditionMark = " (condition)";
constexpr std::string_view separator = "\r\nGO\r\n";

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

std::vector<SqlTestBlock> readSqlTest(const std::filesystem::path& path) {
  std::ifstream file(path);
  std::vector<SqlTestBlock> blocks;
  bool open = false;
  bool expecting = false;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.empty()) {
      open = false;
    } else if (!open && line.front() == '#') {
      continue;
    } else if (!open) {
      SqlTestBlock& block = blocks.emplace_back();
      std::istringstream words(line);
      words >> block.kind;
      std::getline(words >> std::ws, block.argument);
      block.line = number;
      open = true;
      expecting = false;
    } else if (line == "----") {
      expecting = true;
    } else {
      (expecting ? blocks.back().expected : blocks.back().batch) += line + '\n';
    }
  }
  return blocks;
}

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  return paths;
}

SqlOutcome outcomeOf(engine::Session& session, const std::string& batch) {
  SqlOutcome outcome;
  try {
    outcome.results = session.execute(batch);
    outcome.rowsAffected = session.rowsAffected();
  } catch (const engine::SqlError& error) {
    outcome.errorNumber = error.nativeError();
    outcome.errorText = error.description();
  }
  return outcome;
}

std::string mismatch(const SqlTestBlock& block, const SqlOutcome& outcome, ErrorTexts texts) {
  const std::string error = std::to_string(outcome.errorNumber) + " " + outcome.errorText;
  if (block.kind == "error") {
    const std::string number = block.argument.substr(0, block.argument.find(' '));
    const std::string text =
        block.argument.substr(std::min(number.size() + 1, block.argument.size()));
    const bool isExpected =
        number == std::to_string(outcome.errorNumber) &&
        (texts == ErrorTexts::Ignored || outcome.errorText.find(text) != std::string::npos);
    return isExpected ? "" : "expected error " + block.argument + ", found " + error;
  }
  if (outcome.errorNumber != 0) return "error " + error;
  if (block.kind == "query") {
    const std::string found = engine::shown(outcome.results);
    return found == block.expected ? "" : "expected\n" + block.expected + "found\n" + found;
  }
  if (block.kind == "rows") {
    const bool isExpected =
        !outcome.rowsAffected || *outcome.rowsAffected == std::stoll(block.argument);
    return isExpected ? ""
                      : "expected " + block.argument + " rows, found " +
                            std::to_string(*outcome.rowsAffected);
  }
  return block.kind == "ok" ? "" : "unknown kind of block: " + block.kind;
}

StatementTexts readStatementTexts(const std::filesystem::path& folder) {
  StatementTexts texts;
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

std::vector<std::string> namesIn(const std::string& batch) {
  std::vector<std::string> names;
  std::size_t end = 0;
  for (std::size_t at = 0; (at = batch.find('{', end)) != std::string::npos;) {
    end = batch.find('}', at);
    if (end == std::string::npos) throw std::runtime_error("no } behind " + batch.substr(at));
    names.push_back(batch.substr(at + 1, end - at - 1));
  }
  return names;
}

std::string withTexts(std::string batch, const StatementTexts& texts) {
  for (const std::string& name : namesIn(batch)) {
    const auto text = texts.find(name);
    if (text == texts.end()) throw std::runtime_error("no pinned text is named " + name);
    batch.replace(batch.find("{" + name + "}"), name.size() + 2, text->second);
  }
  return batch;
}

}  // namespace kebu::workbench
