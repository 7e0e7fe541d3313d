#pragma once

#include <string>
#include <vector>

namespace kebu::workbench {

/// The program's arguments in UTF-8. On Windows this also sets the output to UTF-8
/// and to line ends without carriage return.
std::vector<std::string> programWords(int argc, char** argv);

}  // namespace kebu::workbench
