#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Reads a deposit's description from MG58_DEPOSITI, for the parameter page's boxes.
std::string DecodificaDeposito(const Company& company, const std::string& code);
/// Reads the company's deposits with their addresses from MG58_DEPOSITI, by code.
std::string ElencoDepositi(const Company& company);

/// Creates the working table: every deposit of the company from MG58_DEPOSITI, with FLG_ATTIVO 1
/// when the profile has it in GM56_KBDEPOSITI and FLG_PREF 1 when it is preferred there.
std::string CreaTabellaDepositi(const std::string& table, const ProfileId& profileId,
                                const Company& company);
/// Reads the working table, by code; the rows can be edited.
std::string RigheDepositi(const std::string& table);
/// Makes the profile's rows in GM56_KBDEPOSITI those of the working table that are active:
/// updates, inserts and deletes. Other profiles' rows stay.
std::string SalvaDepositi(const std::string& table, const ProfileId& profileId);

}  // namespace kebu::sql
