#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace kebu::guide {

/// The whole file. std::runtime_error when it cannot be read.
std::string readFile(const std::filesystem::path& path);

/// The sentences among the string literals of C++ source: those with two words in a row, or a full
/// stop at the end. Neighbouring literals are one text; comments and includes are none.
std::vector<std::string> sentencesOf(const std::string& source);

/// Those of every source below the folder.
std::set<std::string> sentencesBelow(const std::filesystem::path& folder);

}  // namespace kebu::guide
