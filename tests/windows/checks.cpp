#include "tests/windows/checks.h"

#include <iostream>

namespace kebu::tests {

namespace {

int failed = 0;

}  // namespace

void expectThat(bool holds, const std::string& what) {
  if (!holds) ++failed;
  std::cout << (holds ? "  holds: " : "  DOES NOT HOLD: ") << what << std::endl;
}

int failedChecks() {
  return failed;
}

}  // namespace kebu::tests
