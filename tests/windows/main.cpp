// The main function of the test programs for Windows: GoogleTest's options come first, then the
// program's own arguments.
#include <gtest/gtest.h>

#include "tests/windows/arguments.h"
#include "workbench/cli/program_words.h"
#include "workbench/windows/apartment.h"

namespace kebu::tests {

namespace {

std::vector<std::string> ownArguments;

}  // namespace

const std::vector<std::string>& arguments() {
  return ownArguments;
}

}  // namespace kebu::tests

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  for (const std::string& word : kebu::workbench::programWords(argc, argv)) {
    if (!word.starts_with("--gtest_")) kebu::tests::ownArguments.push_back(word);
  }
  const kebu::workbench::Apartment apartment;
  return RUN_ALL_TESTS();
}
