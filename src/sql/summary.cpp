#include "sql/summary.h"

#include "sql/text.h"

namespace kebu::sql {

std::string ListiniMemorizzati(const ProfileId& profileId) {
  return lines({" SELECT GM57_CODPREZZO, GM57_FLGATTIVO, GM57_INDTIPO, GM57_NUMLIST_LI10,",
                "        GM57_CATEGORIA, GM57_DEPGIACENZE_MG58, GM57_QUANTITA, GM57_CLIFOR_CG44",
                " FROM GM57_KBLISTINI WITH (NOLOCK)",
                join({" WHERE GM57_IDDISPOSITIVO_GM03 = ", profileId}),
                " ORDER BY GM57_CODPREZZO"});
}

std::string ContaPrezzi(const std::string& view, const Company& company, const std::string& filter,
                        const std::set<std::int32_t>& active) {
  std::string counts;
  std::string prices;
  std::string without;
  for (std::int32_t slot = 1; slot <= publishedPrices; ++slot) {
    const std::string number = std::to_string(slot);
    // No NULL is left to SUM or MAX: that would be a warning of the server's.
    counts += join({", ISNULL(SUM(PREZZO", number, "), 0) AS PREZZO", number});
    prices +=
        join({", MAX(CASE WHEN Prezzo", number, " IS NULL THEN 0 ELSE 1 END) AS PREZZO", number});
    // A price in a slot that is not active does not count.
    without += join({slot == 1 ? "" : " AND ", "(Prezzo", number,
                     " IS NULL OR 0 = ", active.contains(slot) ? "1" : "0", ")"});
  }
  return lines({join({" SELECT COUNT(*) AS ARTICOLI", counts}),
                ", ISNULL(SUM(SENZAPREZZO), 0) AS SENZAPREZZO",
                join({" FROM (SELECT MG87_CODART_MG66", prices}),
                join({", SUM(CASE WHEN ", without, " THEN 1 ELSE 0 END) AS SENZAPREZZO"}),
                join({" FROM ", view, " v "}), join({" WHERE MG87_DITTA_CG18 = ", company, filter}),
                " GROUP BY MG87_CODART_MG66) AS PREZZIARTICOLI"});
}

std::string DepositiMemorizzati(const ProfileId& profileId, const Company& company) {
  return lines({" SELECT GM56_DEPGIACENZE_MG58, GM56_FLGPREFCOSTOART, MG58_CODDEP, MG58_DESCRDEP",
                " FROM GM56_KBDEPOSITI WITH (NOLOCK)", " LEFT JOIN MG58_DEPOSITI WITH (NOLOCK)",
                "      ON MG58_CODDEP = GM56_DEPGIACENZE_MG58",
                join({"      AND MG58_DITTA_CG18 = ", company}),
                join({" WHERE GM56_IDDISPOSITIVO_GM03 = ", profileId}),
                " ORDER BY GM56_DEPGIACENZE_MG58"});
}

std::string ContaRegole(const Company& company, const std::string& today, const std::string& end) {
  // A rule belongs to one mode: the two flags are 1 and 0, or 0 and 1.
  return lines(
      {" SELECT GM61_INDTIPOLISTINO, GM61_FLGSCONTISUPRZ,", "        COUNT(*) AS ATTIVE,",
       join({"        SUM(CASE WHEN GM61_DATAFINE < '", today, "' THEN 1 ELSE 0 END) AS SCADUTE,"}),
       join({"        SUM(CASE WHEN GM61_DATAFINE >= '", today, "' AND GM61_DATAFINE < '", end,
             "' THEN 1 ELSE 0 END) AS INSCADENZA"}),
       " FROM GM61_KBDISCOUNTRULES WITH (NOLOCK)", join({" WHERE GM61_DITTA_CG18 = ", company}),
       " AND GM61_ATTIVA = 1", " AND GM61_FLGSCONTISUPRZ + GM61_FLGGRIGLIASCONTI = 1",
       " GROUP BY GM61_INDTIPOLISTINO, GM61_FLGSCONTISUPRZ"});
}

}  // namespace kebu::sql
