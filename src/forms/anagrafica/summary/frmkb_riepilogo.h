#pragma once

#include "common/instance_trace.h"
#include "controls/form.h"
#include "controls/sheet.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/summary/summary_reader.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// "Riepilogo": a modal window with what the profile publishes and what is to be looked at.
class FRMKB_RIEPILOGO : public controls::Form {
 public:
  explicit FRMKB_RIEPILOGO(SummaryReader& reader);
  ~FRMKB_RIEPILOGO() override;

  controls::Sheet SHEET_RIEPILOGO{"SHEET_RIEPILOGO", "Riepilogo"};
  controls::Button CMD_COPIA{"CMD_COPIA", "Copia"};
  controls::Button CMD_SALVA{"CMD_SALVA", "Salva..."};
  controls::Button CMD_AGGIORNA{"CMD_AGGIORNA", "Aggiorna"};
  controls::Button CMD_CHIUDI{"CMD_CHIUDI", "Chiudi"};

  /// Reads the summary again.
  void refreshPage() override;
  std::string guidePage() const override { return "riepilogo"; }

 protected:
  void Form_Load() override;

 private:
  void CMD_SALVA_ButtonClick();

  InstanceTrace trace_;
  SummaryReader& reader_;
  PageContext& context_;
};

/// Opens the summary, and returns when it is closed.
void VisualizzaRiepilogo(SummaryReader& reader);

}  // namespace kebu::forms
