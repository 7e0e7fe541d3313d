#include "tests/windows/host_checks.h"
namespace kebu::tests {
void checkHostObjects() {}
}  // namespace kebu::tests
