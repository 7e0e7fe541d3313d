#include "forms/anagrafica/summary/frmkb_riepilogo.h"

#include <memory>

#include "forms/anagrafica/summary/summary.h"

namespace kebu::forms {

FRMKB_RIEPILOGO::FRMKB_RIEPILOGO(SummaryReader& reader)
    : Form("FRMKB_RIEPILOGO", reader.context().desktop()),
      trace_(reader.context().runtime().platform, "FRMKB_RIEPILOGO"),
      reader_(reader),
      context_(reader.context()) {
  trace_.initialized();
  addAll(SHEET_RIEPILOGO, CMD_COPIA, CMD_SALVA, CMD_AGGIORNA, CMD_CHIUDI);
  CMD_COPIA.setKey("Ctrl+C");
  CMD_SALVA.setKey("Ctrl+S");
  CMD_AGGIORNA.setKey("F5");
  CMD_CHIUDI.setCancel(true);
  CMD_COPIA.ButtonClick.on([this] { SHEET_RIEPILOGO.copy(); });
  CMD_SALVA.ButtonClick.on([this] { CMD_SALVA_ButtonClick(); });
  CMD_AGGIORNA.ButtonClick.on([this] { refreshPage(); });
  CMD_CHIUDI.ButtonClick.on([this] { Unload(); });
}

FRMKB_RIEPILOGO::~FRMKB_RIEPILOGO() {
  leaveScreen();
  ignoringErrors([&] { trace_.terminated(); });
}

// The window appears when its lines are there.
void FRMKB_RIEPILOGO::Form_Load() {
  procedure(context_, "Form_Load", [&](Procedure& p) {
    const auto translator = [this](const std::string& text) { return context_.translate(text); };
    p.step([&] {
      translate(translator);
      setCaption(SHEET_RIEPILOGO.caption());
    });
  });
  refreshPage();
}

void FRMKB_RIEPILOGO::refreshPage() {
  const Summary summary = reader_.read();
  SHEET_RIEPILOGO.setLines(
      linesOf(summary, [this](const std::string& text) { return context_.translate(text); }));
}

void FRMKB_RIEPILOGO::CMD_SALVA_ButtonClick() {
  procedure(context_, "CMD_SALVA_ButtonClick",
            [&](Procedure& p) { p.step([&] { SHEET_RIEPILOGO.save(); }); });
}

void VisualizzaRiepilogo(SummaryReader& reader) {
  procedure(reader.context(), "VisualizzaRiepilogo", [&](Procedure& p) {
    const auto dialog = std::make_shared<FRMKB_RIEPILOGO>(reader);
    p.step([&] { dialog->Show(true); });
  });
}

}  // namespace kebu::forms
