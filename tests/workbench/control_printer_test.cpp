#include "workbench/player/control_printer.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "tests/workbench/sample_form.h"
#include "workbench/player/model_hands.h"

namespace kebu::workbench {
namespace {

class ControlPrinterTest : public testing::Test {
 protected:
  ControlPrinterTest() { form->Show(false); }

  std::string printed(const std::string& control) {
    std::ostringstream out;
    printControl(out, hands.look(control, {}));
    return out.str();
  }

  AbsentUser user;
  ModelDesktop desktop{user};
  ModelHands hands{desktop};
  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>(desktop);
};

TEST_F(ControlPrinterTest, AGroupPrintsItsControlsBeneathEachOther) {
  form->box.setEnabled(false);
  EXPECT_EQ(printed("GRP_BOXES"),
            "GRP_BOXES   \"Dati\"                        enabled, visible\n"
            "  TXT_CODE  \"Codice\"    = 010             disabled, visible\n"
            "  TXT_PWD   \"Password\"  = *******         enabled, visible, masked, read-only\n"
            "  CMB_KIND  \"Tipo\"      = 2: Disponibile  enabled, visible\n"
            "  CHK_FLAG  \"Attivo\"    = [ ]             enabled, visible\n");
}

TEST_F(ControlPrinterTest, AMaskedTextIsNeverPrinted) {
  for (const char* control : {"TXT_PWD", "GRP_BOXES", "FRM_SAMPLE"}) {
    EXPECT_EQ(printed(control).find("segreto"), std::string::npos) << control;
  }
}

TEST_F(ControlPrinterTest, ABarPrintsItsButtonsStates) {
  EXPECT_EQ(printed("INAV_MAIN"),
            "INAV_MAIN     enabled, visible\n"
            "  - Conferma  enabled\n"
            "  - Annulla   disabled\n");
}

TEST_F(ControlPrinterTest, AWindowPrintsWhatCanBeSeen) {
  const std::string text = printed("FRM_SAMPLE");
  EXPECT_NE(text.find("at 0, 0"), std::string::npos);
  EXPECT_NE(text.find("1: Parametri"), std::string::npos);
  EXPECT_NE(text.find("TXT_CODE"), std::string::npos);
  EXPECT_NE(text.find("\"Pronto\""), std::string::npos);
  EXPECT_EQ(text.find("LBL_HIDDEN"), std::string::npos);
}

}  // namespace
}  // namespace kebu::workbench
