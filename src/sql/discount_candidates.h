#pragma once

#include <cstdint>
#include <string>

#include "sql/discount_kinds.h"

namespace kebu::sql {

/// Makes the working table of a kind from the ERP's price lists. `priceRows` is
/// what the last recomputation on price gave; grid rules are numbered after it.
std::string CreaCandidati(const DiscountKind& kind, const std::string& table,
                          const std::string& company, std::int32_t priceRows);

/// The rows of a working table made by CreaCandidati.
std::string RigheCandidati(const DiscountKind& kind, const std::string& table);

}  // namespace kebu::sql
