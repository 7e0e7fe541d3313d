#include "sql/deposits.h"

#include "sql/text.h"

namespace kebu::sql {

std::string DecodificaDeposito(const Company& company, const std::string& code) {
  return join({" SELECT ", " MG58_DESCRDEP", " FROM", " MG58_DEPOSITI", " WHERE",
               " MG58_DITTA_CG18 = ", company, " AND MG58_CODDEP = '", code, "'"});
}

std::string ElencoDepositi(const Company& company) {
  return join({" SELECT ",
               "MG58_CODDEP, MG58_DESCRDEP, MG58_INDIDEP, MG58_CAPDEP, MG58_LOCDEP, MG58_PROVDEP, "
               "MG58_TELNUMDEP, MG58_FAXNUMDEP",
               " FROM", " MG58_DEPOSITI", " WHERE", " MG58_DITTA_CG18 = ", company, " ORDER BY",
               " MG58_CODDEP"});
}

std::string CreaTabellaDepositi(const std::string& table, const ProfileId& profileId,
                                const Company& company) {
  return lines(
      {" select MG58_CODDEP, MG58_DESCRDEP, case ISNULL(GM56_DEPGIACENZE_MG58,'') when '' "
       "then 0 else 1 end FLG_ATTIVO, ",
       // The numeric flag is compared with an empty text on purpose: it counts as 0.
       " case ISNULL(GM56_FLGPREFCOSTOART,'') when '' then 0 else 1 end FLG_PREF ",
       join({" into ", table}), " from MG58_DEPOSITI ", " left join GM56_KBDEPOSITI ",
       "     on GM56_DEPGIACENZE_MG58 = MG58_CODDEP ",
       join({"     and GM56_IDDISPOSITIVO_GM03 = ", profileId}),
       join({" where MG58_DITTA_CG18 = ", company}), " order by MG58_CODDEP "});
}

std::string RigheDepositi(const std::string& table) {
  return join({"select * from ", table, " order by MG58_CODDEP"});
}

std::string SalvaDepositi(const std::string& table, const ProfileId& profileId) {
  return lines({" MERGE GM56_KBDEPOSITI AS target   ", " USING (SELECT MG58_CODDEP, FLG_PREF  ",
                join({"         FROM ", table}),
                "         where FLG_ATTIVO = 1) AS source (MG58_CODDEP, FLG_PREF)   ",
                " ON (target.GM56_DEPGIACENZE_MG58 = source.MG58_CODDEP ",
                join({"     and target.GM56_IDDISPOSITIVO_GM03 = ", profileId, ")   "}),
                " WHEN MATCHED ", "     THEN UPDATE SET GM56_FLGPREFCOSTOART = FLG_PREF ",
                " WHEN NOT MATCHED BY SOURCE ",
                join({" AND target.GM56_IDDISPOSITIVO_GM03 = ", profileId}), "     THEN DELETE ",
                " WHEN NOT MATCHED BY TARGET ",
                join({"     THEN INSERT (GM56_IDDISPOSITIVO_GM03, GM56_DEPGIACENZE_MG58, "
                      "GM56_FLGPREFCOSTOART) VALUES (",
                      profileId, ", MG58_CODDEP, FLG_PREF); "})});
}

}  // namespace kebu::sql
