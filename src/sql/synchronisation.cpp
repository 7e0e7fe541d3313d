#include "sql/synchronisation.h"

#include "sql/text.h"

namespace kebu::sql {

std::string ImpostazioneInizialeAttivita(const Company& company) {
  return join(
      {"EXEC SPGM_IMPOSTAZIONEINIZIALEATTIVITADITTA ", company, ", ", applicationId, ", 1 "});
}

std::string TipoSincroStandard() {
  return lines(
      {" if not exists(select top 1 1  ", "     from GM13_TIPISINCRO ",
       join({"     where GM13_IDAPPLICAZIONE=", applicationId, " and GM13_CODICE=1) "}), " begin ",
       "     insert into GM13_TIPISINCRO(GM13_IDAPPLICAZIONE, GM13_CODICE, GM13_DESCRIZIONE) ",
       join({"     values (", applicationId, ",1,'Standard') "}), " end "});
}

std::string AttivitaDispositivo(const ProfileId& profileId, const Company& company) {
  return lines(
      {" declare @tiposincro as smallint ", " declare @idapplicazione as tinyint ",
       " declare @iddispositivo as decimal(18,0) ", " declare @codiceAzienda as decimal(5,0) ",
       join({" SET @idapplicazione = ", applicationId}),
       join({" SET @iddispositivo  = ", profileId}), " SET @tiposincro = 1 ",
       join({" set @codiceAzienda = ", company}), " INSERT INTO [GM08_ATTIVITADISPO] ",
       " (GM08_IDDISPOSITIVO_GM03, GM08_TIPOSINCRO_GM13, GM08_IDATTIVITA_GM01 ",
       " ,GM08_FLGENABLED, GM08_LASTELAB, GM08_FLGDIFF) ",
       " SELECT GM03_IDDISPOSITIVO as GM08_IDDISPOSITIVO_GM03 ",
       ",GM13_CODICE as GM08_TIPOSINCRO_GM13 ", ",GM01_IDATTIVITA as GM08_IDATTIVITA_GM01 ",
       ",1 as GM08_FLGENABLED ", ",null as GM08_LASTELAB ", ", CASE WHEN GM01_INDFUNZIONE = 2 ",
       // 99 stands for a company flag that is not set.
       "THEN CASE WHEN ISNULL(GM02_FLGDIFF, 99) = 99 ", "THEN ISNULL(GM01_FLGDIFF, 0) ",
       "ELSE ISNULL(GM02_FLGDIFF, 0) ", "END", "ELSE 0 ", "END AS [GM08_FLGDIFF] ",
       " FROM GM02_ATTIVITADITTA WITH (NOLOCK) ", " INNER JOIN GM01_ATTIVITA WITH (NOLOCK) ",
       " ON GM02_IDATTIVITA_GM01 = GM01_IDATTIVITA ",
       " and GM02_IDAPPLICAZIONE_GM01 = GM01_IDAPPLICAZIONE ",
       " INNER JOIN GM13_TIPISINCRO WITH (NOLOCK) ",
       " ON GM13_IDAPPLICAZIONE = GM01_IDAPPLICAZIONE ",
       " INNER JOIN GM03_DISPOSITIVI WITH (NOLOCK) ", " ON GM03_IDDISPOSITIVO = @iddispositivo ",
       " and GM03_IDAPPLICAZIONE = GM01_IDAPPLICAZIONE ",
       " WHERE GM01_IDAPPLICAZIONE = @idapplicazione ", " AND GM13_CODICE = @tiposincro ",
       " AND GM03_DITTA_CG18 = @codiceAzienda ", " AND GM02_DITTA_CG18 = @codiceAzienda ",
       " and not exists (SELECT TOP 1 1  ", "     FROM GM08_ATTIVITADISPO AS GM08 WITH (NOLOCK) ",
       "     WHERE GM08.GM08_IDDISPOSITIVO_GM03 = @iddispositivo  ",
       "     AND GM08.GM08_TIPOSINCRO_GM13 = GM13_CODICE ",
       "     AND GM08.GM08_IDATTIVITA_GM01 = GM01_IDATTIVITA ", "     ) "});
}

}  // namespace kebu::sql
