#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kebu::architecture {

/// An include that its room may not have.
struct Violation {
  int line = 0;
  std::string reason;
};

/// The room that a file or an included header lives in; empty for none.
std::string_view roomOf(std::string_view path);

/// All rooms, as folders from the project's root.
std::vector<std::string_view> roomFolders();

/// What the text of a file includes against the rules. `path` counts from the project's root.
std::vector<Violation> violations(std::string_view path, std::string_view text);

}  // namespace kebu::architecture
