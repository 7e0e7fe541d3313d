#pragma once

#include <array>
#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Reads the company's profile of this platform from GM03_DISPOSITIVI: no row or one, which can
/// be edited.
std::string Profilo(const Company& company);

/// Deletes what depends on a profile, one statement a table, in the order in which they run:
/// GM04_PARAMETRITVRO, GM08_ATTIVITADISPO, GM19_DETTCONF, GM56_KBDEPOSITI, GM57_KBLISTINI.
/// Discount rules belong to the company and stay.
std::array<std::string, 5> EliminaDipendenze(const ProfileId& profileId);

/// Reads the profile's parameter row from GM04_PARAMETRITVRO; it can be edited.
std::string Parametri(const ProfileId& profileId);
/// Reads no row from GM04_PARAMETRITVRO, with the columns of Parametri; rows can be added.
std::string ParametriVuoti();

/// Reads the default deposit of a document type from MG3G_DOCDITTA.
std::string DepositoDocumento(const Company& company, const std::string& document);

/// Reads from MG44_PARMAGLIST a price list's description, currency and whether its prices include
/// VAT; `kind` is 1 for purchase lists and 0 for sale lists.
std::string DescrizioneListino(const Company& company, int kind, const std::string& number);

}  // namespace kebu::sql
