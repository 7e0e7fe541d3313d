#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "controls/query_grid.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/progress_display.h"
#include "forms/changes/grid_changes.h"
#include "forms/page_context.h"
#include "forms/page_load.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// The ten price slots of the profile: which ERP price list each published
/// price comes from. Edited in a working table, saved with the profile.
class PriceListsPage : public Page {
 public:
  PriceListsPage(PageContext& context, ProgressDisplay& progress);

  controls::GroupBox GRP_LISTINI{"GRP_LISTINI", "Listini da pubblicare"};
  controls::QueryGrid QGRID_LISTINI;
  controls::GroupBox GRP_AGGLISTINI{"GRP_AGGLISTINI", "Aggiornamento prezzi"};
  controls::Button BTN_AGGLISTINI{"BTN_AGGLISTINI", "Aggiorna prezzi"};

  void place(PageGroups& groups) override;
  void release() override { QGRID_LISTINI.setDataSource(nullptr); }

  void setWorkingTable(const std::string& name) { workingTable_ = name; }
  const std::string& workingTable() const { return workingTable_; }
  void ImpostaQGRID_Listini();
  /// Gives the current profile its slots, fills the working table and shows it.
  void ImpostaRstListini();
  /// Writes the working table to the profile's slots and switches incomplete ones off.
  /// Whether both were done.
  bool ConfermaModificheListini();
  /// Adds what ConfermaModificheListini would do to the profile's slots.
  void addChanges(PlannedChanges& changes);
  /// Adds the slots that a new profile gets.
  void addNewSlots(PlannedChanges& changes) const;
  /// How many slots are published.
  std::int32_t activeCount() { return QGRID_LISTINI.tickedRows("GM57_FLGATTIVO"); }
  /// Says what the active slots do not publish.
  void refreshNotices();
  /// Whether the parameters say that prices are managed.
  std::function<bool()> arePricesManaged;

 private:
  /// False when it was left by Abort.
  bool InizializzaListiniPrezzi();
  bool CreaTabellaListini();
  void FormattaRecordListini(std::int32_t type);
  std::string GetStringaSqlLookup(std::int32_t type);
  void QGRID_LISTINI_OnEditing(const std::string& field, bool& cancel);
  void QGRID_LISTINI_OnEdited(const std::string& field);
  /// QGRID_LISTINI_SelectionBoxClick and QGRID_LISTINI_SelectAllClickEXT.
  void flagClicked(const char* name, const std::string& field);
  void QGRID_LISTINI_StartLookup(const std::string& field, Value& code);
  void QGRID_LISTINI_DataFormatEXT(std::int32_t row, const std::string& field, std::string& text);
  void BTN_AGGLISTINI_ButtonClick();

  // Of a row of the grid.
  std::int32_t typeOf(std::int32_t row);
  bool isActive(std::int32_t row);
  /// Whether the key that its type needs is given.
  bool hasKey(std::int32_t row);
  Value stateOf(std::int32_t row);
  /// Whether a save switches the slot off: it has no key.
  bool isSwitchedOff(std::int32_t row);
  /// Shows the slots as inactive that a save has switched off.
  void showSwitchedOff();

  std::int32_t currentType(Procedure& p);
  /// The list from which the code of a column is chosen; nothing for a column without one.
  std::optional<host::LookupDefinition> lookupOf(std::string_view field, Procedure& p);
  std::string describe(std::string_view field, std::int32_t type, const std::string& code);

  PageContext& context_;
  ProgressDisplay& progress_;
  PageLoad load_;
  std::string workingTable_;
  StoredRows stored_;
  /// The type of the row whose type cell is being edited.
  std::int32_t typeBefore_ = 0;
  /// Descriptions read so far, by the statement that reads them.
  std::map<std::string, std::string> descriptions_;
};

}  // namespace kebu::forms
