#include "workbench/host/translations.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kebu::workbench {
namespace {

TEST(Translations, TextsPassUnlessTheyAreTranslated) {
  const auto texts = Translations::parse(
      "\xEF\xBB\xBF"
      "Conferma\tConfirm\r\n\r\nAttenzione, \tBeware, \nAnnulla\t\n");
  EXPECT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts.translate("Conferma"), "Confirm");
  EXPECT_EQ(texts.translate("conferma"), "conferma");
  EXPECT_EQ(texts.translate("Attenzione, "), "Beware, ");
  EXPECT_EQ(texts.translate("Attenzione,"), "Attenzione,");
  EXPECT_EQ(texts.translate("Annulla"), "");
  EXPECT_EQ(texts.translate("Elimina"), "Elimina");
}

TEST(Translations, NamesTheLineThatIsNoTranslation) {
  for (const char* wrong : {"Conferma\tConfirm\nAnnulla\n", "Conferma\tConfirm\na\tb\tc"}) {
    try {
      Translations::parse(wrong);
      FAIL() << wrong;
    } catch (const std::runtime_error& error) {
      EXPECT_EQ(std::string(error.what()).substr(0, 3), "2: ") << error.what();
    }
  }
}

}  // namespace
}  // namespace kebu::workbench
