#include <gtest/gtest.h>

#include <algorithm>

#include "common/convert.h"
#include "common/error.h"
#include "controls/query_grid.h"
#include "controls/simple_controls.h"
#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

using tests::TestWorkplace;

constexpr std::int32_t articles = 8;
constexpr std::int32_t customers = 9;

class PreviewPageTest : public testing::Test {
 protected:
  PreviewPageTest() {
    workplace.user().inModalWindow = [this](controls::Form&) {
      workplace.hands().clickButton("CMD_OK");
    };
    workplace.open();
  }
  ~PreviewPageTest() override { workplace.close(); }

  template <class Kind>
  Kind& find(const char* name) {
    return *controls::as<Kind>(*workplace.desktop().front()->find(name));
  }
  void show(std::int32_t view) { workplace.hands().openPage(view); }

  TestWorkplace workplace;
};

// A misspelt field would show as a column that is always empty.
TEST_F(PreviewPageTest, EveryColumnShowsAFieldOfItsView) {
  auto& grid = find<controls::QueryGrid>("QGRID_ART");
  const std::pair<std::int32_t, std::size_t> previews[] = {{articles, 40}, {customers, 21}};
  for (const auto& [view, columns] : previews) {
    show(view);
    EXPECT_EQ(grid.columns().size(), columns);
    const auto& fields = grid.dataSource()->fields();
    for (const auto& column : grid.columns()) {
      EXPECT_TRUE(std::any_of(fields.begin(), fields.end(), [&](const ado::Field& field) {
        return equalsIgnoringCase(field.name, column.field);
      })) << column.field;
      EXPECT_FALSE(isChangeable(column.kind)) << column.field;
    }
  }
}

TEST_F(PreviewPageTest, PricesFollowEachOtherSlotBySlot) {
  show(articles);
  std::string captions;
  for (const auto& column : find<controls::QueryGrid>("QGRID_ART").columns()) {
    captions += column.field + "=" + column.caption + ";";
  }
  EXPECT_NE(captions.find("MG87_OPZIONE_MG5E=Variante;MG87_OPZIONE_MG5E=Variante;Nome=Nome;"),
            std::string::npos);
  EXPECT_NE(captions.find("QuantitaInStock=Giancenza;Prezzo1=Prezzo 1;PrezzoBarrato1=PrezzoBarrato "
                          "1;IvaInclusa1=IvaInclusa 1;Prezzo2=Prezzo 2;"),
            std::string::npos);
  EXPECT_NE(captions.find("IvaInclusa10=IvaInclusa 10;UltimaModifica=Ultima modifica;"),
            std::string::npos);
}

// While the rows are read the user is told so, and not afterwards, whatever came of it.
TEST_F(PreviewPageTest, TellsThatItIsAtWork) {
  const auto& status = find<controls::StatusBar>("STATUSBAR");
  const auto& bar = find<controls::ProgressBar>("PBAR");
  std::string told;
  const auto telling = find<controls::ProgressBar>("PBAR").changed.connect([&] {
    if (bar.isRunning()) told = status.panels()[1];
  });
  show(customers);
  EXPECT_EQ(told, "Caricamento clienti in corso...");
  EXPECT_FALSE(bar.isRunning());
  EXPECT_EQ(status.panels()[1], "");

  workplace.company().session().execute("DROP VIEW VGM19_KBWSPRODUCTS_KELMORIA");
  show(articles);
  EXPECT_EQ(told, "Caricamento articoli in corso...");
  EXPECT_EQ(workplace.user().boxes.size(), 1U);
  EXPECT_FALSE(bar.isRunning());
  EXPECT_EQ(status.panels()[1], "");
  EXPECT_EQ(find<controls::QueryGrid>("QGRID_ART").rowCount(), 0);
}

}  // namespace
}  // namespace kebu::forms
