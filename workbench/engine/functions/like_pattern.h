#pragma once

#include <string_view>

namespace kebu::engine {

/// LIKE: % for any text, _ for a character, [a-f] and [^a-f] for one of a set. A set without
/// its closing bracket matches nothing. `escape`: a character behind which these are plain.
bool matchesLike(std::string_view text, std::string_view pattern, std::string_view escape = {});

}  // namespace kebu::engine
