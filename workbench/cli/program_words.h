#pragma once

#include <string>
#include <vector>

namespace kebu::workbench {

/// The words that the program was called with, in UTF-8. On Windows what it
/// prints is made to be UTF-8 and to have plain ends of lines, too.
std::vector<std::string> programWords(int argc, char** argv);

}  // namespace kebu::workbench
