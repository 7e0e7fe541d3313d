#pragma once

#include <cstdint>
#include <string>

#include "sql/discount_kinds.h"
#include "sql/keys.h"

namespace kebu::sql {

/// Creates the working table of a kind: a rule that could be published for each condition of the
/// ERP's price lists that is valid today. `priceRows` is the number of rows that the last
/// computation on price gave; rules by grid are numbered after them.
std::string CreaCandidati(const std::string& table, const Company& company,
                          const DiscountKind& kind, std::int32_t priceRows);

/// Reads a working table made by CreaCandidati; the rows can be edited.
std::string RigheCandidati(const std::string& table, const DiscountKind& kind);

}  // namespace kebu::sql
