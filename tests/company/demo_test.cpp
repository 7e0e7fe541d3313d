#include <gtest/gtest.h>

#include "sql/deposits.h"
#include "sql/price_lists.h"
#include "sql/profile.h"
#include "tests/support/test_company.h"
#include "workbench/company/company.h"

namespace kebu::workbench {
namespace {

using tests::TestCompany;

using Rows = std::vector<std::vector<std::string>>;

class Demo : public ::testing::Test {
 protected:
  TestCompany database_;

  std::string profileId() { return database_.rows(sql::Profilo({"1"})).at(0).at(0); }
};

TEST_F(Demo, IsABusinessOfSomeSize) {
  EXPECT_EQ(
      database_.rows("SELECT CG44_DITTA_CG18, COUNT(*) FROM CG44_CLIFOR WHERE CG44_TIPOCF = 0 "
                     "GROUP BY CG44_DITTA_CG18 ORDER BY CG44_DITTA_CG18"),
      (Rows{{"1", "260"}, {"2", "60"}}));
  EXPECT_EQ(database_.rows("SELECT MG66_DITTA_CG18, COUNT(*) FROM MG66_ANAGRART "
                           "GROUP BY MG66_DITTA_CG18 ORDER BY MG66_DITTA_CG18"),
            (Rows{{"1", "1000"}, {"2", "120"}}));
  for (const char* company : {"1", "2"}) {
    const Rows deposits = database_.rows(sql::ElencoDepositi({company}));
    EXPECT_EQ(deposits.size(), 8u);
    EXPECT_EQ(deposits.at(0).size(), 8u);
  }
  EXPECT_EQ(database_.rows(sql::DecodificaDeposito({"1"}, "06")), (Rows{{"Deposito L'Aquila"}}));
  // Every code finds its master row.
  EXPECT_EQ(database_.count("SELECT COUNT(*) FROM CG44_CLIFOR LEFT OUTER JOIN CG16_RAGSOANAG "
                            "ON CG16_CODICE = CG44_CODICE_CG16 WHERE CG16_CODICE IS NULL"),
            0);
  EXPECT_EQ(
      database_.count("SELECT COUNT(*) FROM MG66_ANAGRART LEFT OUTER JOIN MG56_SOTTOGRUPPI "
                      "ON MG56_DITTA_CG18 = MG66_DITTA_CG18 AND MG56_FAM_MG53 = MG66_FAM_MG53 "
                      "AND MG56_SFAM_MG54 = MG66_SFAM_MG54 AND MG56_GRUPPO_MG55 = MG66_GRUPPO_MG55 "
                      "AND MG56_SGRUPPO = MG66_SGRUPPO_MG56 WHERE MG66_DITTA_CG18 = 1 "
                      "AND MG66_SGRUPPO_MG56 <> '' AND MG56_SGRUPPO IS NULL"),
      0);
}

TEST_F(Demo, IsTheSameAtEveryLoad) {
  TestCompany other;
  for (const char* table :
       {"CG16_RAGSOANAG",    "CG44_CLIFOR",      "MG19_CLASSCLIFOR",   "MG2A_DESTINAZ",
        "MG66_ANAGRART",     "MG87_ARTDESC",     "MG70_GIACDEP",       "MG58_DEPOSITI",
        "LI10_LISTARTIC",    "LI12_LISTARTZONE", "LI13_LISTARTCAT",    "LI14_LISTARTQTA",
        "LI15_LISTARTCFQTA", "LI16_LISTARTCF",   "LI18_LISTCFCODP",    "LI33_LISTCODP",
        "LI34_LISTCODPQTA",  "GM03_DISPOSITIVI", "GM04_PARAMETRITVRO", "GM08_ATTIVITADISPO",
        "GM19_DETTCONF",     "GM56_KBDEPOSITI",  "GM57_KBLISTINI",     "GM61_KBDISCOUNTRULES",
        "KB01_AGGPREZZI",    "KB02_PREZZIART"}) {
    const Rows rows = database_.rows(std::string("SELECT * FROM ") + table);
    EXPECT_FALSE(rows.empty()) << table;
    EXPECT_TRUE(rows == other.rows(std::string("SELECT * FROM ") + table)) << table;
  }
}

TEST_F(Demo, NamesTheScriptThatFails) {
  engine::Session session(engine::Database::createInMemory());
  createSchema(session);
  loadDemo(session);
  try {
    loadDemo(session);
    FAIL() << "the same companies twice";
  } catch (const engine::SqlError& error) {
    EXPECT_EQ(error.nativeError(), 2627);
    EXPECT_EQ(error.description().rfind("01_companies.sql: ", 0), 0u) << error.description();
  }
}

TEST_F(Demo, LeavesNothingOfItsMakingBehind) {
  for (const char* table : {"DEMO_NUMERI", "DEMO_ARTICOLI", "DEMO_CLIENTI", "DEMO_PERCORSI"}) {
    EXPECT_EQ(database_.value(std::string("SELECT OBJECT_ID('") + table + "')"), "NULL") << table;
  }
}

TEST_F(Demo, HasArticlesOfEveryFamilyDepth) {
  // A level filled is F, an empty one a point.
  EXPECT_EQ(database_.column("SELECT DISTINCT CASE MG66_FAM_MG53 WHEN '' THEN '.' ELSE 'F' END + "
                             "CASE MG66_SFAM_MG54 WHEN '' THEN '.' ELSE 'F' END + "
                             "CASE MG66_GRUPPO_MG55 WHEN '' THEN '.' ELSE 'F' END + "
                             "CASE MG66_SGRUPPO_MG56 WHEN '' THEN '.' ELSE 'F' END AS PERCORSO "
                             "FROM MG66_ANAGRART WHERE MG66_DITTA_CG18 = 1 ORDER BY PERCORSO"),
            (std::vector<std::string>{"....", "F...", "FF..", "FF.F", "FFF.", "FFFF"}));
  // The same shapes but the empty one have discounts by family path.
  for (const char* list : {"LI18_LISTCFCODP", "LI33_LISTCODP"}) {
    const std::string prefix(list, 5);
    EXPECT_EQ(database_.column("SELECT DISTINCT CASE " + prefix +
                               "ASFAM_MG54 WHEN '' THEN '.' ELSE 'F' END + "
                               "CASE " +
                               prefix +
                               "AGRUP_MG55 WHEN '' THEN '.' ELSE 'F' END + "
                               "CASE " +
                               prefix +
                               "ASGRUP_MG56 WHEN '' THEN '.' ELSE 'F' END AS PERCORSO "
                               "FROM " +
                               list + " WHERE " + prefix + "DITTA_CG18 = 1 AND " + prefix +
                               "DATAINIZIOVAL <= GETDATE() AND " + prefix +
                               "DATAFINEVAL >= GETDATE() ORDER BY PERCORSO"),
              (std::vector<std::string>{"...", "F..", "F.F", "FF.", "FFF"}))
        << list;
  }
}

struct PriceListKind {
  const char* table;
  const char* wanted;      ///< what keeps a row, beside the validity
  const char* candidates;  ///< the grouping of one candidate rule
};

// A price list that the discount rules read, by the rows that it takes from it.
constexpr PriceListKind kPriceLists[] = {
    {"LI10_LISTARTIC",
     "LI10_FLGUSODECOR = 0 AND LI10_FLGVENDACQ = 0 AND LI10_INDTIPOLIS = 0 AND LI10_DEPOS_MG58 = "
     "''",
     "LI10_CODART_MG66, LI10_OPZIONE_MG5E, LI10_NUMLIST"},
    {"LI10_LISTARTIC",
     "LI10_FLGUSODECOR = 0 AND LI10_FLGVENDACQ = 0 AND LI10_INDTIPOLIS = 1 AND LI10_DEPOS_MG58 <> "
     "''",
     "LI10_CODART_MG66, LI10_OPZIONE_MG5E, LI10_NUMLIST"},
    {"LI12_LISTARTZONE",
     "LI12_FLGUSODECOR = 0 AND LI12_FLGVENDACQ = 0 AND LI12_CODICE_CG08 = 'EURO'",
     "LI12_CODART_MG66, LI12_OPZIONE_MG5E, LI12_MACROAREA_MG07, LI12_AREA_MG08, LI12_ZONA_MG09"},
    {"LI13_LISTARTCAT",
     "LI13_FLGUSODECOR = 0 AND LI13_FLGVENDACQ = 0 AND LI13_CODICE_CG08 = 'EURO'",
     "LI13_CODART_MG66, LI13_OPZIONE_MG5E, LI13_MACROCAT_MG10, LI13_CATEG_MG11, LI13_SOTTCAT_MG12"},
    {"LI14_LISTARTQTA",
     "LI14_FLGUSODECOR = 0 AND LI14_FLGVENDACQ = 0 AND LI14_CODICE_CG08 = 'EURO'",
     "LI14_CODART_MG66, LI14_OPZIONE_MG5E, LI14_NUMLISTUTIL"},
    {"LI15_LISTARTCFQTA",
     "LI15_FLGUSODECOR = 0 AND LI15_CODICE_CG08 = 'EURO' AND LI15_TIPOCF_CG44 = 0 AND LI15_FLGLIST "
     "= 1",
     "LI15_CLIFOR_CG44, LI15_CODART_MG66, LI15_OPZIONE_MG5E"},
    {"LI16_LISTARTCF", "LI16_TIPOCF_CG44 = 0 AND LI16_FLGLIST = 1",
     "LI16_CLIFOR_CG44, LI16_CODART_MG66, LI16_OPZIONE_MG5E"},
    {"LI18_LISTCFCODP", "LI18_TIPOCF_CG44 = 0 AND LI18_FLGUSODECOR = 0 AND LI18_FLGLIST = 1",
     "LI18_CLIFOR_CG44, LI18_AFAM_MG53, LI18_ASFAM_MG54, LI18_AGRUP_MG55, LI18_ASGRUP_MG56"},
    {"LI33_LISTCODP",
     "LI33_FLGUSODECOR = 0 AND LI33_FLGVENDACQ = 0 AND LI33_CODICE_CG08 = 'EURO' AND "
     "LI33_INDTIPOLIS = 0",
     "LI33_AFAM_MG53, LI33_ASFAM_MG54, LI33_AGRUP_MG55, LI33_ASGRUP_MG56"},
    {"LI34_LISTCODPQTA",
     "LI34_FLGUSODECOR = 0 AND LI34_FLGVENDACQ = 0 AND LI34_CODICE_CG08 = 'EURO'",
     "LI34_FAM_MG53, LI34_SFAM_MG54, LI34_GRUP_MG55, LI34_SGRUP_MG56"},
};

TEST_F(Demo, HasValidExpiredFutureAndExcludedRowsInEveryPriceList) {
  for (const PriceListKind& kind : kPriceLists) {
    const std::string prefix(kind.table, 5);
    const std::string valid =
        prefix + "DATAINIZIOVAL <= GETDATE() AND " + prefix + "DATAFINEVAL >= GETDATE()";
    const auto rows = [&](const char* company, const std::string& condition) {
      return database_.count(std::string("SELECT COUNT(*) FROM ") + kind.table + " WHERE " +
                             prefix + "DITTA_CG18 = " + company + " AND " + condition);
    };
    const std::string wanted = kind.wanted;
    SCOPED_TRACE(wanted);
    EXPECT_GT(rows("1", wanted + " AND " + valid), 0);
    EXPECT_GT(rows("1", wanted + " AND " + prefix + "DATAFINEVAL < GETDATE()"), 0);
    EXPECT_GT(rows("1", wanted + " AND " + prefix + "DATAINIZIOVAL > GETDATE()"), 0);
    EXPECT_GT(rows("1", "NOT (" + wanted + ") AND " + valid), 0);
    EXPECT_GT(rows("1", prefix + "CODICE_CG08 <> 'EURO' AND " + valid), 0);
    EXPECT_GT(rows("2", wanted + " AND " + valid), 0);
    EXPECT_GT(
        database_.count(std::string("SELECT COUNT(*) FROM (SELECT ") + kind.candidates + " FROM " +
                        kind.table + " WHERE " + prefix + "DITTA_CG18 = 1 AND " + wanted + " AND " +
                        valid + " GROUP BY " + kind.candidates + ") AS CANDIDATI"),
        1);
  }
}

TEST_F(Demo, HasConditionsThatOverlapAndListsWithMoreThanTenSteps) {
  EXPECT_EQ(
      database_
          .rows("SELECT MAX(LI16_DATAINIZIOVAL), MIN(LI16_DATAFINEVAL), MAX(LI16_PREZZO), COUNT(*) "
                "FROM LI16_LISTARTCF WHERE LI16_DITTA_CG18 = 1 AND LI16_CLIFOR_CG44 = 1001 "
                "AND LI16_CODART_MG66 = 'CAT-0003'")
          .at(0)
          .at(3),
      "2");
  EXPECT_EQ(database_.value(
                "SELECT MAX(PASSI) FROM (SELECT COUNT(*) AS PASSI FROM LI14_LISTARTQTA "
                "WHERE LI14_DITTA_CG18 = 1 GROUP BY LI14_CODART_MG66, LI14_NUMLISTUTIL) AS T"),
            "12");
  EXPECT_EQ(database_.value(
                "SELECT MAX(PASSI) FROM (SELECT COUNT(*) AS PASSI FROM LI15_LISTARTCFQTA "
                "WHERE LI15_DITTA_CG18 = 1 GROUP BY LI15_CLIFOR_CG44, LI15_CODART_MG66) AS T"),
            "14");
  EXPECT_EQ(database_.value(
                "SELECT MAX(PASSI) FROM (SELECT COUNT(*) AS PASSI FROM LI34_LISTCODPQTA WHERE "
                "LI34_DITTA_CG18 = 1 AND LI34_DATAINIZIOVAL <= GETDATE() GROUP BY LI34_FAM_MG53, "
                "LI34_SFAM_MG54, LI34_GRUP_MG55, "
                "LI34_SGRUP_MG56) AS T"),
            "12");
}

TEST_F(Demo, KeepsItsPricesExact) {
  EXPECT_EQ(
      database_
          .rows(
              "SELECT LI10_PREZZO, LI10_SC1PER, LI10_PREZZO - ((LI10_PREZZO / 100 ) * LI10_SC1PER) "
              "FROM LI10_LISTARTIC WHERE LI10_DITTA_CG18 = 1 AND LI10_NUMLIST = 1 "
              "AND LI10_CODART_MG66 = 'CAV-0401' AND LI10_FLGVENDACQ = 0 "
              "AND LI10_DATAINIZIOVAL = '20200101'")
          .at(0)
          .at(0),
      "19.9");
  EXPECT_EQ(
      database_.count(
          "SELECT COUNT(*) FROM LI10_LISTARTIC WHERE LI10_DITTA_CG18 = 1 AND LI10_NUMLIST = 1 "
          "AND LI10_CODART_MG66 = 'CAV-0401' AND LI10_FLGVENDACQ = 0 "
          "AND LI10_PREZZO - ((LI10_PREZZO / 100 ) * LI10_SC1PER) = 17.91"),
      1);
  EXPECT_GT(database_.count("SELECT COUNT(*) FROM LI10_LISTARTIC WHERE LI10_PREZZO = 0.333333"), 0);
}

TEST_F(Demo, NamesAreasAndCategoriesOfPriceLists) {
  EXPECT_EQ(
      database_.column(
          "SELECT DISTINCT MG07_DESCRMACROAR + '/' + MG08_DESCRAREA + '/' + MG09_DESCRZONA "
          "FROM LI12_LISTARTZONE "
          "LEFT OUTER JOIN MG07_MACROAREE ON MG07_DITTA_CG18 = LI12_DITTA_CG18 "
          "AND MG07_TIPOCF = 0 AND MG07_MACROAREA = LI12_MACROAREA_MG07 "
          "LEFT OUTER JOIN MG08_AREE ON MG08_DITTA_CG18 = LI12_DITTA_CG18 "
          "AND MG08_TIPOCF_MG07 = MG07_TIPOCF AND MG08_MACROAREA_MG07 = LI12_MACROAREA_MG07 "
          "AND MG08_AREA = LI12_AREA_MG08 "
          "LEFT OUTER JOIN MG09_ZONE ON MG09_DITTA_CG18 = LI12_DITTA_CG18 "
          "AND MG09_TIPOCF_MG08 = MG08_TIPOCF_MG07 AND MG09_MACROAREA_MG08 = LI12_MACROAREA_MG07 "
          "AND MG09_AREA_MG08 = LI12_AREA_MG08 AND MG09_ZONA = LI12_ZONA_MG09 "
          "WHERE LI12_DITTA_CG18 = 1 AND LI12_ZONA_MG09 = 'MAR'"),
      (std::vector<std::string>{"Centro Italia/Versante adriatico/Marche"}));
  EXPECT_EQ(database_.rows(sql::ElencoChiaviListino({"1"}, 2)),
            (Rows{{"GDO", "Grande distribuzione"},
                  {"PRO", "Professionisti"},
                  {"RIV", "Rivenditori"},
                  {"WEB", "Clienti web"}}));
  EXPECT_EQ(database_.rows(sql::ElencoChiaviListino({"1"}, 3)).at(0),
            (Rows::value_type{"CEN", "Centro Italia"}));
  EXPECT_EQ(database_.rows(sql::ElencoChiaviListino({"2"}, 3)).size(), 2u);
  // Only lists that have prices by deposit are offered.
  EXPECT_EQ(database_.rows(sql::ElencoChiaviListino({"1"}, 1)),
            (Rows{{"1", "Listino base", "EURO"}, {"2", "Listino rivenditori", "EURO"}}));
}

TEST_F(Demo, HasDocumentsWithAndWithoutADefaultDeposit) {
  EXPECT_EQ(database_.rows(sql::DepositoDocumento({"1"}, "OCW")), (Rows{{"05"}}));
  EXPECT_EQ(database_.rows(sql::DepositoDocumento({"1"}, "OCF")), (Rows{{"NULL"}}));
  EXPECT_EQ(database_.rows(sql::DepositoDocumento({"1"}, "OCA")), (Rows{{""}}));
  EXPECT_EQ(database_.rows(sql::DepositoDocumento({"1"}, "PRV")), Rows{});
  EXPECT_EQ(database_.rows(sql::DepositoDocumento({"2"}, "OCW")), (Rows{{"NULL"}}));
  EXPECT_EQ(database_.count("SELECT COUNT(*) FROM MG36_DOCUMENTI WHERE MG36_CODDOCUM = 'PRV'"), 2);
  EXPECT_EQ(database_.rows(sql::DescrizioneListino({"1"}, 1, "2")),
            (Rows{{"Acquisti estero", "USD", "0"}}));
  EXPECT_EQ(database_.rows(sql::DescrizioneListino({"1"}, 0, "3")),
            (Rows{{"Listino al pubblico", "EURO", "1"}}));
}

TEST_F(Demo, HasAProfileInTheFirstCompanyOnly) {
  EXPECT_EQ(database_.rows(sql::Profilo({"1"})).size(), 1u);
  EXPECT_EQ(database_.rows(sql::Profilo({"2"})).size(), 0u);
  EXPECT_EQ(database_.rows(sql::Parametri({profileId()})).size(), 1u);
  EXPECT_EQ(database_.rows(sql::ParametriVuoti()).size(), 0u);

  // Slot 9 lacks its deposit; the priority slot has no state of its own.
  database_.execute(sql::CreaTabellaListini("##listini", {profileId()}));
  EXPECT_EQ(database_.column("SELECT STATO FROM ##listini ORDER BY GM57_CODPREZZO"),
            (std::vector<std::string>{"1", "1", "1", "1", "1", "1", "NULL", "1", "2", "1"}));
  database_.execute(sql::CreaTabellaDepositi("##depositi", {profileId()}, {"1"}));
  EXPECT_EQ(
      database_.rows(
          "SELECT MG58_CODDEP, FLG_PREF FROM ##depositi WHERE FLG_ATTIVO = 1 ORDER BY MG58_CODDEP"),
      (Rows{{"01", "0"}, {"02", "0"}, {"05", "1"}}));
  // Another application's profile has an active priority slot without a customer.
  EXPECT_EQ(database_.count(
                "SELECT COUNT(*) FROM GM57_KBLISTINI WHERE GM57_INDTIPO = 6 AND GM57_FLGATTIVO = 1 "
                "AND GM57_CLIFOR_CG44 IS NULL AND GM57_IDDISPOSITIVO_GM03 <> " +
                profileId()),
            1);
}

TEST_F(Demo, OffersClassificationsByWhatTheCompanyHas) {
  for (const char* table : {"MG5F_DIMECONF", "MG6F_DIMEART"}) {
    const std::string exists = std::string(" SELECT TOP 1 1 FROM ") + table + " WHERE " +
                               std::string(table, 5) + "DITTA_CG18 = ";
    EXPECT_EQ(database_.rows(exists + "1").size(), 1u) << table;
    EXPECT_EQ(database_.rows(exists + "2").size(), 0u) << table;
  }
  EXPECT_EQ(database_.value(
                "SELECT MG5F_DESCR_VAR FROM MG5F_DIMECONF WITH (NOLOCK) WHERE MG5F_DITTA_CG18 = 1 "
                "AND MG5F_CODICEVAR = 'A12' "),
            "Tensione");
  EXPECT_EQ(
      database_.value("SELECT MG6F_DESCR FROM MG6F_DIMEART WITH (NOLOCK) WHERE MG6F_DITTA_CG18 = 1 "
                      "AND MG6F_PROGR = 3"),
      "Numero");
  EXPECT_EQ(
      database_.rows("SELECT GM19_INDENTITA, GM19_PROG, GM19_INDCLASSIF FROM GM19_DETTCONF WHERE "
                     "GM19_IDDISPOSITIVO_GM03 = " +
                     profileId() + " ORDER BY GM19_INDENTITA, GM19_PROG"),
      (Rows{{"1", "1", "4"},
            {"1", "2", "5"},
            {"1", "3", "11"},
            {"1", "5", "1"},
            {"3", "1", "253"},
            {"3", "2", "254"},
            {"3", "3", "5"}}));
}

TEST_F(Demo, HasRulesStoredForSomeKindsOnly) {
  EXPECT_EQ(
      database_.rows("SELECT GM61_INDTIPOLISTINO, GM61_FLGSCONTISUPRZ, COUNT(*), SUM(GM61_ATTIVA) "
                     "FROM GM61_KBDISCOUNTRULES WHERE GM61_DITTA_CG18 = 1 "
                     "GROUP BY GM61_INDTIPOLISTINO, GM61_FLGSCONTISUPRZ "
                     "ORDER BY GM61_INDTIPOLISTINO, GM61_FLGSCONTISUPRZ"),
      (Rows{{"1", "1", "3", "3"}, {"2", "0", "1", "1"}, {"4", "1", "2", "1"}}));
  EXPECT_EQ(database_.value("SELECT IDENT_CURRENT('GM61_KBDISCOUNTRULES')"), "6");
}

}  // namespace
}  // namespace kebu::workbench
