#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace kebu::workbench {
namespace {

using tests::TestCompany;

using Rows = std::vector<std::vector<std::string>>;

constexpr char kCustomers[] = "VGM16_KBWSUSERS_KELMORIA WHERE CG44_DITTA_CG18 = ";
constexpr char kArticles[] = "VGM19_KBWSPRODUCTS_KELMORIA v WHERE MG87_DITTA_CG18 = ";

// The previews' columns that the demo fills, by view.
constexpr const char* kCustomerColumns[] = {"CG44_IDCLIFOR",
                                            "CG44_CODICE_CG16",
                                            "Email",
                                            "Azienda",
                                            "Nome",
                                            "Cognome",
                                            "PartitaIva",
                                            "CodiceFiscale",
                                            "IndirizzoPrincipaleL1",
                                            "IndirizzoPrincipaleL2",
                                            "NomeIndirizzoConsegna",
                                            "CognomeIndirizzoConsegna",
                                            "AziendaIndirizzoConsegna",
                                            "IndirizzoConsegnaL1",
                                            "IndirizzoConsegnaL2",
                                            "CodiceCommerciale",
                                            "NomeCategoria1",
                                            "NomeCategoria2",
                                            "NomeCategoria3",
                                            "UltimaModifica"};
constexpr const char* kArticleColumns[] = {
    "MG87_CODART_MG66", "MG87_OPZIONE_MG5E", "Nome",           "Descrizione",
    "NomeCategoria1",   "NomeCategoria2",    "NomeCategoria3", "QuantitaInStock",
    "Prezzo1",          "PrezzoBarrato1",    "IvaInclusa1",    "Prezzo2",
    "IvaInclusa2",      "Prezzo3",           "PrezzoBarrato3", "Prezzo4",
    "Prezzo5",          "Prezzo6",           "PrezzoBarrato6", "Prezzo7",
    "PrezzoBarrato7",   "UltimaModifica"};
// Those of slots and levels that the demo's profile leaves unused.
constexpr char kUnusedCustomerColumns[] = "NomeCategoria4";
constexpr char kUnusedArticleColumns[] =
    "PrezzoBarrato2, IvaInclusa3, PrezzoBarrato4, IvaInclusa4, PrezzoBarrato5, IvaInclusa5, "
    "IvaInclusa6, IvaInclusa7, Prezzo8, PrezzoBarrato8, IvaInclusa8, Prezzo9, PrezzoBarrato9, "
    "IvaInclusa9, Prezzo10, PrezzoBarrato10, IvaInclusa10";

TEST(Views, DeliverWhatThePreviewsShow) {
  TestCompany database;
  for (const char* column : kCustomerColumns) {
    EXPECT_GT(database.count(std::string("SELECT COUNT(") + column + ") FROM " + kCustomers + "1"),
              0)
        << column;
  }
  for (const char* column : kArticleColumns) {
    EXPECT_GT(database.count(std::string("SELECT COUNT(") + column + ") FROM " + kArticles + "1"),
              0)
        << column;
  }
  EXPECT_EQ(
      database.rows(std::string("SELECT ") + kUnusedCustomerColumns + " FROM " + kCustomers + "1")
          .size(),
      260u);
  EXPECT_EQ(
      database.rows(std::string("SELECT ") + kUnusedArticleColumns + " FROM " + kArticles + "1")
          .size(),
      1300u);
}

TEST(Views, ShowCustomersOnlyAndEmptyAddressesAsNone) {
  TestCompany database;
  // Supplier 1001 bears a customer's code.
  EXPECT_EQ(
      database.rows(std::string("SELECT Azienda FROM ") + kCustomers + "1 AND CG44_CLIFOR = 1001"),
      (Rows{{"Colorificio Iacobelli & Figli S.n.c."}}));
  EXPECT_GT(database.count("SELECT COUNT(*) FROM CG16_RAGSOANAG WHERE CG16_EMAIL = ''"), 0);
  EXPECT_EQ(database.count(std::string("SELECT COUNT(*) FROM ") + kCustomers +
                           "1 AND Email IS NOT NULL AND Email = ''"),
            0);
  const int all = database.count(std::string("SELECT COUNT(*) FROM ") + kCustomers + "1");
  const int reachable =
      database.count(std::string("SELECT COUNT(*) FROM ") + kCustomers + "1 AND Email IS NOT NULL");
  EXPECT_EQ(all, 260);
  EXPECT_EQ(reachable, 225);
}

TEST(Views, NameTheCategoriesThatTheProfileConfigures) {
  TestCompany database;
  EXPECT_EQ(database.rows(std::string("SELECT NomeCategoria1, NomeCategoria2, NomeCategoria3, "
                                      "NomeCategoria4 FROM ") +
                          kCustomers + "1 AND CG44_CLIFOR = 1001"),
            (Rows{{"Rivenditori", "Colorifici", "VIP", "NULL"}}));
  EXPECT_EQ(
      database.rows(std::string("SELECT NomeCategoria1, NomeCategoria2, NomeCategoria3 FROM ") +
                    kArticles + "1 AND MG87_CODART_MG66 = 'ACC-0028'"),
      (Rows{{"Bagno\\Accessori bagno", "Linea professionale\\Confezione singola", "Domusviva"}}));

  database.execute(
      "UPDATE GM19_DETTCONF SET GM19_INDCLASSIF = 1 WHERE GM19_INDENTITA = 1 AND GM19_PROG = 1");
  database.execute(
      "UPDATE GM19_DETTCONF SET GM19_INDCLASSIF = 255 WHERE GM19_INDENTITA = 3 AND GM19_PROG = 1");
  EXPECT_EQ(database.value(std::string("SELECT NomeCategoria1 FROM ") + kCustomers +
                           "1 AND CG44_CLIFOR = 1001"),
            "Nord Italia");
  EXPECT_EQ(database.value(std::string("SELECT NomeCategoria1 FROM ") + kArticles +
                           "1 AND MG87_CODART_MG66 = 'ACC-0028'"),
            "BAG/ACC/G2/S1");
  // Without a profile there are no levels, but the customers are there.
  EXPECT_EQ(
      database.rows(std::string("SELECT COUNT(*), COUNT(NomeCategoria1) FROM ") + kCustomers + "2"),
      (Rows{{"60", "0"}}));
}

TEST(Views, CountTheStockOfThePublishedDepositsOnly) {
  TestCompany database;
  // CHI-0005 lies in 06 and 01; of these only 01 is published, and reserved and
  // ordered goods count because the profile asks for what is available.
  const std::string stock = std::string("SELECT QuantitaInStock FROM ") + kArticles +
                            "1 AND MG87_CODART_MG66 = 'CHI-0005'";
  EXPECT_EQ(database.rows(
                "SELECT MG70_DEPOS_MG58, MG70_QTAGIAC, MG70_QTAIMP, MG70_QTAORD FROM MG70_GIACDEP "
                "WHERE MG70_DITTA_CG18 = 1 AND MG70_CODART_MG66 = 'CHI-0005' "
                "ORDER BY MG70_DEPOS_MG58"),
            (Rows{{"01", "68", "8", "25"}, {"06", "65", "8", "25"}}));
  EXPECT_EQ(database.value(stock), "85");
  database.execute("UPDATE GM04_PARAMETRITVRO SET GM04_INDTIPOGIACENZA = 1");
  EXPECT_EQ(database.value(stock), "60");
  database.execute("UPDATE GM04_PARAMETRITVRO SET GM04_INDTIPOGIACENZA = 0");
  EXPECT_EQ(database.value(stock), "68");
  database.execute("DELETE FROM GM56_KBDEPOSITI WHERE GM56_DEPGIACENZE_MG58 = '01'");
  EXPECT_EQ(database.value(stock), "NULL");
}

// A condition on every field that the two editors offer, and on those that editors of
// other windows add.
constexpr const char* kCustomerConditions[] = {"CG44_CLIFOR = 1007",
                                               "Azienda LIKE 'Ferramenta%'",
                                               "IndirizzoPrincipaleL1 LIKE 'Via%'",
                                               "Cap = '00185'",
                                               "Citta = 'Forlì'",
                                               "Provincia IN ('AN', 'MC')",
                                               "PartitaIva >= '1'",
                                               "MG19_MACROAREA = 'NOR'",
                                               "MG19_AREA = 'TRI'",
                                               "MG19_ZONA = 'VEN'",
                                               "MG19_MACROCAT = 'RIV'",
                                               "MG19_CATEG = 'FER'",
                                               "MG19_SOTTOCAT = 'NEG'",
                                               "MG19_RAGGRCF1 = 'ORO'",
                                               "MG19_RAGGRCF2 = 'RBA'",
                                               "MG19_RAGGCRF3 = 'RIT'"};
constexpr const char* kArticleConditions[] = {
    "MG87_CODART_MG66 BETWEEN 'B' AND 'C'",
    "MG66_FAM_MG53 = 'FER'",
    "MG66_SFAM_MG54 = 'VIT'",
    "MG66_GRUPPO_MG55 = 'G1'",
    "MG66_SGRUPPO_MG56 = 'S2'",
    "MG66_MARCA_MG64 = 'LUM'",
    "MG66_GRUSTAT1_MG74 = 'AR'",
    "MG66_GRUSTAT2_MG75 = 'IMP'",
    "MG66_GRUSTAT3_MG76 = 'E'",
    "MG66_GRUSTAT4_MG77 = 'PRO'",
    "MG66_INDSTATO_MG6W = 3",
    "MG66_CLASC_MG63 = 'A'",
    "EXISTS (SELECT MG72_CODAPPLIC_MG57 FROM MG72_APPLICART WHERE MG72_DITTA_CG18 = "
    "MG66_DITTA_CG18 "
    "AND MG72_CODART_MG66 = MG66_CODART AND MG72_CODAPPLIC_MG57 = 'LEG')",
    "EXISTS (SELECT MG73_CLIFOR_CG44 FROM MG73_ARTCLIFOR WHERE MG73_DITTA_CG18 = MG66_DITTA_CG18 "
    "AND MG73_TIPOCF_CG44 = 1 AND MG73_CODART_MG66 = MG66_CODART AND MG73_CLIFOR_CG44 = 4)",
    "EXISTS (SELECT TOP 1 1 FROM PD18_ARTPROD PD18_FILTRO WHERE PD18_FILTRO.PD18_DITTA_CG18 = "
    "MG66_DITTA_CG18 AND PD18_FILTRO.PD18_CODART_MG66 = MG66_CODART AND "
    "PD18_FILTRO.PD18_INDPROVENIENZA = 1)"};

TEST(Views, CanBeNarrowedByEveryFilterField) {
  TestCompany database;
  const int customers = database.count(std::string("SELECT COUNT(*) FROM ") + kCustomers + "1");
  for (const char* condition : kCustomerConditions) {
    const int found =
        database.count(std::string("SELECT COUNT(*) FROM ") + kCustomers + "1 AND " + condition);
    EXPECT_TRUE(found > 0 && found < customers) << condition << " leaves " << found;
  }
  const int articles = database.count(std::string("SELECT COUNT(*) FROM ") + kArticles + "1");
  for (const char* condition : kArticleConditions) {
    const int found = database.count(std::string("SELECT COUNT(*) FROM ") + kArticles + "1 AND (" +
                                     condition + ")");
    EXPECT_TRUE(found > 0 && found < articles) << condition << " leaves " << found;
  }
}

}  // namespace
}  // namespace kebu::workbench
