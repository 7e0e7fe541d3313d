#pragma once

#include <string_view>

namespace kebu::engine {

/// Whether SQL Server reserves the word, in whatever case, so that it is a name only in brackets.
bool isReserved(std::string_view word);

}  // namespace kebu::engine
