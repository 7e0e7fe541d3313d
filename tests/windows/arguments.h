#pragma once

#include <string>
#include <vector>

namespace kebu::tests {

/// What the program was started with, GoogleTest's options left out, in UTF-8.
const std::vector<std::string>& arguments();

}  // namespace kebu::tests
