#include "workbench/cli/program_words.h"

namespace kebu::workbench {

std::vector<std::string> programWords(int argc, char** argv) {
  return {argv + 1, argv + argc};
}

}  // namespace kebu::workbench
