#include "workbench/host/lookups.h"

#include "workbench/host/erp_codes.h"

namespace kebu::workbench {

host::LookupDefinition Lookups::DocumentTypes(const std::string& company) {
  return {"Elenco documenti",
          "SELECT MG36_CODDOCUM, MG36_DESCRDOC FROM MG36_DOCUMENTI WITH (NOLOCK)"
          " WHERE MG36_DITTA_CG18 = " +
              company + " ORDER BY MG36_CODDOCUM",
          {"Codice documento", "Descrizione documento"}};
}

namespace {

/// Customers are kind 0, suppliers 1.
std::string customerRows(const std::string& columns, const std::string& company, int kind,
                         const std::string& order) {
  return "SELECT " + columns +
         ", CG16_CITTA, CG16_PROV FROM CG44_CLIFOR WITH (NOLOCK)"
         " INNER JOIN CG16_RAGSOANAG WITH (NOLOCK) ON CG16_CODICE = CG44_CODICE_CG16"
         " WHERE CG44_DITTA_CG18 = " +
         company + " AND CG44_TIPOCF = " + std::to_string(kind) + " ORDER BY " + order;
}

}  // namespace

host::LookupDefinition Lookups::Customers(const std::string& company) {
  return {"Elenco clienti",
          customerRows("CG44_CLIFOR, CG16_RAGSOANAG", company, 0, "CG44_CLIFOR"),
          {"Codice cliente", "Ragione sociale", "Localita'", "Provincia"}};
}

// The code of a variant is the letter A followed by its number.
host::LookupDefinition Lookups::Configurator(const std::string& company) {
  return {"Elenco varianti configuratore",
          "SELECT SUBSTRING(MG5F_CODICEVAR, 2, 9), MG5F_DESCR_VAR FROM MG5F_DIMECONF WITH (NOLOCK)"
          " WHERE MG5F_DITTA_CG18 = " +
              company + " ORDER BY MG5F_CODICEVAR",
          {"Codice variante", "Descrizione"}};
}

host::LookupDefinition Lookups::CustomerNames(const std::string& company) {
  return {"Elenco clienti",
          customerRows("CG16_RAGSOANAG, CG44_CLIFOR", company, 0, "CG16_RAGSOANAG"),
          {"Ragione sociale", "Codice cliente", "Localita'", "Provincia"}};
}

host::LookupDefinition Lookups::Suppliers(const std::string& company) {
  return {"Elenco fornitori",
          customerRows("CG44_CLIFOR, CG16_RAGSOANAG", company, 1, "CG44_CLIFOR"),
          {"Codice fornitore", "Ragione sociale", "Localita'", "Provincia"}};
}

host::LookupDefinition Lookups::Codes(const std::string& table, const std::string& company,
                                      const std::vector<std::string>& upperKeys) {
  const std::vector<std::string> captions{"Codice", "Descrizione"};
  if (table == "PD18_INDPROVENIENZA") {
    return {"Provenienza del prodotto",
            "SELECT CODICE, DESCR FROM (VALUES (0, 'Acquistato'), (1, 'Prodotto'),"
            " (2, 'Conto lavoro')) AS V (CODICE, DESCR) ORDER BY CODICE",
            captions};
  }
  if (table == "PD18_INDTIPOPROD") {
    return {"Tipo di prodotto",
            "SELECT CODICE, DESCR FROM (VALUES (0, 'Finito'), (1, 'Semilavorato'),"
            " (2, 'Materia prima')) AS V (CODICE, DESCR) ORDER BY CODICE",
            captions};
  }
  const ErpCodes& codes = erpCodes(table);
  const std::string code(codes.keys.back());
  return {std::string(codes.title),
          "SELECT " + code + ", " + std::string(codes.description) + " FROM " +
              std::string(codes.name) + " WITH (NOLOCK)" +
              whereKeys(codes, company, upperKeys, EmptyValue::LeavesKeyOpen) + " ORDER BY " + code,
          captions};
}

}  // namespace kebu::workbench
