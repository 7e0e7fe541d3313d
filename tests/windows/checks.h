#pragma once

#include <functional>
#include <string>

namespace kebu::tests {

/// Prints what was looked at and whether it is so; counts what is not.
void expectThat(bool holds, const std::string& what);
/// Runs a program's checks; one that raises an error fails. Gives the program's exit code.
int carryOut(const std::function<void()>& checks);

}  // namespace kebu::tests
