#include "forms/anagrafica/progress_display.h"

namespace kebu::forms {

namespace {

constexpr const char* usualText = "Aggiornamento in corso...";
constexpr std::size_t panels = 2;
constexpr std::size_t messagePanel = 2;

}  // namespace

ProgressDisplay::ProgressDisplay(Services& services, controls::Desktop& desktop,
                                 const ProgressSurroundings& around)
    : PBAR("PBAR"),
      STATUSBAR("STATUSBAR", panels),
      services_(services),
      desktop_(desktop),
      around_(around) {}

void ProgressDisplay::InizializzaProgressAnimation() {
  trap(services_, "InizializzaProgressAnimation", [&](Steps& step) {
    step([&] { PBAR.setAnimated(true); });
    step([&] { PBAR.setText(services_.TranslateString(usualText)); });
    step([&] { PBAR.setKeepsText(false); });
    PosizionaProgressBar();
  });
}

void ProgressDisplay::PosizionaProgressBar() {
  trap(services_, "PosizionaProgressBar", [&](Steps& step) {
    step([&] {
      // Centred over the page, at the height of the navigator bar.
      const auto bar = PBAR.size();
      PBAR.moveTo(around_.sideBar.size().width + (around_.page.size().width - bar.width) / 2,
                  (around_.navigatorBar.size().height - bar.height) / 2);
    });
  });
}

void ProgressDisplay::MostraAvanzamento(bool show, const std::string& message) {
  trap(services_, "MostraAvanzamento", [&](Steps& step) {
    if (show) {
      PosizionaProgressBar();
      step([&] { PBAR.bringToFront(); });
      step([&] { PBAR.setText(message.empty() ? services_.TranslateString(usualText) : message); });
      step([&] { PBAR.start(); });
    } else {
      step([&] { PBAR.stop(); });
    }
    step([&] { desktop_.repaint(); });
  });
}

void ProgressDisplay::ImpostaMessaggioStato(const std::string& message, bool show) {
  trap(services_, "ImpostaMessaggioStato", [&](Steps& step) {
    const std::string text = step([&] { return services_.TranslateString(message); });
    step([&] { STATUSBAR.setPanelText(messagePanel, text); });
    step([&] {
      // The host's own bar shows the same, where it has one.
      const Ref<host::StatusBar> bar = services_.host() ? services_.host()->StatusBar() : nullptr;
      if (bar) bar->SetPanelText(messagePanel, text);
    });
    step([&] { STATUSBAR.setAnimated(show); });
    MostraAvanzamento(show);
  });
}

void ProgressDisplay::during(const std::string& procedure, const char* message,
                             const std::function<void(Steps&)>& body) {
  const bool done = trap(services_, procedure, [&](Steps& step) {
    ImpostaMessaggioStato(message, true);
    body(step);
    ImpostaMessaggioStato("Pronto", false);
    return true;
  });
  if (done) return;
  STATUSBAR.setAnimated(false);
  MostraAvanzamento(false);
}

void ProgressDisplay::expect(std::int32_t total) {
  PBAR.setMaximum(total);
}

void ProgressDisplay::advance(std::int32_t done) {
  if (PBAR.setPosition(done)) desktop_.repaint();
}

}  // namespace kebu::forms
