// What the documents name must exist: the targets of links, and every path that begins with one of
// the project's folders.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace kebu::architecture {
namespace {

namespace fs = std::filesystem;

const fs::path project = PROJECT_FOLDER;

std::vector<fs::path> documents() {
  std::vector<fs::path> paths{project / "README.md", project / "bench/README.md"};
  for (const auto& entry : fs::directory_iterator(project / "docs")) {
    if (entry.path().extension() == ".md") paths.push_back(entry.path());
  }
  return paths;
}

std::vector<std::string> matchesOf(const std::string& text, const char* pattern) {
  const std::regex expression(pattern);
  std::vector<std::string> found;
  for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end;
       ++match) {
    found.push_back((*match)[1]);
  }
  return found;
}

/// A file, a folder, or the name of a header and source without their extensions.
bool isThere(const fs::path& path) {
  for (const char* extension : {"", ".h", ".cpp"}) {
    if (fs::exists(path.string() + extension)) return true;
  }
  return false;
}

TEST(Documents, NameOnlyWhatExists) {
  for (const fs::path& document : documents()) {
    std::ifstream file(document);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    ASSERT_NE(text, "") << document;
    for (const std::string& link : matchesOf(text, R"(\]\(([\w./-]+)(?:#[^)]*)?\))")) {
      EXPECT_TRUE(isThere(document.parent_path() / link)) << document << ": " << link;
    }
    constexpr const char* ownPath = R"(`((?:src|workbench|tests|bench|tools|docs)/[\w./-]*)`)";
    for (const std::string& path : matchesOf(text, ownPath)) {
      EXPECT_TRUE(isThere(project / path)) << document << ": " << path;
    }
  }
}

}  // namespace
}  // namespace kebu::architecture
