#include "tests/guide/source_texts.h"

#include <fstream>
#include <iterator>
#include <regex>
#include <stdexcept>

namespace kebu::guide {

std::string readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error(path.string() + " cannot be read");
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> sentencesOf(const std::string& source) {
  static const std::regex sentence(R"([^ "\\,;:<>=]{2,} +[^ "\\,;:<>=]{2,}|[a-z]\.$)");
  std::vector<std::string> found;
  std::string text;
  bool isText = false;
  const auto finish = [&] {
    if (isText && std::regex_search(text, sentence)) found.push_back(text);
    text.clear();
    isText = false;
  };
  for (std::size_t i = 0; i < source.size(); ++i) {
    const char c = source[i];
    if (c == '/' && i + 1 < source.size() && source[i + 1] == '/') {
      i = source.find('\n', i);
      if (i == std::string::npos) break;
    } else if (c == '#') {
      finish();
      i = source.find('\n', i);
      if (i == std::string::npos) break;
    } else if (c == '\'' && i + 2 < source.size()) {
      // A character, or a separator in a number.
      const std::size_t end = source.find('\'', i + (source[i + 1] == '\\' ? 3 : 2));
      if (end != std::string::npos && end - i <= 4) i = end;
      finish();
    } else if (c == '"') {
      isText = true;
      for (++i; i < source.size() && source[i] != '"'; ++i) {
        if (source[i] != '\\') {
          text += source[i];
        } else if (++i < source.size()) {
          text += source[i] == 'n' ? '\n' : source[i];
        }
      }
    } else if (c != ' ' && c != '\n' && c != '\t') {
      finish();
    }
  }
  finish();
  return found;
}

std::set<std::string> sentencesBelow(const std::filesystem::path& folder) {
  std::set<std::string> all;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const auto extension = entry.path().extension();
    if (extension != ".cpp" && extension != ".h") continue;
    for (const std::string& text : sentencesOf(readFile(entry.path()))) all.insert(text);
  }
  return all;
}

}  // namespace kebu::guide
