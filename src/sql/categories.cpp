#include "sql/categories.h"

#include "sql/text.h"

namespace kebu::sql {

std::string Classificazioni() {
  return "SELECT * FROM GM23_CLASSIFICAZIONI WHERE GM23_FLGDISABLED = 0 ORDER BY GM23_SEQUENZA";
}

std::string FiltroClassificazione(int entity, const std::string& code) {
  return join({"GM23_INDENTITA = ", std::to_string(entity), " and GM23_CODICE = ", code});
}

std::string EsisteVariante(const Company& company) {
  return join({" SELECT TOP 1 1 FROM MG5F_DIMECONF WHERE MG5F_DITTA_CG18 = ", company});
}

std::string EsisteDimensione(const Company& company) {
  return join({" SELECT TOP 1 1 FROM MG6F_DIMEART WHERE MG6F_DITTA_CG18 = ", company});
}

std::string Categorie(const ProfileId& profileId) {
  return join({"SELECT * FROM GM19_DETTCONF WHERE GM19_IDDISPOSITIVO_GM03 = ", profileId});
}

std::string FiltroCategoria(int entity, int level) {
  return join(
      {"GM19_PROG = ", std::to_string(level), " and GM19_INDENTITA = ", std::to_string(entity)});
}

std::string DecodificaVariante(const Company& company, const std::string& code) {
  return join({"SELECT MG5F_DESCR_VAR FROM MG5F_DIMECONF WITH (NOLOCK) WHERE MG5F_DITTA_CG18 = ",
               company, " AND MG5F_CODICEVAR = 'A", code, "' "});
}

std::string DecodificaDimensione(const Company& company, const std::string& number) {
  return join({"SELECT MG6F_DESCR FROM MG6F_DIMEART WITH (NOLOCK) WHERE MG6F_DITTA_CG18 = ",
               company, " AND MG6F_PROGR = ", number});
}

std::string ElencoDimensioni(const Company& company) {
  return join(
      {" SELECT MG6F_PROGR, MG6F_DESCR, MG6F_SIZE FROM MG6F_DIMEART WITH (NOLOCK)"
       " WHERE MG6F_DITTA_CG18 = ",
       company});
}

}  // namespace kebu::sql
