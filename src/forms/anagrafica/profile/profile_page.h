#pragma once

#include "controls/edit_box.h"
#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/categories/categories_page.h"
#include "forms/anagrafica/filters/filter_pages.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/pricelists/deposits_page.h"
#include "forms/anagrafica/pricelists/price_lists_page.h"
#include "forms/anagrafica/profile/parameters/parameter_page.h"
#include "forms/anagrafica/profile/synchronisation.h"
#include "forms/changes/record_changes.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// The pages that are loaded and saved with the profile.
struct ProfileDependents {
  ParameterPage& parameters;
  CategoriesPage& categories;
  DepositsPage& deposits;
  PriceListsPage& priceLists;
  FilterPages& filters;
  Synchronisation& synchronisation;
};

/// The company's connection profile: the one row of GM03_DISPOSITIVI, and what
/// happens around its saving, deleting and undoing.
class ProfilePage : public Page {
 public:
  ProfilePage(PageContext& context, controls::NavigatorBar& navigator,
              const ProfileDependents& dependents);

  controls::GroupBox GRP_PROFILO{"GRP_PROFILO", "Profilo di collegamento"};
  controls::EditBox TXT_GM03_IDDISPOSITIVO{"TXT_GM03_IDDISPOSITIVO", "Identificativo"};
  controls::EditBox TXT_GM03_CODICEDISPOSITIVO{"TXT_GM03_CODICEDISPOSITIVO", "Codice"};
  controls::EditBox TXT_GM03_DESCRIZIONE{"TXT_GM03_DESCRIZIONE", "Descrizione"};
  controls::EditBox TXT_GM03_NOTE{"TXT_GM03_NOTE", "Note"};

  void place(PageGroups& groups) override;

  void release() override { context_.profile.setDataSource(nullptr); }

  /// Binds the frames to the company's profile and shows it.
  void ImpostaVirtualFrame();
  void FME_ANAGRAFICA_ChangeStatus(controls::FrameStatus status, controls::FrameStatus previous);
  /// Adds what a save of the profile would do.
  void addChanges(PlannedChanges& changes);

 private:
  /// What every save sets in the profile's row.
  CompletedValues completedValues() const;
  void FME_ANAGRAFICA_BeforeUpdate(bool& cancel);
  void FME_ANAGRAFICA_AfterUpdate();
  void FME_ANAGRAFICA_BeforeDelete(bool& cancel);
  void FME_ANAGRAFICA_AfterDelete();
  void FME_ANAGRAFICA_AfterUndo();
  void FME_ANAGRAFICA_IsRecordChanged(bool& changed);
  void reloadDependents();
  /// Reads again all that belongs to the profile; what is not saved is discarded.
  void reload();
  void deletionBrokenOff();
  void showConflict();
  /// What of a save was done beside the profile itself.
  struct Saved {
    bool deposits = false;
    bool priceLists = false;
    bool job = false;
  };
  void showSaved(const Saved& saved);

  PageContext& context_;
  controls::NavigatorBar& navigator_;
  ProfileDependents dependents_;
  /// The profile for which price slots and deposits were loaded.
  Value loadedProfile_;
};

}  // namespace kebu::forms
