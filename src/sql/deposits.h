#pragma once

#include <string>

namespace kebu::sql {

/// A deposit's description, for the parameter page's boxes.
std::string DecodificaDeposito(const std::string& company, const std::string& code);
/// The company's deposits with their addresses, by code.
std::string ElencoDepositi(const std::string& company);

/// Fills the working table: every deposit of the company with FLG_ATTIVO and FLG_PREF.
std::string CreaTabellaDepositi(const std::string& table, const std::string& profileId,
                                const std::string& company);
std::string RigheDepositi(const std::string& table);
/// Makes the profile's rows those of the working table that are active.
std::string SalvaDepositi(const std::string& table, const std::string& profileId);

}  // namespace kebu::sql
