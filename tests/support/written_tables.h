#pragma once

namespace kebu::tests {

/// The tables that the plug-in and the ERP's procedures write.
inline constexpr const char* writtenTables[] = {
    "GM02_ATTIVITADITTA", "GM03_DISPOSITIVI", "GM04_PARAMETRITVRO", "GM08_ATTIVITADISPO",
    "GM13_TIPISINCRO",    "GM19_DETTCONF",    "GM56_KBDEPOSITI",    "GM57_KBLISTINI",
    "FW01_JOB",           "KB01_AGGPREZZI",   "KB02_PREZZIART",     "GM61_KBDISCOUNTRULES",
};

}  // namespace kebu::tests
