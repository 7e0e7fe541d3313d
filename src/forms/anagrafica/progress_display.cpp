#include "forms/anagrafica/progress_display.h"

namespace kebu::forms {

namespace {

constexpr const char* usualText = "Aggiornamento in corso...";
constexpr std::size_t panels = 2;
constexpr std::size_t messagePanel = 2;

}  // namespace

ProgressDisplay::ProgressDisplay(PageContext& context, const ProgressSurroundings& around)
    : PBAR("PBAR"), STATUSBAR("STATUSBAR", panels), context_(context), around_(around) {}

void ProgressDisplay::InizializzaProgressAnimation() {
  procedure(context_, "InizializzaProgressAnimation", [&](Procedure& p) {
    PBAR.setAnimated(true);
    p.step([&] { PBAR.setText(context_.translate(usualText)); });
    PBAR.setKeepsText(false);
    PosizionaProgressBar();
  });
}

void ProgressDisplay::PosizionaProgressBar() {
  procedure(context_, "PosizionaProgressBar", [&](Procedure&) {
    // Centred over the page, at the height of the navigator bar.
    const auto bar = PBAR.size();
    PBAR.moveTo(around_.sideBar.size().width + (around_.page.size().width - bar.width) / 2,
                (around_.navigatorBar.size().height - bar.height) / 2);
  });
}

void ProgressDisplay::MostraAvanzamento(bool show, const std::string& message) {
  procedure(context_, "MostraAvanzamento", [&](Procedure& p) {
    if (show) {
      PosizionaProgressBar();
      PBAR.bringToFront();
      p.step([&] { PBAR.setText(message.empty() ? context_.translate(usualText) : message); });
      PBAR.start();
    } else {
      PBAR.stop();
    }
    p.step([&] { context_.desktop().repaint(); });
  });
}

void ProgressDisplay::ImpostaMessaggioStato(const std::string& message, bool show) {
  procedure(context_, "ImpostaMessaggioStato", [&](Procedure& p) {
    const std::string text = p.step([&] { return context_.translate(message); });
    STATUSBAR.setPanelText(messagePanel, text);
    context_.services.showInHostStatusBar(messagePanel, text);
    STATUSBAR.setAnimated(show);
    MostraAvanzamento(show);
  });
}

bool ProgressDisplay::during(const ProcedureName& called, const char* message,
                             const std::function<void(Procedure&)>& body) {
  const controls::Work working(context_.desktop());
  const bool done = procedure(context_, called, [&](Procedure& p) {
    ImpostaMessaggioStato(message, true);
    body(p);
    ImpostaMessaggioStato("Pronto", false);
    return true;
  });
  if (done) return true;
  STATUSBAR.setAnimated(false);
  MostraAvanzamento(false);
  return false;
}

void ProgressDisplay::expect(std::int32_t total) {
  PBAR.setMaximum(total);
}

void ProgressDisplay::advance(std::int32_t done) {
  if (PBAR.setPosition(done)) context_.desktop().repaint();
}

}  // namespace kebu::forms
