#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// The ERP procedure that creates the company's activity rows of this application.
std::string ImpostazioneInizialeAttivita(const Company& company);

/// The synchronisation type 'Standard', when it is missing.
std::string TipoSincroStandard();

/// The profile's activity rows, as far as they are missing.
std::string AttivitaDispositivo(const ProfileId& profileId, const Company& company);

}  // namespace kebu::sql
