#pragma once

#include <string>
#include <string_view>

namespace kebu {

/// A UTF-8 text as it is searched and sorted by people: letters in upper case and without accents,
/// blanks at the end left out. Only Latin letters are changed.
std::string foldedText(std::string_view text);

}  // namespace kebu
