#include "forms/anagrafica/frame/frmkb_anagrafica.h"

#include <algorithm>
#include <map>

#include "common/convert.h"
#include "common/nulls.h"
#include "forms/anagrafica/frame/pages.h"
#include "forms/anagrafica/summary/frmkb_riepilogo.h"
#include "forms/changes/changes_dialog.h"
#include "forms/procedure.h"
#include "sql/working_tables.h"

namespace kebu::forms {

using controls::FrameStatus;

namespace {

/// In place of the page to show: none.
constexpr std::int32_t noView = -1;

constexpr const char* connectionLostCause = "connection lost";

constexpr std::int32_t customerCategoriesView = 6;
constexpr std::int32_t articleCategoriesView = 7;

}  // namespace

FRMKB_ANAGRAFICA::FRMKB_ANAGRAFICA(const Runtime& runtime)
    : Form("FRMKB_ANAGRAFICA", runtime.desktop),
      services_(runtime.platform, *this),
      FME_ANAGRAFICA("FME_ANAGRAFICA", services_),
      INAV_PAR("INAV_PAR", services_, {"Nuovo", "Conferma", "Annulla", "Elimina"}),
      INAV_CATCLIART("INAV_CATCLIART", services_, {"Conferma", "Annulla"}),
      trace_(runtime.platform, "FRMKB_ANAGRAFICA"),
      context_(runtime, services_, FME_ANAGRAFICA),
      groups_(makeGroups()),
      progress_(context_, {SBAR_MAIN, groups_["GRPMAIN_LISTINI"], INAV_PAR}),
      synchronisation_(context_),
      parameters_(context_),
      categories_(context_, INAV_CATCLIART, parameters_),
      deposits_(context_),
      priceLists_(context_, progress_),
      preview_(context_, progress_),
      filters_(context_, progress_.PBAR),
      discounts_(context_, progress_, INAV_PAR),
      profile_(context_, INAV_PAR,
               {parameters_, categories_, deposits_, priceLists_, filters_, synchronisation_}),
      summary_(context_, progress_,
               {parameters_, filters_, synchronisation_, [this] { return hasUnsavedChanges(); }}) {
  trace_.initialized();
  buildPages();
  INAV_PAR.bind(FME_ANAGRAFICA);
  FME_ANAGRAFICA.stateChanged.on([this] {
    lockByRights();
    showWhere();
  });
  filters_.setParameters(parameters_.FME_PARAMETRI);
  preview_.setProfileFilters(filters_.ENHQUERY_CLI, filters_.ENHQUERY_ART);
  priceLists_.arePricesManaged = [this] { return parameters_.CHK_GM04_FLGGESTPREZZI.isTicked(); };
  parameters_.CHK_GM04_FLGGESTPREZZI.Click.on([this] { priceLists_.refreshNotices(); });
  for (controls::RecordFrame* frame : {&FME_ANAGRAFICA, &parameters_.FME_PARAMETRI}) {
    frame->Refused.on([this](controls::BoundControl& control) { showRefused(control); });
  }
  categories_.ChangedByUser.on([this] { markChangedPages(); });
  discounts_.PendingChanged.on([this] { markChangedPages(); });
  BTN_RIEPILOGO.setKey("F11");
  BTN_RIEPILOGO.ButtonClick.on([this] { VisualizzaRiepilogo(summary_); });
  INAV_PAR.ChangesAsked.on([this] {
    MostraModifiche([this](PlannedChanges& changes, Procedure& p) {
      if (view_ == DiscountsPage::view) {
        discounts_.addChanges(changes, p);
      } else {
        p.step([&] { profile_.addChanges(changes); });
      }
    });
  });
  INAV_CATCLIART.ChangesAsked.on([this] {
    MostraModifiche([this](PlannedChanges& changes, Procedure& p) {
      p.step([&] { categories_.addChanges(changes); });
    });
  });
  SBAR_MAIN.OnClickItemLink.on(
      [this](const controls::SideBar::Link& link) { SBAR_MAIN_OnClickItemLink(link); });
  services_.ConnectionLost.on([this] { showConnectionLost(); });
  VLT_RESIZEFORM1.Setup.on([this](controls::ResizeManager&) { VLT_RESIZEFORM1_Setup(); });
  MDIActiveX1.FormLoad.on([this] { MDIActiveX1_FormLoad(); });
}

FRMKB_ANAGRAFICA::~FRMKB_ANAGRAFICA() {
  leaveScreen();
  ignoringErrors([&] { trace_.terminated(); });
}

PageGroups FRMKB_ANAGRAFICA::makeGroups() {
  PageGroups groups;
  for (const PageEntry& page : pageTable) groups.add(page.group);
  return groups;
}

void FRMKB_ANAGRAFICA::buildPages() {
  SBAR_MAIN.setSize({180, 600});
  groups_["GRPMAIN_LISTINI"].setSize({820, 520});
  INAV_PAR.setSize({820, 40});
  progress_.PBAR.setSize({260, 24});
  std::map<std::int32_t, std::string_view> links;
  for (const PageEntry& page : pageTable) {
    if (page.view) links.emplace(*page.view, page.link);
  }
  for (const auto& [view, link] : links) SBAR_MAIN.addLink(view, std::string(link));

  for (Page* page : pages_) page->place(groups_);
  addAll(SBAR_MAIN, TITLEBAR, context_.notices, INAV_PAR, INAV_CATCLIART, FME_ANAGRAFICA,
         parameters_.FME_PARAMETRI);
  for (controls::GroupBox& group : groups_.all()) {
    group.setGestureHost(services_);
    addPage(group);
  }
  context_.notices.setGestureHost(services_);
  addAll(BTN_RIEPILOGO, progress_.STATUSBAR, progress_.PBAR, VLT_RESIZEFORM1, MDIActiveX1);
}

Ref<host::NamedObject> FRMKB_ANAGRAFICA::profileFrame() {
  return std::shared_ptr<host::NamedObject>(shared_from_this(), &FME_ANAGRAFICA);
}

void FRMKB_ANAGRAFICA::placeWindow(Procedure& p) {
  constexpr std::int32_t usual = 100;
  const auto place = [&](const Value& asked) {
    const Value given = NVL(asked, std::int32_t{0});
    return equalAsVariants(given, std::int32_t{0}) ? usual : toInt32(given);
  };
  const std::int32_t newLeft = p.step([&] { return place(host()->Left()); });
  const std::int32_t newTop = p.step([&] { return place(host()->Top()); });
  moveTo(newLeft, newTop);
}

void FRMKB_ANAGRAFICA::Form_Load() {
  procedure(context_, "Form_Load", [&](Procedure& p) {
    p.step([&] { services_.setLog(host()->ClsGlobal()->CreateLog()); });
    p.step([&] {
      translate([this](const std::string& text) { return services_.TranslateString(text); });
    });
    placeWindow(p);
  });
  MDIActiveX1.FormLoad.raise();
}

void FRMKB_ANAGRAFICA::MDIActiveX1_FormLoad() {
  procedure(context_, "MDIActiveX1_FormLoad", [&](Procedure& p) {
    placeWindow(p);
    p.step([&] { MDIActiveX1.attach(host()->hwndParent()); });
  });
}

void FRMKB_ANAGRAFICA::refreshHostStatus(Procedure& p) {
  p.step([&] { host()->ClsGlobal()->RefreshStatus(host()->ActiveFrame()); });
}

void FRMKB_ANAGRAFICA::Form_Activate() {
  procedure(context_, "Form_Activate", [&](Procedure& p) {
    refreshHostStatus(p);
    applyRights(p);
    if (activated_) return;
    setUp(p);
    activated_ = true;
    context_.loaded = true;
  });
}

void FRMKB_ANAGRAFICA::applyRights(Procedure& p) {
  p.step([&] {
    const controls::Rights rights{.canInsert = host()->CanInsert(),
                                  .canUpdate = host()->CanUpdate(),
                                  .canDelete = host()->CanDelete()};
    rights_ = rights;
    FME_ANAGRAFICA.setRights(rights);
    INAV_PAR.setRights(rights);
    INAV_CATCLIART.setRights(rights);
    discounts_.setRights(rights);
    lockByRights();
    showRights();
  });
}

// docs/rights.md lists which right each gesture needs.
void FRMKB_ANAGRAFICA::lockByRights() {
  const bool profileLocked = !FME_ANAGRAFICA.mayChange();
  for (const char* page : {"GRPMAIN_PAR", "GRPMAIN_LISTINI", "GRPMAIN_GIACENZE"}) {
    groups_[page].setLocked(profileLocked);
  }
  for (const char* page : {"GRPMAIN_CATCLIENTI", "GRPMAIN_CATART"}) {
    groups_[page].setLocked(!rights_.canUpdate);
  }
  priceLists_.GRP_AGGLISTINI.setLocked(!rights_.canUpdate);
}

void FRMKB_ANAGRAFICA::showRights() {
  constexpr const char* cause = "rights";
  std::string missing;
  const auto name = [&](bool isThere, const char* right) {
    if (!isThere) missing += (missing.empty() ? "" : ", ") + context_.translate(right);
  };
  name(rights_.canInsert, "inserimento");
  name(rights_.canUpdate, "modifica");
  name(rights_.canDelete, "eliminazione");
  if (missing.empty()) {
    context_.notices.remove(cause);
    return;
  }
  context_.notices.show(
      {.cause = cause,
       .text = context_.translate("Diritti mancanti: ") + missing + ". " +
               context_.translate("Quello che li richiede può essere solo consultato.")});
}

void FRMKB_ANAGRAFICA::setUp(Procedure& p) {
  openConnection(p);
  context_.company = p.step([&] { return host()->ClsGlobal()->CompanyCode(); });
  deposits_.setWorkingTable(services_.GetTempTableName());
  priceLists_.setWorkingTable(services_.GetTempTableName());
  spareTable_ = services_.GetTempTableName();
  createHostServices(p);
  SBAR_MAIN.selectFirst();
  TITLEBAR.setCaption(SBAR_MAIN.links().front().text);

  categories_.CaricaComboClientiArticoli();
  parameters_.CaricoCombo(discounts_.options.fixedChoices());
  progress_.InizializzaProgressAnimation();
  profile_.ImpostaVirtualFrame();
  categories_.LetturaDatiConfigurazioneCategorie();
  deposits_.ImpostaQGRID_DEP();
  deposits_.ImpostaRstDepositi();
  priceLists_.ImpostaQGRID_Listini();
  priceLists_.ImpostaRstListini();
  synchronisation_.InsertGM02Records();
  synchronisation_.InsertGM08NuoviModelliSincro();
  filters_.ImpostaEnQuery();
  CambiaVisualizzazione(SBAR_MAIN.links().front().view);
  InizializzaScriptELayout();
  p.step([&] { VLT_RESIZEFORM1.layOut(); });
}

// The window works on a connection of its own, not on the host's.
void FRMKB_ANAGRAFICA::openConnection(Procedure& p) {
  auto& provider = context_.hostServices.connectionProvider;
  const std::string text = p.step([&] { return host()->ClsGlobal()->ConnectionString(); });
  provider = p.step([&] { return host()->ClsGlobal()->CreateConnectionProvider(); });
  context_.connection = p.step([&] { return provider->NewConnection(); });
  p.step([&] { context_.connection->setConnectionString(text); });
  // A long statement is for the user to wait for.
  p.step([&] { context_.connection->setCommandTimeout(0); });
  // Known before it is opened, so that errors of the opening are told with the provider's.
  services_.setConnection(context_.connection);
  p.step([&] { context_.connection->Open(); });
  if (!services_.isConnectionLost()) context_.notices.remove(connectionLostCause);
  p.step([&] { host()->setConnection(context_.connection); });
}

void FRMKB_ANAGRAFICA::createHostServices(Procedure& p) {
  HostServices& made = context_.hostServices;
  const auto global = [this] { return host()->ClsGlobal(); };
  made.decodes = p.step([&] { return global()->CreateSqlDecode(); });
  made.lookups = p.step([&] { return global()->CreateLookups(); });
  made.savedFilters = p.step([&] { return global()->CreateSavedFilters(); });
  made.environment = p.step([&] { return global()->CreateEnvironment(); });
  made.layoutModel = p.step([&] { return global()->CreateLayoutModel(); });
  made.scriptModel = p.step([&] { return global()->CreateScriptModel(); });
  // The two models are initialised at the end of the set-up.
  p.step([&] { made.decodes->Initialize(host()); });
  p.step([&] { made.lookups->Initialize(host()); });
  p.step([&] { made.savedFilters->Initialize(host()); });
  p.step([&] { made.environment->Initialize(host()); });
}

void FRMKB_ANAGRAFICA::InizializzaScriptELayout() {
  procedure(context_, "InizializzaScriptELayout", [&](Procedure& p) {
    // The window itself is registered in the models when the navigator's events
    // ask for it. Here the models are initialised and the user's script is run.
    p.step([&] { context_.hostServices.layoutModel->Initialize(host()); });
    p.step([&] { context_.hostServices.scriptModel->Initialize(host()); });
    bool cancel = false;
    ExecuteFormEvent("tsOpen", cancel);
  });
}

void FRMKB_ANAGRAFICA::ExecuteFormEvent(const std::string& event, bool& cancel) {
  procedure(context_, "ExecuteFormEvent", [&](Procedure& p) {
    p.step([&] { context_.hostServices.scriptModel->RunEvent(event, cancel); });
  });
}

void FRMKB_ANAGRAFICA::CambiaVisualizzazione(std::int32_t view) {
  procedure(context_, "CambiaVisualizzazione", [&](Procedure& p) {
    if (closing_) return;
    const bool pending =
        view != view_ && p.step([&] { return FME_ANAGRAFICA.hasPendingChanges(); });
    if (pending) {
      RichiestaConfermaModifiche(&FME_ANAGRAFICA, view, true, true);
    } else {
      VisualizzaVista(view);
    }
  });
}

bool FRMKB_ANAGRAFICA::RichiestaConfermaModifiche(controls::RecordFrame* frame, std::int32_t view,
                                                  bool restoreStatus, bool cancellable) {
  return procedure(context_, "RichiestaConfermaModifiche", [&](Procedure& p) {
    if (!frame) return false;
    if (frame->status() == FrameStatus::New) {
      // Has no consequence, on purpose: the record frame decides what is pending.
      for (const controls::BoundControl* control : boundControls()) {
        const bool differs = p.step([&] {
          return RTrimN(control->value()) != RTrimN(control->frame()->field(control->DBField()));
        });
        if (differs) break;
      }
    }
    p.step([&] { frame->ConcludiModifiche(cancellable); });
    if (frame->status() == FrameStatus::Browsing) {
      if (view != noView) VisualizzaVista(view);
      return true;
    }
    if (restoreStatus && frame->status() == FrameStatus::Browsing) ChangeStatus(*frame);
    return false;
  });
}

std::int16_t FRMKB_ANAGRAFICA::VisualizzaErrore(const std::string& procedure) {
  return services_.VisualizzaErrore(procedure);
}

std::string FRMKB_ANAGRAFICA::TranslateString(const std::string& text) {
  return services_.TranslateString(text);
}

std::int32_t FRMKB_ANAGRAFICA::VLTMsgBox(const Value& prompt, std::int32_t buttons,
                                         const Value& title, const Value& context) {
  return services_.VLTMsgBox(prompt, buttons, title, context);
}

std::int32_t FRMKB_ANAGRAFICA::VLTMsgBoxFromId(std::int32_t id, std::int32_t buttons,
                                               const Value& title, const Value& context) {
  return services_.VLTMsgBoxFromId(id, buttons, title, context);
}

void FRMKB_ANAGRAFICA::ChangeStatus(const Ref<host::NamedObject>& frame) {
  if (const auto* own = dynamic_cast<const controls::RecordFrame*>(frame.get())) ChangeStatus(*own);
}

void FRMKB_ANAGRAFICA::ChangeStatus(const controls::RecordFrame& frame) {
  procedure(context_, "ChangeStatus", [&](Procedure&) {
    if (&frame == &FME_ANAGRAFICA) {
      profile_.FME_ANAGRAFICA_ChangeStatus(FrameStatus::Browsing, FrameStatus::SetByProcedure);
    } else if (&frame == &parameters_.FME_PARAMETRI) {
      parameters_.FME_PARAMETRI_ChangeStatus();
    }
  });
}

void FRMKB_ANAGRAFICA::show(std::string_view control) {
  if (controls::Control* shown = find(control)) shown->setVisible(true);
}

void FRMKB_ANAGRAFICA::VisualizzaVista(std::int32_t number) {
  procedure(context_, "VisualizzaVista", [&](Procedure&) {
    const auto* page = std::ranges::find(pageTable, number, &PageEntry::view);
    const bool isKnown = page != std::end(pageTable);
    const bool isPreview = isKnown && page->preview != PreviewKind::None;
    // The previous page stays until the preview has rows, or when the user cancels it.
    if (isPreview && !preview_.load(page->preview)) return;
    NascondiViste();
    if (!isPreview) preview_.release();
    if (isKnown) {
      show(page->group);
      show(page->bar);
    }
    view_ = number;
    discounts_.viewShown(number);
  });
}

void FRMKB_ANAGRAFICA::NascondiViste() {
  procedure(context_, "NascondiViste", [&](Procedure&) {
    for (const PageEntry& page : pageTable) {
      if (!page.staysShown) groups_[page.group].setVisible(false);
    }
    INAV_PAR.setVisible(false);
    INAV_CATCLIART.setVisible(false);
  });
}

void FRMKB_ANAGRAFICA::SBAR_MAIN_OnClickItemLink(const controls::SideBar::Link& link) {
  procedure(context_, "SBAR_MAIN_OnClickItemLink", [&](Procedure&) {
    TITLEBAR.setCaption(link.text);
    CambiaVisualizzazione(link.view);
    // When the change is refused, link and title go back to the page that is shown.
    SBAR_MAIN.select(view_);
    if (const auto* shown = SBAR_MAIN.selected()) TITLEBAR.setCaption(shown->text);
  });
}

void FRMKB_ANAGRAFICA::VLT_RESIZEFORM1_Setup() {
  procedure(context_, "VLT_RESIZEFORM1_Setup", [&](Procedure&) {
    for (const controls::GroupBox& group : groups_.all()) {
      VLT_RESIZEFORM1.registerControl(group.Name(), groupResizeRule);
    }
    for (const ResizeRule& entry : controlResizeRules) {
      const std::string name(entry.control);
      if (find(name)) VLT_RESIZEFORM1.registerControl(name, entry.rule);
    }
  });
}

void FRMKB_ANAGRAFICA::MostraModifiche(
    const std::function<void(PlannedChanges&, Procedure&)>& add) {
  procedure(context_, "MostraModifiche", [&](Procedure& p) {
    PlannedChanges changes;
    add(changes, p);
    p.step([&] { showChanges(context_, changes); });
  });
}

void FRMKB_ANAGRAFICA::refreshPage() {
  const auto* const page =
      std::ranges::find_if(pageTable, [&](const PageEntry& entry) { return entry.view == view_; });
  if (page != std::end(pageTable) && page->preview != PreviewKind::None) preview_.loadAgain();
}

void FRMKB_ANAGRAFICA::showRefused(controls::BoundControl& control) {
  const controls::Control* group = &control;
  while (group->container()) group = group->container();
  const auto* const page = std::ranges::find_if(
      pageTable, [&](const PageEntry& entry) { return group->isNamed(entry.group); });
  if (page == std::end(pageTable) || !page->view) return;
  if (*page->view != view_) {
    VisualizzaVista(*page->view);
    SBAR_MAIN.select(view_);
    TITLEBAR.setCaption(SBAR_MAIN.textOf(view_));
  }
  focusOn(control);
}

void FRMKB_ANAGRAFICA::markChangedPages() {
  SBAR_MAIN.mark(customerCategoriesView, categories_.areCustomersChanged());
  SBAR_MAIN.mark(articleCategoriesView, categories_.areArticlesChanged());
  SBAR_MAIN.mark(DiscountsPage::view, discounts_.hasPendingChanges());
  showWhere();
}

bool FRMKB_ANAGRAFICA::hasUnsavedChanges() const {
  return FME_ANAGRAFICA.status() != FrameStatus::Browsing || categories_.isChanged() ||
         discounts_.hasPendingChanges();
}

void FRMKB_ANAGRAFICA::showWhere() {
  constexpr const char* cause = "not linked";
  constexpr std::size_t panel = 1;
  // Before the profile is read, or when it could not be read, nothing is known of it.
  if (!FME_ANAGRAFICA.isRead() || context_.company.isEmpty()) return;
  const auto translate = [this](const char* text) { return context_.translate(text); };
  const FrameStatus status = FME_ANAGRAFICA.status();
  const bool isLinked = FME_ANAGRAFICA.hasRecord() && status != FrameStatus::New;
  std::string text = translate("Ditta ") + toDisplay(context_.company) + ", " +
                     translate(isLinked ? "collegata" : "non collegata");
  if (hasUnsavedChanges()) text += ", " + translate("modifiche non salvate");
  if (text != progress_.STATUSBAR.panels().front()) progress_.STATUSBAR.setPanelText(panel, text);
  if (isLinked || status == FrameStatus::New) {
    context_.notices.remove(cause);
  } else if (!context_.notices.has(cause)) {
    context_.notices.show(
        {.cause = cause,
         .text = translate("La ditta non è ancora collegata: premere \"Nuovo\", compilare i "
                           "parametri e premere \"Conferma\".")});
  }
}

void FRMKB_ANAGRAFICA::showConnectionLost() {
  context_.notices.show(
      {.cause = connectionLostCause,
       .text = context_.translate(
           "Manca la connessione con il database: chiudere la finestra e riaprirla. Ciò che non è "
           "stato salvato va inserito di nuovo.")});
}

bool FRMKB_ANAGRAFICA::concludePages(Procedure& p) {
  const bool hasCategories = categories_.isChanged();
  const bool hasDiscounts = discounts_.hasPendingChanges();
  if (!hasCategories && !hasDiscounts) return true;
  const std::int32_t answer = p.step([&] {
    std::string names;
    for (const auto& link : SBAR_MAIN.links()) {
      if (link.marked) names += (names.empty() ? "" : ", ") + link.text;
    }
    return services_.showText(
        context_.translate("Salvare le modifiche apportate a: ") + names + "?",
        msgbox::yesNoCancel | msgbox::question);
  });
  if (answer == msgbox::no) return true;
  if (answer != msgbox::yes) return false;
  // What could not be stored keeps the window open.
  const bool categoriesStored = !hasCategories || categories_.confirm();
  const bool discountsStored = !hasDiscounts || discounts_.confirm();
  return categoriesStored && discountsStored;
}

void FRMKB_ANAGRAFICA::Form_QueryUnload(bool& cancel) {
  procedure(context_, "Form_QueryUnload", [&](Procedure& p) {
    refreshHostStatus(p);
    closing_ = true;
    cancel = !RichiestaConfermaModifiche(&FME_ANAGRAFICA, noView, false, true);
    if (!cancel) cancel = !concludePages(p);
    // The script can refuse the closing, but not allow what the user refused.
    bool refused = cancel;
    ExecuteFormEvent("tsClose", refused);
    cancel = cancel || refused;
  });
  if (cancel) closing_ = false;
}

void FRMKB_ANAGRAFICA::Form_Unload() {
  procedure(context_, "Form_Unload", [&](Procedure& p) {
    // The tables of a connection that is lost are gone with it.
    if (!context_.connection || services_.isConnectionLost()) return;
    for (const std::string& table : {deposits_.workingTable(), priceLists_.workingTable()}) {
      if (table.empty()) continue;  // naming it failed and the user went on
      p.run(sql::EliminaTabellaLavoro(table));
    }
  });
  // The host's objects are released even when a table could not be dropped.
  releaseHostObjects();
}

void FRMKB_ANAGRAFICA::releaseHostObjects() {
  context_.hostServices = {};
  INAV_PAR.unbind();
  INAV_CATCLIART.unbind();
  for (Page* page : pages_) page->release();
  // The host may hold the connection longer; the window's working tables end with it here.
  ignoringErrors([&] {
    if (context_.connection) context_.connection->Close();
  });
  context_.connection.reset();
  services_.release();
  owner_.reset();
}

}  // namespace kebu::forms
