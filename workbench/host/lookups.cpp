#include "workbench/host/lookups.h"

namespace kebu::workbench {

host::LookupDefinition Lookups::DocumentTypes(const std::string& company) {
  return {"Elenco documenti",
          "SELECT MG36_CODDOCUM, MG36_DESCRDOC FROM MG36_DOCUMENTI WITH (NOLOCK)"
          " WHERE MG36_DITTA_CG18 = " +
              company + " ORDER BY MG36_CODDOCUM",
          {"Codice documento", "Descrizione documento"}};
}

host::LookupDefinition Lookups::Customers(const std::string& company) {
  return {"Elenco clienti",
          "SELECT CG44_CLIFOR, CG16_RAGSOANAG, CG16_CITTA, CG16_PROV FROM CG44_CLIFOR WITH (NOLOCK)"
          " INNER JOIN CG16_RAGSOANAG WITH (NOLOCK) ON CG16_CODICE = CG44_CODICE_CG16"
          " WHERE CG44_DITTA_CG18 = " +
              company + " AND CG44_TIPOCF = 0 ORDER BY CG44_CLIFOR",
          {"Codice cliente", "Ragione sociale", "Localita'", "Provincia"}};
}

}  // namespace kebu::workbench
