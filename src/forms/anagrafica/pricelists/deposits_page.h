#pragma once

#include <string>

#include "controls/query_grid.h"
#include "forms/anagrafica/page.h"
#include "forms/changes/grid_changes.h"
#include "forms/page_context.h"
#include "forms/page_load.h"

namespace kebu::forms {

/// The deposits whose stock is published, one of them preferred for article
/// costs. Edited in a working table, saved with the profile.
class DepositsPage : public Page {
 public:
  explicit DepositsPage(PageContext& context);

  controls::GroupBox GRP_DEP{"GRP_DEP", "Depositi da pubblicare"};
  controls::QueryGrid QGRID_DEP;

  void place(PageGroups& groups) override;
  void release() override { QGRID_DEP.setDataSource(nullptr); }

  void setWorkingTable(const std::string& name) { workingTable_ = name; }
  const std::string& workingTable() const { return workingTable_; }
  void ImpostaQGRID_DEP();
  /// Fills the working table for the current profile and shows it.
  void ImpostaRstDepositi();
  /// Writes the working table to the profile's deposits; whether it was written.
  bool ConfermaModificheDepositi();
  /// Adds what ConfermaModificheDepositi would do.
  void addChanges(PlannedChanges& changes);
  /// How many deposits are published.
  std::int32_t activeCount() { return QGRID_DEP.tickedRows("FLG_ATTIVO"); }

 private:
  /// Whether the working table was made.
  bool CreaTabellaDepositi();
  bool CheckPredefinito();
  void CambiaPredefinito();
  void QGRID_DEP_SelectionBoxClick(const std::string& field, bool& cancel);
  void QGRID_DEP_SelectAllClickEXT(const std::string& field, bool selecting, bool& cancel);

  PageContext& context_;
  PageLoad load_;
  std::string workingTable_;
  StoredRows stored_;
};

}  // namespace kebu::forms
