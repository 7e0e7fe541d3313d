#include "sql/filters.h"

#include "common/convert.h"
#include "sql/text.h"

namespace kebu::sql {

namespace {

std::string diretta(const std::string& condition) {
  return join({" AND (", condition, ") "});
}

std::string perApplicazione(const std::string& condition) {
  return join({" AND EXISTS (SELECT   MG72_CODAPPLIC_MG57  ",
               "         FROM     MG72_APPLICART                          ",
               "         WHERE    MG72_DITTA_CG18     = MG66_DITTA_CG18   ",
               "         AND      MG72_CODART_MG66    = MG66_CODART       ", " AND ", condition,
               ")                           "});
}

std::string perFornitore(const std::string& condition) {
  return join({" AND EXISTS (SELECT   MG73_CLIFOR_CG44           ",
               "         FROM     MG73_ARTCLIFOR                        ",
               "         WHERE    MG73_DITTA_CG18     = MG66_DITTA_CG18 ",
               "         AND      MG73_TIPOCF_CG44    = 1               ",
               "         AND      MG73_CODART_MG66    = MG66_CODART     ", " AND ", condition,
               ")       "});
}

std::string perProdotto(const std::string& condition) {
  return join({" AND EXISTS (SELECT TOP 1 1 ", "         FROM     PD18_ARTPROD PD18_FILTRO ",
               "         WHERE    PD18_FILTRO.PD18_DITTA_CG18  = MG66_DITTA_CG18 ",
               "           AND     PD18_FILTRO.PD18_CODART_MG66 = MG66_CODART     ",
               "           AND ", condition, ")       "});
}

}  // namespace

std::string CongiuntoArticoli(std::string_view dataField, const std::string& condition) {
  const std::string_view prefix = dataField.substr(0, 4);
  if (prefix == "MG66" || prefix == "MG87") return diretta(condition);
  if (prefix == "MG72") return perApplicazione(condition);
  if (prefix == "MG73") return perFornitore(condition);
  // The columns are to be those of the table under its alias.
  if (prefix == "PD18") return perProdotto(replaceAll(condition, "PD18_", "PD18_FILTRO.PD18_"));
  return "";
}

std::string DecodificaStatoArticolo(const std::string& state) {
  return join({"SELECT MG6W_DESCR FROM MG6W_STATIART WITH (NOLOCK) WHERE MG6W_INDSTATO = ", state});
}

std::string ElencoStatiArticolo() {
  return "SELECT MG6W_INDSTATO, MG6W_DESCR FROM MG6W_STATIART WITH (NOLOCK) ";
}

std::string ContaArticoli(const std::string& view, const Company& company,
                          const std::string& filter) {
  return lines({" SELECT COUNT(DISTINCT MG87_CODART_MG66) AS QUANTI, COUNT(*) AS ELENCATI",
                join({" FROM ", view, " v "}),
                join({" WHERE MG87_DITTA_CG18 = ", company, filter})});
}

std::string ContaClienti(const std::string& view, const Company& company,
                         const std::string& filter) {
  return lines({" SELECT COUNT(*) AS QUANTI, COUNT(Email) AS ELENCATI", join({" FROM ", view}),
                join({" WHERE CG44_DITTA_CG18 = ", company, filter})});
}

}  // namespace kebu::sql
