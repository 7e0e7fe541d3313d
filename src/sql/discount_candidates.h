#pragma once

#include <cstdint>
#include <string>

#include "sql/discount_kinds.h"
#include "sql/keys.h"

namespace kebu::sql {

/// Makes the working table of a kind from the ERP's price lists. `priceRows` is
/// what the last recomputation on price gave; grid rules are numbered after it.
std::string CreaCandidati(const std::string& table, const Company& company,
                          const DiscountKind& kind, std::int32_t priceRows);

/// The rows of a working table made by CreaCandidati.
std::string RigheCandidati(const std::string& table, const DiscountKind& kind);

}  // namespace kebu::sql
