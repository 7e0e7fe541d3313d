#pragma once

#include <string>

namespace kebu::engine {

/// What is left of a text (UTF-8) in char and varchar: a character that code page 1252 lacks
/// becomes the one that Windows takes for it, such as "L" for "Ł", or a question mark for every
/// UTF-16 unit.
std::string inCodePage(std::string text);

}  // namespace kebu::engine
