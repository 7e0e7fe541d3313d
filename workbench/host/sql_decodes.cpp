#include "workbench/host/sql_decodes.h"

#include "common/convert.h"
#include "common/nulls.h"
#include "workbench/host/erp_codes.h"

namespace kebu::workbench {

std::string SqlDecodes::DocumentType(const std::string& company, const std::string& code) {
  return "SELECT MG36_DESCRDOC AS MG36_DESCR FROM MG36_DOCUMENTI WITH (NOLOCK)"
         " WHERE MG36_DITTA_CG18 = " +
         company + " AND MG36_CODDOCUM = '" + replaceAll(code, "'", "''") + "'";
}

std::string SqlDecodes::Customer(const std::string& company, const std::string& code) {
  return "SELECT CG16_RAGSOANAG FROM CG44_CLIFOR WITH (NOLOCK)"
         " INNER JOIN CG16_RAGSOANAG WITH (NOLOCK) ON CG16_CODICE = CG44_CODICE_CG16"
         " WHERE CG44_DITTA_CG18 = " +
         company + " AND CG44_TIPOCF = 0 AND CG44_CLIFOR = " + toSqlNumber(CDecN(code));
}

std::string SqlDecodes::Code(const std::string& table, const std::string& company,
                             const std::vector<std::string>& keys) {
  const ErpCodes& codes = erpCodes(table);
  return "SELECT " + std::string(codes.description) + " FROM " + std::string(codes.name) +
         " WITH (NOLOCK)" + whereKeys(codes, company, keys, EmptyValue::IsCompared);
}

}  // namespace kebu::workbench
