#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>

#include "common/instance_trace.h"
#include "controls/form.h"
#include "controls/mdi_container.h"
#include "controls/navigator_bar.h"
#include "controls/simple_controls.h"
#include "forms/anagrafica/categories/categories_page.h"
#include "forms/anagrafica/discounts/discounts_page.h"
#include "forms/anagrafica/filters/filter_pages.h"
#include "forms/anagrafica/page.h"
#include "forms/anagrafica/page_groups.h"
#include "forms/anagrafica/preview/preview_page.h"
#include "forms/anagrafica/pricelists/deposits_page.h"
#include "forms/anagrafica/pricelists/price_lists_page.h"
#include "forms/anagrafica/profile/parameters/parameter_page.h"
#include "forms/anagrafica/profile/profile_page.h"
#include "forms/anagrafica/profile/synchronisation.h"
#include "forms/anagrafica/progress_display.h"
#include "forms/anagrafica/summary/summary_reader.h"
#include "forms/changes/planned_changes.h"
#include "forms/page_context.h"
#include "forms/procedure.h"
#include "forms/runtime.h"
#include "forms/services.h"
#include "host/cinterface.h"
#include "host/window_members.h"

namespace kebu::forms {

/// The configuration window: wires its pages together, opens the connection that
/// they work on, switches between them and closes.
class FRMKB_ANAGRAFICA : public controls::Form, public host::WindowMembers {
 public:
  explicit FRMKB_ANAGRAFICA(const Runtime& runtime);
  ~FRMKB_ANAGRAFICA() override;

  /// The plug-in as the host addresses it, and the plug-in that made the window.
  void setHost(const Ref<host::Cinterface>& value) { services_.setHost(value); }
  const Ref<host::Cinterface>& host() const { return services_.host(); }
  void setOwner(const Ref<Object>& value) { owner_ = value; }

  /// The plug-in ends: releases all objects of the host.
  void detach() { releaseHostObjects(); }

  /// The profile's record frame. Holding it keeps the window alive.
  Ref<host::NamedObject> profileFrame();

  std::int16_t VisualizzaErrore(const std::string& procedure) override;
  void ChangeStatus(const Ref<host::NamedObject>& frame) override;
  std::string TranslateString(const std::string& text) override;
  std::int32_t VLTMsgBox(const Value& prompt, std::int32_t buttons, const Value& title,
                         const Value& context) override;
  std::int32_t VLTMsgBoxFromId(std::int32_t id, std::int32_t buttons, const Value& title,
                               const Value& context) override;

 private:
  Services services_;  // before what reports through it

 public:
  controls::RecordFrame FME_ANAGRAFICA;
  controls::NavigatorBar INAV_PAR;
  controls::NavigatorBar INAV_CATCLIART;
  controls::SideBar SBAR_MAIN{"SBAR_MAIN"};
  controls::TitleBar TITLEBAR{"TITLEBAR"};
  controls::Button BTN_RIEPILOGO{"BTN_RIEPILOGO", "Riepilogo"};
  controls::ResizeManager VLT_RESIZEFORM1{"VLT_RESIZEFORM1"};
  controls::MdiContainer MDIActiveX1{"MDIActiveX1"};

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_QueryUnload(bool& cancel) override;
  void Form_Unload() override;

 private:
  /// The group boxes of all pages.
  static PageGroups makeGroups();
  void buildPages();
  void MDIActiveX1_FormLoad();
  void placeWindow(Procedure& p);
  void refreshHostStatus(Procedure& p);
  void setUp(Procedure& p);
  void openConnection(Procedure& p);
  void createHostServices(Procedure& p);
  void applyRights(Procedure& p);
  /// Locks the pages that the user's rights do not allow to be changed.
  void lockByRights();
  void showRights();
  /// Lists what "Conferma" of the page that is shown would change; `add` adds it.
  void MostraModifiche(const std::function<void(PlannedChanges&, Procedure&)>& add);
  /// Reads the rows of a preview again.
  void refreshPage() override;
  std::string guidePage() const override { return "pagina-" + std::to_string(view_); }
  /// Shows the page of a control because of which a save was refused, and goes to it.
  void showRefused(controls::BoundControl& control);
  /// Marks the side bar's links to pages with changes of the user's that are not saved.
  void markChangedPages();
  bool hasUnsavedChanges() const;
  /// Says in the status bar which company this is, whether it is linked, and whether there are
  /// changes that are not saved.
  void showWhere();
  void showConnectionLost();
  /// Asks whether to save the changes of the marked pages; whether the window may close.
  bool concludePages(Procedure& p);
  void ExecuteFormEvent(const std::string& event, bool& cancel);
  void InizializzaScriptELayout();
  void CambiaVisualizzazione(std::int32_t view);
  bool RichiestaConfermaModifiche(controls::RecordFrame* frame, std::int32_t view,
                                  bool restoreStatus, bool cancellable);
  void ChangeStatus(const controls::RecordFrame& frame);
  void VisualizzaVista(std::int32_t number);
  void NascondiViste();
  void SBAR_MAIN_OnClickItemLink(const controls::SideBar::Link& link);
  void VLT_RESIZEFORM1_Setup();
  void show(std::string_view control);
  void releaseHostObjects();

  InstanceTrace trace_;
  Ref<Object> owner_;
  PageContext context_;
  PageGroups groups_;
  ProgressDisplay progress_;
  Synchronisation synchronisation_;
  ParameterPage parameters_;
  CategoriesPage categories_;
  DepositsPage deposits_;
  PriceListsPage priceLists_;
  PreviewPage preview_;
  FilterPages filters_;
  DiscountsPage discounts_;
  ProfilePage profile_;
  SummaryReader summary_;
  /// In the order in which they put their controls into the group boxes.
  const std::array<Page*, 8> pages_{&profile_,    &parameters_, &categories_, &discounts_,
                                    &priceLists_, &deposits_,   &preview_,    &filters_};

  std::string spareTable_;  ///< the name of a third working table, not used yet
  controls::Rights rights_;
  std::int32_t view_ = 0;
  bool activated_ = false;
  bool closing_ = false;
};

/// The description under which the window stands in the host's object models.
inline constexpr const char* windowDescription = "Parametri collegamento con E-Commerce Merkal";

}  // namespace kebu::forms
