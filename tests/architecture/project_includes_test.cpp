#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "tests/architecture/include_rules.h"

namespace kebu::architecture {

namespace {

namespace fs = std::filesystem;

bool isSource(const fs::path& path) {
  return path.extension() == ".h" || path.extension() == ".cpp" || path.extension() == ".rc" ||
         path.extension() == ".idl";
}

/// Whether a folder holds what was made or fetched, or what git keeps.
bool isForeign(const fs::path& folder) {
  const std::string name = folder.filename().string();
  return name == "build" || name == "out" || name == "node_modules" || name.starts_with('.');
}

/// The sources of the project, from its root.
std::vector<std::string> projectSources(const fs::path& root) {
  std::vector<std::string> sources;
  for (auto at = fs::recursive_directory_iterator(root); at != fs::end(at); ++at) {
    if (at->is_directory() && isForeign(at->path())) {
      at.disable_recursion_pending();
    } else if (at->is_regular_file() && isSource(at->path())) {
      sources.push_back(at->path().lexically_relative(root).generic_string());
    }
  }
  std::sort(sources.begin(), sources.end());
  return sources;
}

std::string readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

TEST(ProjectIncludes, GoInOneDirection) {
  const fs::path root = PROJECT_FOLDER;
  std::map<std::string, int> filesOfRoom;
  for (const std::string& source : projectSources(root)) {
    ++filesOfRoom[std::string(roomOf(source))];
    for (const Violation& violation : violations(source, readFile(root / source))) {
      ADD_FAILURE() << source << ':' << violation.line << ": " << violation.reason;
    }
  }
  // A room without sources would be a folder that has moved, and a check that finds nothing.
  for (const std::string_view room : roomFolders()) {
    EXPECT_GT(filesOfRoom[std::string(room)], 0) << "no sources found in " << room;
  }
}

}  // namespace

}  // namespace kebu::architecture
