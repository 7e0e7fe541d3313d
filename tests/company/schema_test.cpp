#include <gtest/gtest.h>

#include "tests/support/test_company.h"

namespace kebu::workbench {
namespace {

using tests::TestCompany;

struct NamedColumns {
  const char* table;
  const char* columns;
};

// What the plug-in names, in its statements or through the host's look-ups, beyond
// what the other tests read.
constexpr NamedColumns kNamedColumns[] = {
    {"GM01_ATTIVITA", "GM01_IDATTIVITA, GM01_IDAPPLICAZIONE, GM01_INDFUNZIONE, GM01_FLGDIFF"},
    {"GM08_ATTIVITADISPO",
     "GM08_IDDISPOSITIVO_GM03, GM08_TIPOSINCRO_GM13, GM08_IDATTIVITA_GM01, GM08_FLGENABLED, "
     "GM08_LASTELAB, GM08_FLGDIFF"},
    {"GM19_DETTCONF",
     "GM19_IDDISPOSITIVO_GM03, GM19_PROG, GM19_INDENTITA, GM19_INDCLASSIF, GM19_CODCLASSIF, "
     "GM19_DESCRCLASSIF"},
    {"GM61_KBDISCOUNTRULES",
     "GM61_ID, GM61_DITTA_CG18, GM61_INDTIPOLISTINO, GM61_DESCLISTCORVANE, GM61_ATTIVA, "
     "GM61_CODCLIENTE, GM61_DESC1, GM61_DESC2, GM61_CODART_MG66, GM61_OPZIONE_MG5E, "
     "GM61_FAM_MG53, GM61_SFAM_MG54, GM61_GRUPPO_MG55, GM61_SGRUPPO_MG56, GM61_DATAINIZIO, "
     "GM61_DATAFINE, GM61_FLGSCONTISUPRZ, GM61_FLGGRIGLIASCONTI, GM61_NOMEREGOLA, "
     "GM61_TIPOSCONTO, GM61_VALORESCONTO, GM61_TIPOGRIGLIASCONTO, GM61_GRIGLIAVALINF0, "
     "GM61_GRIGLIAVALINF9, GM61_GRIGLIAVALORESC0, GM61_GRIGLIAVALORESC9, GM61_SC1PER, "
     "GM61_PREZZOLORDO, GM61_PREZZONETTO, GM61_CAMPOCORVANE, GM61_FLGPRZBARRATI, "
     "GM61_FLGNONTRATTAREALTRISC, GM61_FLGMONOUSO, GM61_INDREGOLEINCLUSIONE, GM61_POSIZIONE, "
     "GM61_DATAULTAGG"},
    {"MG44_PARMAGLIST",
     "MG44_DITTA_CG18, MG44_FLGVENACQ, MG44_NUMLIST, MG44_DESCLIST, MG44_VALUTA_CG08, "
     "MG44_FLGIVACOMPR"},
    {"CG44_CLIFOR INNER JOIN CG16_RAGSOANAG ON CG16_CODICE = CG44_CODICE_CG16",
     "CG44_DITTA_CG18, CG44_TIPOCF, CG44_CLIFOR, CG44_IDCLIFOR, CG16_RAGSOANAG"},
    {"MG31_RAGGRCF1, MG32_RAGGRCF2, MG33_RAGGRCF3",
     "MG31_DESCRAGGRCF1, MG32_DESCRAGGRCF2, MG33_DESCRAGGRCF3"},
    {"MG53_FAMIGLIE, MG63_CLASSISC, MG64_MARCHE, MG74_GRUSTAT1, MG75_GRUSTAT2, MG76_GRUSTAT3, "
     "MG77_GRUSTAT4",
     "MG53_FAM, MG63_CLASC, MG64_MARCA, MG74_GRUSTAT1, MG75_GRUSTAT2, MG76_GRUSTAT3, "
     "MG77_GRUSTAT4"},
    {"MG54_SOTTOFAM, MG55_GRUPPI, MG56_SOTTOGRUPPI",
     "MG54_FAM_MG53, MG54_SFAM, MG55_FAM_MG53, MG55_SFAM_MG54, MG55_GRUPPO, MG56_FAM_MG53, "
     "MG56_SFAM_MG54, MG56_GRUPPO_MG55, MG56_SGRUPPO"},
};

TEST(Schema, HoldsEveryColumnThatIsNamed) {
  TestCompany database = TestCompany::withSchemaOnly();
  for (const NamedColumns& named : kNamedColumns) {
    EXPECT_NO_THROW(database.execute(std::string("SELECT ") + named.columns + " FROM " +
                                     named.table + " WHERE 1 = 0"))
        << named.table;
  }
}

TEST(Schema, IsAnInstallationWithoutCompanies) {
  TestCompany database = TestCompany::withSchemaOnly();
  // There to be used by the first company.
  EXPECT_EQ(database.column("SELECT DISTINCT GM01_INDFUNZIONE FROM GM01_ATTIVITA "
                            "WHERE GM01_IDAPPLICAZIONE = 14 ORDER BY GM01_INDFUNZIONE"),
            (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_EQ(database.column("SELECT DISTINCT GM23_INDENTITA FROM GM23_CLASSIFICAZIONI "
                            "WHERE GM23_FLGDISABLED = 0 ORDER BY GM23_INDENTITA"),
            (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_GT(database.count("SELECT COUNT(*) FROM GM23_CLASSIFICAZIONI WHERE GM23_FLGDISABLED = 1"),
            0);
  EXPECT_EQ(database.value("SELECT MG6W_DESCR FROM MG6W_STATIART WHERE MG6W_INDSTATO = 1"),
            "In esaurimento");
  // Left to the plug-in and the administrator.
  EXPECT_EQ(database.count("SELECT COUNT(*) FROM GM13_TIPISINCRO WHERE GM13_IDAPPLICAZIONE = 14"),
            0);
  for (const char* table :
       {"GM02_ATTIVITADITTA", "GM03_DISPOSITIVI", "GM61_KBDISCOUNTRULES", "CG44_CLIFOR",
        "MG66_ANAGRART", "MG58_DEPOSITI", "LI10_LISTARTIC", "FW01_JOB", "VGM16_KBWSUSERS_KELMORIA",
        "VGM19_KBWSPRODUCTS_KELMORIA"}) {
    EXPECT_EQ(database.count(std::string("SELECT COUNT(*) FROM ") + table), 0) << table;
  }
}

TEST(Schema, TakesRowsThatSayNoMoreThanTheyMust) {
  TestCompany database = TestCompany::withSchemaOnly();
  database.execute("INSERT INTO GM03_DISPOSITIVI (GM03_DITTA_CG18) VALUES (7)");
  EXPECT_EQ(database.value("SELECT GM03_IDDISPOSITIVO FROM GM03_DISPOSITIVI"), "1");
  database.execute("INSERT INTO GM61_KBDISCOUNTRULES (GM61_DITTA_CG18) VALUES (7), (7)");
  EXPECT_EQ(database.value("SELECT IDENT_CURRENT('GM61_KBDISCOUNTRULES')"), "2");
  database.execute(
      "INSERT INTO LI10_LISTARTIC (LI10_DITTA_CG18, LI10_CODART_MG66) VALUES (7, 'X')");
  EXPECT_EQ(database.rows("SELECT LI10_OPZIONE_MG5E, LI10_DEPOS_MG58, LI10_INDTIPOLIS, "
                          "LI10_FLGUSODECOR, LI10_PREZZO FROM LI10_LISTARTIC"),
            (std::vector<std::vector<std::string>>{{"", "", "0", "0", "NULL"}}));
}

}  // namespace
}  // namespace kebu::workbench
