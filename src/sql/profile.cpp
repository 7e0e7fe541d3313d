#include "sql/profile.h"

#include "sql/text.h"

namespace kebu::sql {

std::string Profilo(const Company& company) {
  return join({"SELECT GM03_IDDISPOSITIVO, GM03_DITTA_CG18, GM03_CODICEDISPOSITIVO ",
               " , GM03_DESCRIZIONE ", " , GM03_NOTE ",
               " , GM03_INDTIPO , GM03_FLGTV, GM03_FLGRO, GM03_FLGENABLED ",
               " , GM03_IDAPPLICAZIONE ", " FROM GM03_DISPOSITIVI  ",
               " WHERE GM03_CODICEDISPOSITIVO = 1 ", " AND GM03_IDAPPLICAZIONE = ", applicationId,
               " AND GM03_DITTA_CG18 = ", company});
}

std::array<std::string, 5> EliminaDipendenze(const ProfileId& profileId) {
  return {
      join({"DELETE FROM GM04_PARAMETRITVRO ", " WHERE GM04_IDDISPOSITIVO_GM03 = ", profileId}),
      join({"DELETE FROM GM08_ATTIVITADISPO ", " WHERE GM08_IDDISPOSITIVO_GM03 = ", profileId}),
      join({"DELETE FROM GM19_DETTCONF ", " WHERE GM19_IDDISPOSITIVO_GM03 = ", profileId}),
      join({"DELETE FROM GM56_KBDEPOSITI ", " WHERE GM56_IDDISPOSITIVO_GM03 = ", profileId}),
      join({"DELETE FROM GM57_KBLISTINI ", " WHERE GM57_IDDISPOSITIVO_GM03 = ", profileId}),
  };
}

namespace {

std::string selectParametri(const std::string& condition) {
  return join({"SELECT GM04_IDDISPOSITIVO_GM03, GM04_DITTA_CG18, ",
               " GM04_INDSINCRO, GM04_PATHEXPORT, GM04_PATHIMPORT, ",
               " GM04_PATHBACKUP, GM04_PATHLOG ",
               " , GM04_CODDOCWEB_MG36, GM04_DEPDOCWEB_MG58, GM04_DEPGIACENZE_MG58",
               " , GM04_LASTSYNCCLI, GM04_WHERESELARTICOLI, GM04_WHERECLIFOR ",
               " , GM04_FTPADDRESS, GM04_FTPUSER, GM04_FTPPWD ",
               " , GM04_FLGGESTPREZZI , GM04_FLGGESTSCONTI, GM04_FLGGESTVARIANTI ",
               " , GM04_FLGGESTCESSIONARI , GM04_FLGGESTLOTTI, GM04_INDSELCLIENTI ",
               " , GM04_INDDATAREGINCASSO, GM04_INDMODRECUPERO, GM04_INDDESTIN, "
               "GM04_INDTIPOCOSTOART, GM04_LISTCOSTOART_LI10 ",
               " , GM04_INDSTAMPAPREZZI, GM04_NUMNOTECLIENTI, GM04_INDTIPOGIACENZA, "
               "GM04_INDTIPODEPIMP, GM04_INDESTRIMG ",
               " FROM GM04_PARAMETRITVRO WITH (NOLOCK) ", condition});
}

}  // namespace

std::string Parametri(const ProfileId& profileId) {
  return selectParametri(join({" WHERE GM04_IDDISPOSITIVO_GM03 = ", profileId}));
}

std::string ParametriVuoti() {
  return selectParametri(" WHERE 1 = 0 ");
}

std::string DepositoDocumento(const Company& company, const std::string& document) {
  return lines({" select MG3G_DEPDEFAULT_MG58  ", " from MG3G_DOCDITTA  ",
                join({" where MG3G_CODDOCUM_MG36 = '", document, "'  "}),
                join({" and MG3G_DITTA_CG18 = ", company})});
}

std::string DescrizioneListino(const Company& company, int kind, const std::string& number) {
  return join({" SELECT", " MG44_DESCLIST, MG44_VALUTA_CG08, MG44_FLGIVACOMPR", " FROM",
               " MG44_PARMAGLIST", " WHERE", "    MG44_DITTA_CG18 = ", company,
               " AND MG44_FLGVENACQ = ", std::to_string(kind), " AND MG44_NUMLIST = ", number});
}

}  // namespace kebu::sql
