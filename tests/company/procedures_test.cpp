#include <gtest/gtest.h>

#include "sql/synchronisation.h"
#include "tests/support/test_company.h"

namespace kebu::workbench {
namespace {

using tests::TestCompany;

using Rows = std::vector<std::vector<std::string>>;

TEST(Activities, AreCompletedOncePerCompanyAndApplication) {
  TestCompany database;
  const std::string flags =
      "SELECT GM02_IDATTIVITA_GM01, GM02_FLGDIFF FROM GM02_ATTIVITADITTA "
      "WHERE GM02_DITTA_CG18 = 1 ORDER BY GM02_IDATTIVITA_GM01";
  Rows expected = database.rows(flags);
  ASSERT_EQ(expected.size(), 7u);
  expected.push_back({"8", "NULL"});

  for (int time = 1; time <= 2; ++time) {
    database.execute(sql::ImpostazioneInizialeAttivita({"1"}));
    EXPECT_EQ(database.rows(flags), expected) << "call " << time;
  }
  EXPECT_EQ(database.count("SELECT COUNT(*) FROM GM02_ATTIVITADITTA WHERE GM02_DITTA_CG18 = 2"), 0);

  database.execute("EXEC SPGM_IMPOSTAZIONEINIZIALEATTIVITADITTA 2, 11, 1");
  EXPECT_EQ(database.rows("SELECT GM02_IDAPPLICAZIONE_GM01, COUNT(*) FROM GM02_ATTIVITADITTA "
                          "WHERE GM02_DITTA_CG18 = 2 GROUP BY GM02_IDAPPLICAZIONE_GM01"),
            (Rows{{"11", "2"}}));

  // Starting anew forgets what the company had set.
  database.execute("EXEC SPGM_IMPOSTAZIONEINIZIALEATTIVITADITTA 1, 14, 0");
  EXPECT_EQ(database.rows("SELECT COUNT(*), COUNT(GM02_FLGDIFF) FROM GM02_ATTIVITADITTA "
                          "WHERE GM02_DITTA_CG18 = 1"),
            (Rows{{"8", "0"}}));
}

TEST(Activities, OfTheProfileLackWhatANewerInstallationHas) {
  TestCompany database;
  const std::string profile = database.value(
      "SELECT GM03_IDDISPOSITIVO FROM GM03_DISPOSITIVI WHERE GM03_DITTA_CG18 = 1 "
      "AND GM03_IDAPPLICAZIONE = 14");
  database.execute(sql::ImpostazioneInizialeAttivita({"1"}));
  const std::string activities =
      "SELECT GM08_IDATTIVITA_GM01, GM08_FLGENABLED, GM08_FLGDIFF FROM GM08_ATTIVITADISPO "
      "WHERE GM08_IDDISPOSITIVO_GM03 = " +
      profile + " ORDER BY GM08_IDATTIVITA_GM01";
  EXPECT_EQ(database.rows(activities).size(), 6u);
  database.execute(sql::AttivitaDispositivo({profile}, {"1"}));
  EXPECT_EQ(database.rows(activities), (Rows{{"1", "1", "0"},
                                             {"2", "1", "1"},
                                             {"3", "1", "0"},
                                             {"4", "1", "1"},
                                             {"5", "1", "1"},
                                             {"6", "1", "0"},
                                             {"7", "0", "0"},
                                             {"8", "1", "0"}}));
}

constexpr char kJobs[] =
    "SELECT FW01_DITTA_CG18, FW01_VOCEMENU, FW01_DESCRJOB, FW01_PATHINST, FW01_PARAMETRO, "
    "FW01_NUMRICHIESTE FROM FW01_JOB ORDER BY FW01_IDJOB";

TEST(Jobs, AreTakenAgainUnlessANewOneIsAlwaysWanted) {
  TestCompany database = TestCompany::withSchemaOnly();
  const auto ask = [&](int entry, const char* folder, const char* parameter, int company,
                       int anew) {
    database.execute("EXEC SPFW_NEWATTJOB @vocemenu = " + std::to_string(entry) +
                     ", @DescrJob = 'Importa', @DescrAtt = 'Importa ordini', @PathInst = '" +
                     folder + "', @parametro = '" + parameter + "', @Ditta = " +
                     std::to_string(company) + ", @AlwaysNewAtt = " + std::to_string(anew));
  };
  ask(2838, "C:\\Erp", "IMPDOC", 1, 0);
  ask(2838, "D:\\Erp", "IMPDOC", 1, 0);
  EXPECT_EQ(database.rows(kJobs), (Rows{{"1", "2838", "Importa", "D:\\Erp", "IMPDOC", "2"}}));

  ask(2838, "D:\\Erp", "IMPDOC", 2, 0);
  ask(2838, "D:\\Erp", "ALTRO", 1, 0);
  ask(2839, "D:\\Erp", "IMPDOC", 1, 0);
  EXPECT_EQ(database.rows(kJobs).size(), 4u);

  ask(2838, "E:\\Erp", "IMPDOC", 1, 1);
  ask(2838, "F:\\Erp", "IMPDOC", 1, 0);
  const Rows jobs = database.rows(kJobs);
  ASSERT_EQ(jobs.size(), 5u);
  EXPECT_EQ(jobs.front(), (Rows::value_type{"1", "2838", "Importa", "D:\\Erp", "IMPDOC", "2"}));
  EXPECT_EQ(jobs.back(), (Rows::value_type{"1", "2838", "Importa", "F:\\Erp", "IMPDOC", "2"}));
}

struct PublishedPrice {
  const char* article;
  int slot;
  const char* price;
  const char* struckThrough;
};

// 19.90 less 10 % and its like: what a computation in binary fractions gets wrong.
constexpr PublishedPrice kPublishedPrices[] = {
    {"CAV-0401", 1, "17.91", "19.9"},        // list 1 with discounts
    {"CON-0010", 2, "52.6186", "NULL"},      // list 3, prices as they stand
    {"CAV-0401", 3, "15.7608", "17.512"},    // macro-category RIV
    {"INT-0020", 4, "83.6528", "NULL"},      // macro-area NOR
    {"CON-0010", 5, "41.8361", "NULL"},      // deposit 02
    {"LAM-0016", 6, "16.41912", "17.7504"},  // from 25 pieces, the fourth step
    {"CAT-0003", 7, "80.49195", "91.9908"},  // customer 1001, the later of two valid rows
    {"CAV-0401", 7, "17.91", "19.9"},        // customer 1001
};

TEST(PriceRefresh, TakesEachSlotFromTheListThatItNames) {
  TestCompany database;
  for (const PublishedPrice& expected : kPublishedPrices) {
    EXPECT_EQ(database.rows("SELECT KB02_PREZZO, KB02_PREZZOBARRATO FROM KB02_PREZZIART "
                            "WHERE KB02_DITTA_CG18 = 1 AND KB02_OPZIONE_MG5E = '' "
                            "AND KB02_CODART_MG66 = '" +
                            std::string(expected.article) +
                            "' AND KB02_CODPREZZO = " + std::to_string(expected.slot)),
              (Rows{{expected.price, expected.struckThrough}}))
        << expected.article << " slot " << expected.slot;
  }
  // A customer without a price of its own pays its list.
  EXPECT_EQ(
      database.value("SELECT KB02_PREZZO FROM KB02_PREZZIART WHERE KB02_CODART_MG66 = 'CON-0010' "
                     "AND KB02_CODPREZZO = 7"),
      "34.827475");
  EXPECT_EQ(database.count("SELECT COUNT(*) FROM KB02_PREZZIART WHERE KB02_CODPREZZO > 7"), 0);
}

TEST(PriceRefresh, FollowsTheSlotsAndSaysWhenItRan) {
  TestCompany database;
  const std::string first = "SELECT COUNT(*) FROM KB02_PREZZIART WHERE KB02_CODPREZZO = 1";
  EXPECT_GT(database.count(first), 1000);
  EXPECT_EQ(
      database.rows("SELECT KB01_NUMPREZZI - (SELECT COUNT(*) FROM KB02_PREZZIART), KB01_NUMAGG "
                    "FROM KB01_AGGPREZZI WHERE KB01_DITTA_CG18 = 1"),
      (Rows{{"0", "1"}}));

  database.execute("UPDATE GM57_KBLISTINI SET GM57_FLGATTIVO = 0 WHERE GM57_CODPREZZO = 1");
  EXPECT_GT(database.count(first), 1000);
  database.execute("EXEC SPKB_AGGIORNAPREZZI_KELMORIA 1");
  EXPECT_EQ(database.count(first), 0);
  EXPECT_EQ(
      database.rows("SELECT KB01_NUMPREZZI - (SELECT COUNT(*) FROM KB02_PREZZIART), KB01_NUMAGG, "
                    "CASE WHEN KB01_DATAAGG > '20240115' THEN 1 ELSE 0 END "
                    "FROM KB01_AGGPREZZI WHERE KB01_DITTA_CG18 = 1"),
      (Rows{{"0", "2", "1"}}));

  // A company without a profile has nothing to publish, and is told so.
  database.execute("EXEC SPKB_AGGIORNAPREZZI_KELMORIA 2");
  EXPECT_EQ(database.rows(
                "SELECT KB01_NUMPREZZI, KB01_NUMAGG FROM KB01_AGGPREZZI WHERE KB01_DITTA_CG18 = 2"),
            (Rows{{"0", "1"}}));
}

}  // namespace
}  // namespace kebu::workbench
