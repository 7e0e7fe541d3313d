#pragma once

#include <array>
#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// The company's profile of this platform: no row or one.
std::string Profilo(const Company& company);

/// The statements that delete what hangs on a profile, in the order in which
/// they run. Discount rules belong to the company and stay.
std::array<std::string, 5> EliminaDipendenze(const ProfileId& profileId);

/// The parameter row of a profile, and an updatable empty set of the same shape.
std::string Parametri(const ProfileId& profileId);
std::string ParametriVuoti();

/// The default deposit of a document type.
std::string DepositoDocumento(const Company& company, const std::string& document);

/// A price list's description, currency and whether its prices include VAT;
/// `kind` is 1 for purchase lists and 0 for sale lists.
std::string DescrizioneListino(const Company& company, int kind, const std::string& number);

}  // namespace kebu::sql
