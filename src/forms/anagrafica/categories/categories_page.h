#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>

#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/categories/category_levels.h"
#include "forms/anagrafica/categories/classification_catalogue.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/profile/parameters/parameter_page.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"
#include "forms/page_load.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// Which classifications are published as the platform's categories: four
/// levels for customers, three for articles. They have a navigator bar of their own.
class CategoriesPage : public Page {
 public:
  CategoriesPage(PageContext& context, controls::NavigatorBar& navigator,
                 ParameterPage& parameters);

  controls::GroupBox GRP_CATART{"GRP_CATART", "Categorie articoli"};
  controls::GroupBox GRP_CATCLI{"GRP_CATCLI", "Categorie clienti"};
  controls::GroupBox GRP_PARCLI{"GRP_PARCLI", "Parametri clienti"};

  void place(PageGroups& groups) override;

  void release() override { catalogue_.close(); }

  /// Offers the catalogue's classifications in every combo.
  void CaricaComboClientiArticoli();
  /// Shows what is stored for the current profile, or proposes the usual levels.
  void LetturaDatiConfigurazioneCategorie();
  /// The levels are disabled while the profile is being changed.
  void setEnabled(bool enabled);
  /// A new profile was stored, without categories: what is shown stays, to be confirmed for it.
  void profileStored();

  /// Whether the user changed levels that are not stored. Proposed ones do not count.
  bool areCustomersChanged() const { return customersChanged_; }
  bool areArticlesChanged() const { return articlesChanged_; }
  bool isChanged() const { return customersChanged_ || articlesChanged_; }
  /// What "Conferma" does; false when not all of it was stored.
  bool confirm();

  /// Adds what "Conferma" would do.
  void addChanges(PlannedChanges& changes);

  /// areCustomersChanged() or areArticlesChanged() may have changed.
  Event<> ChangedByUser;

 private:
  void INAV_CATCLIART_ButtonClick(const std::string& button);
  void ConfermaModificheCategorie();
  void addCatalogue(Procedure& p);
  bool isOffered(std::int32_t articleClassification, Procedure& p);
  /// Shows the stored levels, or the usual ones when there are none.
  void showStored(const Ref<ado::Recordset>& rows, Procedure& p);
  void showDefaults();
  void store(CategoryLevels& levels, const Ref<ado::Recordset>& rows, Procedure& p);
  /// Compares what is stored now with what was loaded. False when the user has been told that
  /// both changed the same level.
  bool compareWithStored(const Ref<ado::Recordset>& rows, Procedure& p);
  void tellConflict(const std::string& what, Procedure& p);
  /// All that is shown is stored now.
  void showConfirmed();
  void markChanged(bool& which);
  void clearChanged();
  /// A level as people read it; nothing for one that is not stored.
  std::optional<ReadRow> read(const CategoryLevels::Level& level,
                              const std::optional<CategoryLevels::Content>& content) const;

  PageContext& context_;
  controls::NavigatorBar& navigator_;
  ParameterPage& parameters_;
  PageLoad load_;
  ClassificationCatalogue catalogue_;
  CategoryLevels customers_;
  CategoryLevels articles_;
  bool customersChanged_ = false;
  bool articlesChanged_ = false;

  /// The entity and the level's number, from 1.
  using LevelKey = std::pair<int, std::int32_t>;
  using Contents = std::map<LevelKey, CategoryLevels::Content>;
  static std::optional<CategoryLevels::Content> contentIn(const Contents& contents,
                                                          const LevelKey& key);
  Contents loaded_;            ///< as they were stored when they were shown
  Contents changedElsewhere_;  ///< levels that only somebody else changed since then
};

}  // namespace kebu::forms
