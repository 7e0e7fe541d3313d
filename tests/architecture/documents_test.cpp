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
  std::vector<fs::path> paths{project / "README.md", project / "CHANGELOG.md",
                              project / "bench/README.md"};
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
    constexpr const char* ownPath =
        R"(`((?:src|workbench|tests|bench|tools|packaging|docs)/[\w./-]*)`)";
    for (const std::string& path : matchesOf(text, ownPath)) {
      EXPECT_TRUE(isThere(project / path)) << document << ": " << path;
    }
  }
}

std::string contentOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// A host's maker works from this table alone.
TEST(Documents, NameEveryMemberBetweenHostAndPlugIn) {
  const std::string table = contentOf(project / "docs/acceptance.md");
  std::string sources;
  for (const auto& entry : fs::directory_iterator(project / "src/windows/host")) {
    sources += contentOf(entry.path());
  }
  const auto members = matchesOf(sources, R"x([( {]L"(\w+)")x");
  EXPECT_GT(members.size(), 60U);
  for (const std::string& member : members) {
    EXPECT_NE(table.find("`" + member), std::string::npos) << member;
  }
  const std::string types = contentOf(project / "src/windows/types/kebu_anagkelmoria.idl");
  const auto identifiers = matchesOf(types, R"(uuid\(([0-9A-F-]+)\))");
  EXPECT_EQ(identifiers.size(), 5U);
  for (const std::string& identifier : identifiers) {
    EXPECT_NE(table.find("{" + identifier + "}"), std::string::npos) << identifier;
  }
  const std::regex numbered(R"x(\[id\((\d+)\)[^\]]*\] (?:HRESULT|void) (\w+)\()x");
  int dispids = 0;
  for (std::sregex_iterator match(types.begin(), types.end(), numbered), end; match != end;
       ++match, ++dispids) {
    const std::regex entry("`" + (*match)[2].str() + "[^`]*` " + (*match)[1].str() + "\\b");
    EXPECT_TRUE(std::regex_search(table, entry)) << (*match)[2];
  }
  EXPECT_GT(dispids, 50);
}

}  // namespace
}  // namespace kebu::architecture
