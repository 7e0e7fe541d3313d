#pragma once

#include <string>

namespace kebu::sql {

/// The ERP procedure that creates the company's activity rows of this application.
std::string ImpostazioneInizialeAttivita(const std::string& company);

/// The synchronisation type 'Standard', when it is missing.
std::string TipoSincroStandard();

/// The profile's activity rows, as far as they are missing.
std::string AttivitaDispositivo(const std::string& profileId, const std::string& company);

}  // namespace kebu::sql
