#include "sql/discount_kinds.h"

#include <algorithm>
#include <stdexcept>

namespace kebu::sql {

namespace {

using Form = DescriptionForm;

constexpr std::array<std::string_view, 4> noFamilies{"NULL", "NULL", "NULL", "NULL"};
constexpr Description noDesc2{
    .form = Form::Expression, .alias = "GM61_DESC2", .expression = {"NULL"}};
constexpr Description article1{.form = Form::Article, .alias = "GM61_DESC1"};
constexpr Description articleAsStored1{.form = Form::ArticleAsStored, .alias = "GM61_DESC1"};
constexpr Description path1{.form = Form::FamilyPath, .alias = "GM61_DESC1"};

// --- on price ---------------------------------------------------------------

constexpr DiscountSource customerArticle[] = {{
    .label = "Lis. Cli./Art.",
    .table = "LI16_LISTARTCF",
    .customer = "LI16_CLIFOR_CG44",
    .desc1 = article1,
    .article = "LI16_CODART_MG66",
    .option = "LI16_OPZIONE_MG5E",
    // The repeated condition and the customer grouped by twice are meant.
    .filter = {"AND LI16_TIPOCF_CG44 = 0 ", "AND LI16_FLGLIST = 1 ", "AND LI16_FLGLIST = 1 ",
               validToday},
    .groupBy = {"LI16_DITTA_CG18", "LI16_CLIFOR_CG44", "LI16_CODART_MG66", "LI16_OPZIONE_MG5E",
                "LI16_CLIFOR_CG44"},
}};

constexpr DiscountSource articleList{
    .label = "Lis. Anag. art.",
    .table = "LI10_LISTARTIC",
    .desc1 = article1,
    .desc2 = {.form = Form::Expression,
              .alias = "GM61_DESC2",
              .expression = {"CAST(LI10_NUMLIST AS VARCHAR)"}},
    .article = "LI10_CODART_MG66",
    .option = "LI10_OPZIONE_MG5E",
    .families = noFamilies,
    .filter = {"AND LI10_FLGUSODECOR = 0", "AND LI10_FLGVENDACQ = 0", "AND LI10_INDTIPOLIS = 0",
               "AND LI10_DEPOS_MG58 = ''", validToday},
    .groupBy = {"LI10_DITTA_CG18", "LI10_CODART_MG66", "LI10_OPZIONE_MG5E", "LI10_NUMLIST"},
};

constexpr DiscountSource depositList{
    .label = "Lis. art./dep.",
    .table = "LI10_LISTARTIC",
    .desc1 = article1,
    .desc2 = {.form = Form::Expression,
              .alias = "GM61_DESC2",
              .expression = {"cast(max(LI10_DEPOS_MG58) as varchar)"}},
    .article = "LI10_CODART_MG66",
    .option = "LI10_OPZIONE_MG5E",
    .families = noFamilies,
    .filter = {"AND LI10_FLGUSODECOR = 0", "AND LI10_FLGVENDACQ = 0", "AND LI10_INDTIPOLIS = 1",
               "AND LI10_DEPOS_MG58 <> ''", validToday},
    .groupBy = {"LI10_DITTA_CG18", "LI10_CODART_MG66", "LI10_OPZIONE_MG5E", "LI10_NUMLIST"},
    .namedFromIdentity = false,  // this list alone, and meant
};

constexpr DiscountSource areaList{
    .label = "Lis. art./mca./area/zona",
    .nameLabel = "Lis. art./mca./area/zona.",  // the point is meant; the label has none
    .table = "LI12_LISTARTZONE",
    .desc1 = article1,
    .desc2 = {.form = Form::Expression,
              .alias = "GM61_DESC2",
              .expression = {"rtrim(LI12_MACROAREA_MG07) + '-' + MG07_DESCRMACROAR",
                             "+ CASE WHEN ISNULL(LI12_AREA_MG08,'') <> ''",
                             "THEN '/' + LI12_AREA_MG08 + '-' + MG08_DESCRAREA ELSE '' END",
                             "+ CASE WHEN ISNULL(LI12_ZONA_MG09,'') <> ''",
                             "THEN '/' + LI12_ZONA_MG09 + '-' + MG09_DESCRZONA ELSE '' END"}},
    .article = "LI12_CODART_MG66",
    .option = "LI12_OPZIONE_MG5E",
    .families = {"LI12_MACROAREA_MG07", "LI12_AREA_MG08", "LI12_ZONA_MG09", "NULL"},
    .joins = {"LEFT OUTER JOIN", "MG07_MACROAREE WITH(NOLOCK)",
              "ON LI12_DITTA_CG18 = MG07_DITTA_CG18", "AND MG07_TIPOCF = 0",
              "AND LI12_MACROAREA_MG07 = MG07_MACROAREA",
              //
              "LEFT OUTER JOIN", "MG08_AREE WITH(NOLOCK)", "ON LI12_DITTA_CG18 = MG08_DITTA_CG18",
              "AND MG08_TIPOCF_MG07 = MG07_TIPOCF", "AND LI12_MACROAREA_MG07 = MG08_MACROAREA_MG07",
              "AND LI12_AREA_MG08 = MG08_AREA",
              //
              "LEFT OUTER JOIN", "MG09_ZONE WITH(NOLOCK)", "ON LI12_DITTA_CG18 = MG09_DITTA_CG18",
              "AND MG09_TIPOCF_MG08 = MG08_TIPOCF_MG07",
              "AND LI12_MACROAREA_MG07 = MG09_MACROAREA_MG08",
              "AND LI12_AREA_MG08 = MG09_AREA_MG08", "AND LI12_ZONA_MG09 = MG09_ZONA"},
    .filter = {"AND LI12_FLGUSODECOR = 0", "AND LI12_FLGVENDACQ = 0",
               "AND LI12_CODICE_CG08 = 'EURO'", validToday},
    .groupBy = {"LI12_DITTA_CG18", "LI12_CODART_MG66", "LI12_OPZIONE_MG5E", "LI12_MACROAREA_MG07",
                "LI12_AREA_MG08", "LI12_ZONA_MG09", "MG07_DESCRMACROAR", "MG08_DESCRAREA",
                "MG09_DESCRZONA"},
};

constexpr DiscountSource categoryList{
    .label = "Lis. art./mct./cat./scat.",
    .table = "LI13_LISTARTCAT",
    .desc1 = article1,
    .desc2 =
        {.form = Form::Expression,
         .alias = "GM61_DESC2",
         .expression = {"rtrim(LI13_MACROCAT_MG10) + '-' + MG10_DESCRMACROCAT",
                        "+ CASE WHEN ISNULL(LI13_CATEG_MG11,'') <> ''",
                        "THEN '/' + LI13_CATEG_MG11 + '-' + MG11_DESCRCAT ELSE '' END",
                        "+ CASE WHEN ISNULL(LI13_SOTTCAT_MG12,'') <> ''",
                        "THEN '/' + LI13_SOTTCAT_MG12 + '-' + MG12_DESCRSOTTOCAT ELSE '' END"}},
    .article = "LI13_CODART_MG66",
    .option = "LI13_OPZIONE_MG5E",
    .families = {"LI13_MACROCAT_MG10", "LI13_CATEG_MG11", "LI13_SOTTCAT_MG12", "NULL"},
    .joins = {"LEFT OUTER JOIN", "MG10_MACROCAT WITH(NOLOCK)",
              "ON LI13_DITTA_CG18 = MG10_DITTA_CG18", "AND MG10_TIPOCF = 0",
              "AND LI13_MACROCAT_MG10 = MG10_MACROCAT",
              //
              "LEFT OUTER JOIN", "MG11_CATEG WITH(NOLOCK)", "ON LI13_DITTA_CG18 = MG11_DITTA_CG18",
              "AND MG11_TIPOCF_MG10 = MG10_TIPOCF", "AND LI13_MACROCAT_MG10 = MG11_MACROCAT_MG10",
              "AND LI13_CATEG_MG11 = MG11_CATEG",
              //
              "LEFT OUTER JOIN", "MG12_SOTTOCAT WITH(NOLOCK)",
              "ON LI13_DITTA_CG18 = MG12_DITTA_CG18", "AND MG12_TIPOCF_MG11 = MG11_TIPOCF_MG10",
              "AND LI13_MACROCAT_MG10 = MG12_MACROCAT_MG11",
              "AND LI13_CATEG_MG11 = MG12_CATEG_MG11", "AND LI13_SOTTCAT_MG12 = MG12_SOTTOCAT"},
    .filter = {"AND LI13_FLGUSODECOR = 0", "AND LI13_FLGVENDACQ = 0",
               "AND LI13_CODICE_CG08 = 'EURO'", validToday},
    .groupBy = {"LI13_DITTA_CG18", "LI13_CODART_MG66", "LI13_OPZIONE_MG5E", "LI13_MACROCAT_MG10",
                "LI13_CATEG_MG11", "LI13_SOTTCAT_MG12", "MG10_DESCRMACROCAT", "MG11_DESCRCAT",
                "MG12_DESCRSOTTOCAT"},
};

constexpr DiscountSource familyList{
    .label = "Lis. cod. parlante",
    .table = "LI33_LISTCODP",
    // The short aliases are meant: a union takes its names from the first branch.
    .desc1 = {.form = Form::FamilyPath, .alias = "DESC1"},
    .desc2 = {.form = Form::Expression, .alias = "DESC2", .expression = {"''"}},
    .article = "NULL",
    .option = "NULL",
    .families = {"LI33_AFAM_MG53", "LI33_ASFAM_MG54", "LI33_AGRUP_MG55", "LI33_ASGRUP_MG56"},
    .filter = {"AND LI33_FLGUSODECOR = 0", "AND LI33_FLGVENDACQ = 0",
               "AND LI33_CODICE_CG08 = 'EURO'", validToday, "AND LI33_INDTIPOLIS = 0 "},
    .groupBy = {"LI33_DITTA_CG18", "LI33_AFAM_MG53", "LI33_ASFAM_MG54", "LI33_AGRUP_MG55",
                "LI33_ASGRUP_MG56"},
};

constexpr DiscountSource rowByRow(DiscountSource source) {
  source.groupBy = {};
  return source;
}

constexpr DiscountSource articleTariffs[] = {articleList, depositList, areaList, categoryList,
                                             familyList};

constexpr DiscountSource customerFamily[] = {{
    .label = "Lis. Cliente / cod. parl.",
    .table = "LI18_LISTCFCODP",
    .customer = "LI18_CLIFOR_CG44",
    .desc1 = {.form = Form::Expression, .alias = "GM61_DESC1", .expression = {"LI18_CLIFOR_CG44"}},
    .desc2 = {.form = Form::FamilyPath, .alias = "GM61_DESC2"},
    .families = {"LI18_AFAM_MG53", "LI18_ASFAM_MG54", "LI18_AGRUP_MG55", "LI18_ASGRUP_MG56"},
    .filter = {"AND LI18_TIPOCF_CG44 = 0 ", "AND LI18_FLGUSODECOR = 0 ", "AND LI18_FLGLIST = 1 ",
               validToday},
    .orderBy = {"GM61_DESCLISTCORVANE ASC", "GM61_CODCLIENTE ASC", "GM61_FAM_MG53 ASC",
                "GM61_SFAM_MG54 ASC", "GM61_GRUPPO_MG55 ASC", "GM61_SGRUPPO_MG56 ASC",
                "GM61_DATAFINE ASC", "GM61_DATAINIZIO DESC"},
    .numberedBy = "LI18_LISTCFCODP.LI18_DITTA_CG18",
}};

constexpr DiscountSource articlesAndFamilies[] = {rowByRow(articleList), rowByRow(familyList)};

// --- discount grids ---------------------------------------------------------

constexpr DiscountSource customerArticleSteps[] = {{
    .label = "Lis. Cli./Art./Scagl. qtà",
    .table = "LI15_LISTARTCFQTA",
    .customer = "LI15_LISTARTCFQTA.LI15_CLIFOR_CG44",
    .desc1 = articleAsStored1,
    .article = "LI15_CODART_MG66",
    .option = "LI15_OPZIONE_MG5E",
    .filter = {"AND LI15_FLGUSODECOR = 0", "AND LI15_CODICE_CG08 = 'EURO'",
               "AND LI15_TIPOCF_CG44 = 0", "AND LI15_FLGLIST = 1", validToday},
    .groupBy = {"LI15_DITTA_CG18", "LI15_CLIFOR_CG44", "LI15_CODART_MG66", "LI15_OPZIONE_MG5E"},
    .orderBy = {"GM61_DESCLISTCORVANE ASC", "GM61_CODCLIENTE ASC", "GM61_CODART_MG66 ASC",
                "GM61_OPZIONE_MG5E ASC"},
    // The read of the steps asks neither for the currency nor for the list flag, on purpose.
    .steps = {.filter = {"AND LI15_FLGUSODECOR = 0 ", "AND LI15_TIPOCF_CG44 = 0 "},
              .keys = {{{.column = "LI15_CLIFOR_CG44",
                         .field = "GM61_CODCLIENTE",
                         .form = StepKey::Form::Number},
                        {.column = "LI15_CODART_MG66", .field = "GM61_CODART_MG66"},
                        {.column = "LI15_OPZIONE_MG5E", .field = "GM61_OPZIONE_MG5E"}}}},
}};

constexpr DiscountSource articleStepsByList{
    .label = "Lis. art./scagl. qtà",
    .table = "LI14_LISTARTQTA",
    .desc1 = articleAsStored1,
    .desc2 = {.form = Form::Expression, .alias = "GM61_DESC2", .expression = {"LI14_NUMLISTUTIL"}},
    .article = "LI14_CODART_MG66",
    .option = "LI14_OPZIONE_MG5E",
    .families = noFamilies,
    .filter = {"AND LI14_FLGUSODECOR = 0", "AND LI14_FLGVENDACQ = 0",
               "AND LI14_CODICE_CG08 = 'EURO'", validToday},
    .groupBy = {"LI14_DITTA_CG18", "LI14_CODART_MG66", "LI14_OPZIONE_MG5E", "LI14_NUMLISTUTIL"},
    .steps = {.filter = {"AND LI14_FLGUSODECOR = 0 ", "AND LI14_FLGVENDACQ = 0 ",
                         "AND LI14_CODICE_CG08 = 'EURO' "},
              .keys = {{{.column = "LI14_CODART_MG66", .field = "GM61_CODART_MG66"},
                        {.column = "LI14_OPZIONE_MG5E", .field = "GM61_OPZIONE_MG5E"},
                        // A stored rule does not keep its list number. The steps of a rule that was
                        // loaded are found without it.
                        {.column = "LI14_NUMLISTUTIL",
                         .field = "GM61_DESC2",
                         .form = StepKey::Form::NumberIfKnown}}}},
};

/// The list number is the last of the columns and of the keys.
constexpr DiscountSource withoutListNumber(DiscountSource source) {
  source.desc2 = noDesc2;
  source.groupBy[3] = {};
  source.steps.keys[2] = {};
  return source;
}

constexpr DiscountSource articleSteps = withoutListNumber(articleStepsByList);

constexpr DiscountSource familySteps{
    .label = "Lis. cod. parlante/scagl. qtà",
    .table = "LI34_LISTCODPQTA",
    .desc1 = path1,
    .desc2 = noDesc2,
    .article = "NULL",
    .option = "NULL",
    .families = {"LI34_FAM_MG53", "LI34_SFAM_MG54", "LI34_GRUP_MG55", "LI34_SGRUP_MG56"},
    .filter = {"AND LI34_FLGUSODECOR = 0", "AND LI34_FLGVENDACQ = 0",
               "AND LI34_CODICE_CG08 = 'EURO'", validToday},
    .groupBy = {"LI34_DITTA_CG18", "LI34_FAM_MG53", "LI34_SFAM_MG54", "LI34_GRUP_MG55",
                "LI34_SGRUP_MG56"},
    .steps = {.filter = {"AND LI34_FLGUSODECOR = 0 ", "AND LI34_FLGVENDACQ = 0 ",
                         "AND LI34_CODICE_CG08 = 'EURO' "},
              .keys = {{{.column = "LI34_FAM_MG53", .field = "GM61_FAM_MG53"},
                        {.column = "LI34_SFAM_MG54", .field = "GM61_SFAM_MG54"},
                        {.column = "LI34_GRUP_MG55", .field = "GM61_GRUPPO_MG55"},
                        {.column = "LI34_SGRUP_MG56", .field = "GM61_SGRUPPO_MG56"}}}},
};

constexpr DiscountSource tariffSteps[] = {articleStepsByList, familySteps};

constexpr DiscountSource customerFamilySteps[] = {{
    .label = "Lis. cli./art./scagl. qtà",
    .table = "LI15_LISTARTCFQTA",
    .customer = "CAST(LI15_CLIFOR_CG44 AS VARCHAR(8))",
    .desc1 = {.form = Form::Expression,
              .alias = "GM61_DESC1",
              .expression = {"CAST(LI15_CLIFOR_CG44 AS VARCHAR(8))"}},
    .desc2 = {.form = Form::FamilyPath,
              .alias = "GM61_DESC2",
              .expression = {" + ' (' + RTRIM(LI15_LISTARTCFQTA.LI15_CODART_MG66) + ')'"}},
    .article = "LI15_CODART_MG66",
    .option = "LI15_OPZIONE_MG5E",
    .families = {"MG66_FAM_MG53", "MG66_SFAM_MG54", "MG66_GRUPPO_MG55", "MG66_SGRUPPO_MG56"},
    .joins = {"INNER JOIN", "MG66_ANAGRART WITH(NOLOCK)", "ON LI15_DITTA_CG18 = MG66_DITTA_CG18",
              "AND LI15_CODART_MG66 = MG66_CODART", "AND LI15_OPZIONE_MG5E = ''"},
    .filter = {"AND LI15_FLGUSODECOR = 0", "AND LI15_TIPOCF_CG44 = 0",
               "AND LI15_CODICE_CG08 = 'EURO'", validToday, "AND ISNULL(MG66_FAM_MG53,'')<>''"},
    .groupBy = {"LI15_DITTA_CG18", "LI15_CLIFOR_CG44", "LI15_CODART_MG66", "LI15_OPZIONE_MG5E",
                "MG66_FAM_MG53", "MG66_SFAM_MG54", "MG66_GRUPPO_MG55", "MG66_SGRUPPO_MG56"},
    .steps = {.filter = {"AND LI15_FLGUSODECOR = 0 ", "AND LI15_TIPOCF_CG44 = 0 ",
                         "AND LI15_CODICE_CG08 = 'EURO' "},
              .keys = {{{.column = "LI15_CLIFOR_CG44",
                         .field = "GM61_CODCLIENTE",
                         .form = StepKey::Form::Number},
                        {.column = "LI15_CODART_MG66", .field = "GM61_CODART_MG66"},
                        {.column = "LI15_OPZIONE_MG5E", .field = "GM61_OPZIONE_MG5E"}}}},
}};

constexpr DiscountSource articleAndFamilySteps[] = {articleSteps, familySteps};

// --- the kinds --------------------------------------------------------------

using Customer = SavedColumns::Customer;

constexpr SavedColumns byCustomer{
    .customer = Customer::FromRow, .families = false, .descriptions = false, .position = false};
constexpr SavedColumns byTariff{
    .customer = Customer::Null, .families = true, .descriptions = false, .position = false};
constexpr SavedColumns byPosition{
    .customer = Customer::Absent, .families = true, .descriptions = true, .position = true};

constexpr std::string_view byLabel = " ORDER BY GM61_DESCLISTCORVANE ASC";
/// The blank at the end is meant.
constexpr std::string_view byLabelAndBlank = " ORDER BY GM61_DESCLISTCORVANE ASC ";

constexpr DiscountKind kinds[] = {
    {.mode = DiscountMode::OnPrice,
     .listType = 1,
     .names = {"CaricaListini_1_A", "AggiornaListini_1_A", "RegistraListini_1_A"},
     .form = StatementForm::Single,
     .sources = customerArticle,
     .saved = byCustomer},
    {.mode = DiscountMode::OnPrice,
     .listType = 2,
     .names = {"CaricaListini_2_A", "AggiornaListini_2_A", "RegistraListini_2_A"},
     .form = StatementForm::Union,
     .sources = articleTariffs,
     .rowsOrder = byLabelAndBlank,
     .saved = byTariff},
    {.mode = DiscountMode::OnPrice,
     .listType = 3,
     .names = {"CaricaListini_3_A", "AggiornaListini_3_A", "RegistraListini_3_A"},
     .form = StatementForm::Single,
     .sources = customerFamily,
     .saved = byCustomer},
    {.mode = DiscountMode::OnPrice,
     .listType = 4,
     .names = {"CaricaListini_4_A", "AggiornaListini_4_A", "RegistraListini_4_A"},
     .form = StatementForm::Union,
     .sources = articlesAndFamilies,
     .rowsOrder = byLabel,
     .saved = byPosition},
    {.mode = DiscountMode::Grid,
     .listType = 1,
     .names = {"CaricaListini_1_B", "AggiornaListini_1_B", "RegistraListini_1_B"},
     .form = StatementForm::Single,
     .sources = customerArticleSteps,
     .saved = byCustomer},
    {.mode = DiscountMode::Grid,
     .listType = 2,
     .names = {"CaricaListini_2_B", "AggiornaListini_2_B", "RegistraListini_2_B"},
     .form = StatementForm::Union,
     .sources = tariffSteps,
     .rowsOrder = byLabel,
     .saved = byTariff},
    {.mode = DiscountMode::Grid,
     .listType = 3,
     .names = {"CaricaListini_3_B", "AggiornaListini_3_B", "RegistraListini_3_B"},
     .form = StatementForm::Wrapped,
     .sources = customerFamilySteps,
     .rowsOrder = byLabel,
     .saved = byCustomer},
    {.mode = DiscountMode::Grid,
     .listType = 4,
     .names = {"CaricaListini_4_B", "AggiornaListini_4_B", "RegistraListini_4_B"},
     .form = StatementForm::Union,
     .sources = articleAndFamilySteps,
     .rowsOrder = byLabel,
     .saved = byPosition},
};

}  // namespace

std::span<const DiscountKind> discountKinds() {
  return kinds;
}

const DiscountKind& discountKind(DiscountMode mode, std::int32_t listType) {
  for (const DiscountKind& kind : kinds) {
    if (kind.mode == mode && kind.listType == listType) return kind;
  }
  throw std::out_of_range("no such kind of discount rules");
}

const DiscountSource& sourceOf(const DiscountKind& kind, std::string_view label) {
  const auto found = std::ranges::find(kind.sources, label, &DiscountSource::label);
  return found == kind.sources.end() ? kind.sources.front() : *found;
}

}  // namespace kebu::sql
