#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "sql/keys.h"

namespace kebu::sql {

// What the summary reads beside what the pages themselves read and count.

/// Reads the profile's stored price slots from GM57_KBLISTINI, by slot.
std::string ListiniMemorizzati(const ProfileId& profileId);

/// The prices of an article in the view of published articles: Prezzo1 to Prezzo10.
inline constexpr std::int32_t publishedPrices = 10;

/// Counts, in the view of published articles, the articles that a filter selects and their prices:
/// ARTICOLI, PREZZO1 … PREZZO10 with the articles that have a price there, on one variant at least,
/// and SENZAPREZZO with the variants that have a price in none of the `active` slots. The filter is
/// appended as it stands, with its own connector, or is empty.
std::string ContaPrezzi(const std::string& view, const Company& company, const std::string& filter,
                        const std::set<std::int32_t>& active);

/// Reads the profile's stored deposits from GM56_KBDEPOSITI, by code. MG58_CODDEP is NULL for one
/// that the company does not have.
std::string DepositiMemorizzati(const ProfileId& profileId, const Company& company);

/// Counts the company's active rules in GM61_KBDISCOUNTRULES by list type and mode: ATTIVE, of
/// these SCADUTE before `today`, and INSCADENZA from `today` on but before `end`. Both days are
/// "yyyymmdd".
std::string ContaRegole(const Company& company, const std::string& today, const std::string& end);

}  // namespace kebu::sql
