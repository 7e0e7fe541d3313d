#pragma once

#include <functional>
#include <iostream>
#include <string>

#include "common/error.h"
#include "workbench/cli/program_words.h"

namespace kebu::bench {

/// Runs a program that measures the DLL and takes its path as the only argument.
/// Returns the exit code.
inline int onDll(int argc, char** argv, const char* program,
                 const std::function<void(const std::string& path)>& measure) {
  const auto words = workbench::programWords(argc, argv);
  if (words.size() != 1) {
    std::cout << "use: " << program << " DLL\n";
    return 1;
  }
  try {
    measure(words[0]);
  } catch (const RuntimeError& error) {
    std::cout << "error " << error.number() << ": " << error.description() << '\n';
    return 1;
  }
  return 0;
}

}  // namespace kebu::bench
