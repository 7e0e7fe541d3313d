#include "tests/windows/checks.h"

#include <iostream>

#include "common/error.h"

namespace kebu::tests {

namespace {

int failed = 0;

}  // namespace

void expectThat(bool holds, const std::string& what) {
  if (!holds) ++failed;
  std::cout << (holds ? "  holds: " : "  DOES NOT HOLD: ") << what << std::endl;
}

int carryOut(const std::function<void()>& checks) {
  try {
    checks();
  } catch (const RuntimeError& error) {
    expectThat(false, "no error " + std::to_string(error.number()) + " (" + error.description() +
                          ") gets this far");
  }
  if (failed == 0) std::cout << "every check holds" << std::endl;
  return failed == 0 ? 0 : 1;
}

}  // namespace kebu::tests
