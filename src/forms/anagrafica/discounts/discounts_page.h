#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/discounts/discount_grid.h"
#include "forms/anagrafica/discounts/discount_options.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/progress_display.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"
#include "forms/page_load.h"
#include "forms/procedure.h"
#include "sql/discount_kinds.h"

namespace kebu::forms {

/// The discount rules of the company: candidates from the ERP's price lists for
/// one list type at a time, in two modes, of which the ticked ones are stored.
/// The table of sql/discount_kinds says what differs between the eight kinds.
class DiscountsPage : public Page {
 public:
  DiscountsPage(PageContext& context, ProgressDisplay& progress, controls::NavigatorBar& navigator);

  DiscountOptions options;
  DiscountGrid onPrice;
  DiscountGrid byGrid;
  controls::Button CMD_AGGIORNA{"CMD_AGGIORNA", "Aggiorna"};
  controls::Label LBL_DATAULTAGG{"LBL_DATAULTAGG"};

  void place(PageGroups& groups) override;
  void release() override;

  /// The number by which the page is chosen.
  static constexpr std::int32_t view = 12;
  /// The window shows a view: on this page the navigator bar saves and deletes rules.
  void viewShown(std::int32_t number);
  void setRights(const controls::Rights& rights);
  /// Whether the user made changes that are not saved.
  bool hasPendingChanges() const { return pending_; }
  /// What "Conferma" does; false when not all of it was stored.
  bool confirm();
  /// Adds what it would do.
  void addChanges(PlannedChanges& changes, Procedure& p);

  /// hasPendingChanges() may have changed.
  Event<> PendingChanged;

 private:
  /// Stands in for the application's title where loading, recomputing, storing or deleting rules
  /// fails.
  static constexpr const char* errorTitle = "Errore";

  /// How far the saving of one kind came.
  struct SaveResult {
    bool deleted = false;                     ///< the rules stored before are gone
    std::optional<std::int32_t> ticked = {};  ///< how many rules were to be stored, once known
    std::int32_t stored = 0;
    std::set<StoredRules::Id> storedIds = {};
    bool isComplete() const { return ticked == stored; }
  };

  void handleEvents();
  void CMB_LISTINISCONTO_ChangeRow();
  void CMD_AGGIORNA_ButtonClick();
  void INAV_PAR_ButtonClick(bool& cancel, const std::string& button);

  /// CaricaListini_1_A to CaricaListini_4_B.
  void CaricaListini(DiscountGrid& mode);
  /// AggiornaListini_1_A to AggiornaListini_4_B. `hasStored` tells whether there may be
  /// stored rules that are not shown.
  void AggiornaListini(DiscountGrid& mode, bool hasStored = true);
  /// RegistraListini_1_A to RegistraListini_4_B; false when not all was stored.
  bool RegistraListini(DiscountGrid& mode);
  void EliminaListini();

  /// Both modes of the list type that is shown, if one is; false when not all was stored.
  bool registerBoth();
  void recomputeBoth();
  static void dropTable(const DiscountGrid& mode, Procedure& p);
  void showStored(DiscountGrid& mode, Procedure& p);
  void storeTicked(const sql::DiscountKind& kind, const DiscountGrid& mode, SaveResult& result,
                   Procedure& p);
  void saved(const sql::DiscountKind& kind, const DiscountGrid& mode, const SaveResult& result);
  // rule_changes.cpp
  void addChanges(const DiscountGrid& mode, PlannedChanges& changes, Procedure& p);
  /// A rule as people read it.
  ReadRow read(const DiscountGrid& mode, const std::vector<sql::SavedValue>& values) const;
  void addNotes(const DiscountGrid& mode, std::int32_t kept, PlannedChanges& changes) const;
  void setModified(bool modified);
  void setPending(bool pending);
  PageLoad& loadOf(const DiscountGrid& mode) { return loads_[&mode == &onPrice ? 0 : 1]; }
  PageLoad::Surroundings surroundings(DiscountGrid& mode);
  void lockControls();
  void showLastUpdate(const Date& day);
  void offer(bool confirming, bool deleting);
  const sql::DiscountKind& kindOf(const DiscountGrid& mode) const;

  PageContext& context_;
  ProgressDisplay& progress_;
  controls::NavigatorBar& navigator_;
  std::array<PageLoad, 2> loads_;  ///< of the mode on price and of the grid mode
  controls::Rights rights_;
  /// The list type whose rules are shown; 0 for none.
  std::int32_t listType_ = 0;
  /// How many candidates the last recomputation on price gave.
  std::int32_t priceRows_ = 0;
  /// Changes that are not saved.
  bool pending_ = false;
  bool leaving_ = false;  ///< the rules being saved are of a list type that is left
  bool shown_ = false;
  bool offersConfirming_ = false;
  bool offersDeleting_ = false;
};

}  // namespace kebu::forms
