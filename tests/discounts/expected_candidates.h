#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "sql/discount_kinds.h"
#include "workbench/engine/execution/session.h"

namespace kebu::sql {

/// A candidate's columns in order, as text: NULL as "NULL", dates as "yyyymmdd", numbers
/// without needless digits. GM61_ID is left out; GM61_NOMEREGOLA ends at its number.
using Candidate = std::vector<std::pair<std::string, std::string>>;

/// A value as Candidate has it.
std::string candidateText(const Value& value);

/// What the ERP's price lists of a company give for a kind today, found row by
/// row from what they hold and not by a statement.
std::vector<Candidate> expectedCandidates(engine::Session& session, DiscountMode mode,
                                          std::int32_t listType, const std::string& company);

}  // namespace kebu::sql
