#pragma once

#include <string>

namespace kebu::tests {

/// Prints what was looked at and whether it is so; counts what is not.
void expectThat(bool holds, const std::string& what);
/// How many things were not so.
int failedChecks();

}  // namespace kebu::tests
