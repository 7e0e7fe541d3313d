#pragma once

#include "controls/form.h"
#include "controls/notice_list.h"
#include "controls/query_grid.h"
#include "controls/simple_controls.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// A modal dialog that lists what "Conferma" would change. It changes nothing itself.
class FRMKB_MODIFICHE : public controls::Form {
 public:
  FRMKB_MODIFICHE(PageContext& context, const PlannedChanges& changes);
  ~FRMKB_MODIFICHE() override { leaveScreen(); }

 private:
  void describe(const PlannedChanges& changes);
  void list(const PlannedChanges& changes);

  PageContext& context_;
  controls::NoticeList notes_{"AVVISI_MODIFICHE"};
  controls::Label LBL_MODIFICHE{"LBL_MODIFICHE"};
  controls::QueryGrid QGRID_MODIFICHE;
  controls::Button CMD_CHIUDI{"CMD_CHIUDI", "Chiudi"};
};

/// Shows the list; returns when the dialog is closed.
void showChanges(PageContext& context, const PlannedChanges& changes);

}  // namespace kebu::forms
