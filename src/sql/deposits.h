#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// A deposit's description, for the parameter page's boxes.
std::string DecodificaDeposito(const Company& company, const std::string& code);
/// The company's deposits with their addresses, by code.
std::string ElencoDepositi(const Company& company);

/// Fills the working table: every deposit of the company with FLG_ATTIVO and FLG_PREF.
std::string CreaTabellaDepositi(const std::string& table, const ProfileId& profileId,
                                const Company& company);
std::string RigheDepositi(const std::string& table);
/// Makes the profile's rows those of the working table that are active.
std::string SalvaDepositi(const std::string& table, const ProfileId& profileId);

}  // namespace kebu::sql
