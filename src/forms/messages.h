#pragma once

#include <cstdint>

/// The messages of the host's store that the forms show, by their numbers there.
namespace kebu::forms::messages {

inline constexpr std::int32_t depositMissing = 12569;
inline constexpr std::int32_t pricesUpdated = 75210;

}  // namespace kebu::forms::messages
