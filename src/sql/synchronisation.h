#pragma once

#include <string>

#include "sql/keys.h"

namespace kebu::sql {

/// Runs the ERP procedure SPGM_IMPOSTAZIONEINIZIALEATTIVITADITTA, which inserts the company's
/// missing activities of this application into GM02_ATTIVITADITTA.
std::string ImpostazioneInizialeAttivita(const Company& company);

/// Inserts the synchronisation type 1, 'Standard', of this application into GM13_TIPISINCRO when
/// it is missing.
std::string TipoSincroStandard();

/// Inserts the company's activities that the profile lacks into GM08_ATTIVITADISPO.
std::string AttivitaDispositivo(const ProfileId& profileId, const Company& company);

}  // namespace kebu::sql
