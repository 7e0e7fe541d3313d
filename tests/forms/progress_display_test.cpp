#include "forms/anagrafica/progress_display.h"

#include <gtest/gtest.h>

#include <set>

#include "controls/simple_controls.h"
#include "tests/support/test_workplace.h"

namespace kebu::forms {
namespace {

// Whatever lasts shows that it runs, and for how long it does.
TEST(ProgressDisplay, IsSeenDuringEveryLongActionAndNotAfterwards) {
  tests::TestWorkplace workplace;
  workbench::ModelHands& hands = workplace.hands();
  const auto pressing = [&](const char* button) {
    return [&hands, button](controls::Form&) { hands.clickButton(button); };
  };
  workplace.open();
  controls::Form& window = *workplace.desktop().front();
  auto& bar = *controls::as<controls::ProgressBar>(*window.find("PBAR"));
  auto& status = *controls::as<controls::StatusBar>(*window.find("STATUSBAR"));
  std::set<std::string> told;
  bool hadShare = false;
  const auto telling = bar.changed.connect([&] {
    if (bar.isRunning() && bar.isShown()) told.insert(bar.text() + " " + status.panels()[1]);
    hadShare |= bar.isRunning() && bar.percent().has_value();
  });

  const struct {
    std::function<void()> act;
    const char* told;
    bool isInStatusBar = true;
    bool hasShare = false;
  } actions[] = {
      {[&] { hands.clickButton("BTN_AGGLISTINI"); }, "", false},
      {[&] { hands.openPage(8); }, "Caricamento articoli in corso..."},
      {[&] {
         hands.openPage(12);
         hands.choose("CMB_LISTINISCONTO", "1");
       },
       "Caricamento listini in corso..."},
      {[&] { hands.clickButton("CMD_AGGIORNA"); }, "Aggiornamento listini in corso..."},
      {[&] {
         hands.tick("CHK_SCONTOPREZZOART", true);
         hands.tickAll("QGRID_SCONTOSUPREZZO", "GM61_ATTIVA", true);
       },
       "Seleziona/deseleziona in corso..."},
      {[&] { hands.press("INAV_PAR", "Conferma"); }, "Registrazione listini in corso...", true,
       true},
      {[&] {
         workplace.user().inModalWindow = pressing("CMD_CHIUDI");
         hands.clickButton("BTN_RIEPILOGO");
       },
       "Lettura del riepilogo in corso..."},
  };
  workplace.user().inModalWindow = pressing("CMD_OK");
  hands.openPage(2);
  for (const auto& action : actions) {
    SCOPED_TRACE(action.told);
    told.clear();
    hadShare = false;
    bool wasAnimated = false;
    const auto looking = status.changed.connect([&] { wasAnimated |= status.isAnimated(); });
    action.act();
    EXPECT_TRUE(told.contains(std::string("Aggiornamento in corso... ") + action.told))
        << testing::PrintToString(told);
    EXPECT_EQ(wasAnimated, action.isInStatusBar);
    EXPECT_EQ(hadShare, action.hasShare);
    EXPECT_FALSE(bar.isRunning());
    EXPECT_FALSE(bar.isVisible());
    EXPECT_FALSE(status.isAnimated());
  }
  workplace.close();
}

}  // namespace
}  // namespace kebu::forms
