#include "forms/selection/selection_dialog.h"

#include <gtest/gtest.h>

#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

using tests::TestWorkplace;

class CallingWindow : public controls::Form {
 public:
  explicit CallingWindow(controls::Desktop& desktop) : Form("FRM_CALLER", desktop) {}
};

/// A window that calls the dialogs, on company 1.
class SelectionDialogTest : public testing::Test {
 protected:
  SelectionDialogTest() {
    workplace.open();
    const Ref<host::ClsGlobal> global = workplace.plugin()->ClsGlobal();
    services.setHost(workplace.plugin());
    services.setLog(global->CreateLog());
    context.connection = workplace.newConnection();
    context.connection->Open();
    context.company = global->CompanyCode();
    context.hostServices.decodes = global->CreateSqlDecode();
    context.hostServices.lookups = global->CreateLookups();
    context.hostServices.savedFilters = global->CreateSavedFilters();
  }
  ~SelectionDialogTest() override { workplace.close(); }

  workbench::ModelHands& hands() { return workplace.hands(); }

  TestWorkplace workplace;
  CallingWindow window{workplace.runtime().desktop};
  Services services{workplace.runtime().platform, window};
  controls::RecordFrame frame{"FME", services};
  PageContext context{workplace.runtime(), services, frame};
  SelectionCaller caller{context, {}, false};
};

TEST_F(SelectionDialogTest, OkHandsTheConditionOver) {
  struct Case {
    void (*show)(SelectionCaller&);
    const char* dialog;
    const char* editor;
    std::size_t fields;
    const char* firstBox;
    const char* description;
    const char* filter;
  };
  const Case cases[] = {
      {VisualizzaFiltroArticoli, "FRMKB_SELMULTIART", "ENHQUERY_LIMITI", 12, "ENHQUERY_LIMITI(2)",
       "Vernici", " AND (MG66_FAM_MG53 = 'VER') "},
      {VisualizzaFiltroClienti, "FRMKB_SELMULTICLI", "ENHQUERY", 16, "ENHQUERY(11)", "Rivenditori",
       " AND (MG19_MACROCAT = 'RIV')"},
  };
  for (const Case& each : cases) {
    SCOPED_TRACE(each.dialog);
    caller.isFilterObtained = false;
    const auto uses = context.connection.shared().use_count();
    workplace.user().inModalWindow = [&](controls::Form& form) {
      EXPECT_EQ(form.Name(), each.dialog);
      EXPECT_TRUE(form.find(each.editor)->isShown());
      EXPECT_EQ(form.find("VLT_RESIZEFORM1") != nullptr, each.editor == std::string("ENHQUERY"));
      EXPECT_EQ(workplace.editor(each.editor).fieldCount(), each.fields);
      form.activate();
      EXPECT_EQ(workplace.editor(each.editor).fieldCount(), each.fields) << "declared once";
      const std::string row = each.firstBox;
      hands().type(row + ".VALORE1", each.editor == std::string("ENHQUERY") ? "RIV" : "VER");
      EXPECT_EQ(hands().value(row + ".DESCRIZIONE1"), each.description);
      hands().clickButton(std::string(each.editor) + ".CONTA");
      EXPECT_NE(hands().value(std::string(each.editor) + ".ESITO"), "");
      hands().clickButton("CMD_OK");
      EXPECT_FALSE(form.isLoaded());
      EXPECT_EQ(context.connection.shared().use_count(), uses)
          << "a closed dialog holds it no more";
    };
    each.show(caller);
    EXPECT_TRUE(caller.isFilterObtained);
    EXPECT_EQ(caller.filterText, each.filter);
    const std::string name = each.dialog;
    EXPECT_NE(workplace.trace().find("|INI|KEBU_ANAGRAFICA|" + name), std::string::npos);
    EXPECT_NE(workplace.trace().find("|TER|" + std::string("KEBU_ANAGRAFICA|") + name),
              std::string::npos)
        << "a dialog ends with its closing\n"
        << workplace.trace();
  }
  EXPECT_TRUE(workplace.user().boxes.empty());
}

TEST_F(SelectionDialogTest, TheEditorOfArticlesIsHiddenUntilItIsPrepared) {
  FRMKB_SELMULTIART dialog(caller);
  EXPECT_FALSE(dialog.find("ENHQUERY_LIMITI")->isVisible());
}

TEST_F(SelectionDialogTest, CancellingLeavesTheCallerAsItWas) {
  for (auto* const show : {VisualizzaFiltroArticoli, VisualizzaFiltroClienti}) {
    workplace.user().inModalWindow = [&](controls::Form& form) {
      hands().type(form.find("ENHQUERY") ? "ENHQUERY(2).VALORE1" : "ENHQUERY_LIMITI(2).VALORE1",
                   "x");
      hands().clickButton("CMD_ANNULLA");
      EXPECT_FALSE(form.isLoaded());
    };
    show(caller);
    EXPECT_FALSE(caller.isFilterObtained);
    EXPECT_EQ(caller.filterText, "");
  }
}

TEST_F(SelectionDialogTest, NothingStatedIsAFilterTooAndNothingIsRemembered) {
  context.hostServices.savedFilters->Save("KB_ART", "Filtro articoli Tarvo",
                                          "ENHQUERY 1\nMG66_FAM_MG53\t=\tVER", true);
  for (auto* const show : {VisualizzaFiltroArticoli, VisualizzaFiltroClienti}) {
    caller.isFilterObtained = false;
    workplace.user().inModalWindow = [&](controls::Form&) { hands().clickButton("CMD_OK"); };
    show(caller);
    EXPECT_TRUE(caller.isFilterObtained);
    EXPECT_EQ(caller.filterText, "");
  }
}

TEST_F(SelectionDialogTest, TheEditorOfCustomersFollowsTheWindow) {
  workplace.user().inModalWindow = [&](controls::Form& form) {
    const auto* const manager =
        controls::as<controls::ResizeManager>(*form.find("VLT_RESIZEFORM1"));
    ASSERT_EQ(manager->registrations().size(), 1U);
    EXPECT_EQ(manager->registrations()[0].control, "ENHQUERY");
    EXPECT_EQ(manager->registrations()[0].rule, 1 + 2 + 4 + 8);
    hands().clickButton("CMD_ANNULLA");
  };
  VisualizzaFiltroClienti(caller);
  EXPECT_FALSE(caller.isFilterObtained);
}

TEST_F(SelectionDialogTest, ARangeTheWrongWayRoundKeepsTheDialogOpen) {
  workplace.user().inModalWindow = [&](controls::Form& form) {
    hands().choose("ENHQUERY(1).OPERATORE", "between");
    hands().type("ENHQUERY(1).VALORE1", "9");
    hands().type("ENHQUERY(1).VALORE2", "1");
    hands().clickButton("CMD_OK");
    EXPECT_TRUE(form.isLoaded());
    EXPECT_EQ(workplace.user().boxes.size(), 1U);
    hands().clickButton("CMD_ANNULLA");
  };
  VisualizzaFiltroClienti(caller);
  EXPECT_FALSE(caller.isFilterObtained);
}

TEST_F(SelectionDialogTest, AMissingServiceIsToldUnderTheProceduresName) {
  context.hostServices.lookups.reset();
  workplace.user().inModalWindow = [&](controls::Form&) {
    hands().lookup("ENHQUERY_LIMITI(2).VALORE1");
    hands().clickButton("CMD_ANNULLA");
  };
  VisualizzaFiltroArticoli(caller);
  ASSERT_EQ(workplace.user().boxes.size(), 1U);
  EXPECT_NE(workplace.user().boxes[0].text.find("ENHQUERY_LIMITI_StartLookup"), std::string::npos);
}

}  // namespace
}  // namespace kebu::forms
