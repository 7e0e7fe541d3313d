#include "forms/selection/selection_dialog.h"

#include <memory>

#include "sql/query_predicate.h"

namespace kebu::forms {

namespace {

constexpr SelectionDialog::Kind ofArticles{
    .name = "FRMKB_SELMULTIART",
    .caption = "Selezione articoli",
    .editor = "ENHQUERY_LIMITI",
    .subject = articlesSubject,
    .keySuffix = "_SELART",
};
constexpr SelectionDialog::Kind ofCustomers{
    .name = "FRMKB_SELMULTICLI",
    .caption = "Selezione clienti",
    .editor = "ENHQUERY",
    .subject = customersSubject,
    .keySuffix = "_SELCLI",
};

constexpr std::int32_t withTheWindow = 15;  // resize rule: follows all four sides

}  // namespace

SelectionDialog::SelectionDialog(const Kind& kind, SelectionCaller& caller)
    : Form(kind.name, caller.context.runtime().desktop),
      editor_(kind.editor, caller.context.services, sql::queryComposer),
      kind_(kind),
      trace_(caller.context.runtime().platform, kind.name),
      caller_(&caller),
      context_(caller.context),
      filter_(context_, editor_, PBAR_CONTA, kind.subject()) {
  trace_.initialized();
  setCaption(kind.caption);
  addAll(editor_, CMD_FILTROPROFILO, CMD_OK, CMD_ANNULLA, PBAR_CONTA);
  CMD_OK.setDefault(true);
  CMD_ANNULLA.setCancel(true);
  CMD_FILTROPROFILO.setVisible(caller.profileFilter != nullptr);
  CMD_FILTROPROFILO.ButtonClick.on([this] { CMD_FILTROPROFILO_ButtonClick(); });
  CMD_OK.ButtonClick.on([this] { CMD_OK_ButtonClick(); });
  CMD_ANNULLA.ButtonClick.on([this] { CMD_ANNULLA_ButtonClick(); });
}

SelectionDialog::~SelectionDialog() {
  leaveScreen();
  ignoringErrors([&] { trace_.terminated(); });
}

void SelectionDialog::translateTexts(Procedure& p) {
  p.step([&] {
    setCaption(context_.translate(kind_.caption));
    translate([this](const std::string& text) { return context_.translate(text); });
  });
}

// In memory: what the filter page shows need not be saved.
void SelectionDialog::CMD_FILTROPROFILO_ButtonClick() {
  procedure(context_, "CMD_FILTROPROFILO_ButtonClick",
            [&](Procedure& p) { p.step([&] { editor_.copyFrom(*caller_->profileFilter); }); });
}

void SelectionDialog::CMD_OK_ButtonClick() {
  procedure(context_, "CMD_OK_ButtonClick", [&](Procedure& p) {
    if (!p.step([&] { return editor_.confirmRanges(); })) return;
    caller_->filterText = condition(p);
    caller_->filterWords = editor_.words();
    caller_->isFilterObtained = true;
    p.step([&] { Unload(); });
  });
}

void SelectionDialog::CMD_ANNULLA_ButtonClick() {
  procedure(context_, "CMD_ANNULLA_ButtonClick", [&](Procedure& p) { p.step([&] { Unload(); }); });
}

std::string SelectionDialog::condition(Procedure& p) {
  return p.step([&] { return filter_.condition(); });
}

void SelectionDialog::Form_Unload() {
  editor_.releaseSurroundings();
}

// ---- articles

FRMKB_SELMULTIART::FRMKB_SELMULTIART(SelectionCaller& caller)
    : SelectionDialog(ofArticles, caller) {
  editor_.setVisible(false);
}

void FRMKB_SELMULTIART::Form_Load() {
  procedure(context(), "Form_Load", [&](Procedure& p) {
    translateTexts(p);
    prepareEditor(p);
    editor_.setVisible(true);
  });
}

// ---- customers

FRMKB_SELMULTICLI::FRMKB_SELMULTICLI(SelectionCaller& caller)
    : SelectionDialog(ofCustomers, caller), VLT_RESIZEFORM1("VLT_RESIZEFORM1") {
  add(VLT_RESIZEFORM1);
  VLT_RESIZEFORM1.Setup.on([this](controls::ResizeManager& manager) {
    manager.registerControl(editor_.Name(), withTheWindow);
  });
}

void FRMKB_SELMULTICLI::Form_Load() {
  procedure(context(), "Form_Load", [&](Procedure& p) { translateTexts(p); });
}

void FRMKB_SELMULTICLI::Form_Activate() {
  procedure(context(), "Form_Activate", [&](Procedure& p) {
    if (activated_) return;
    ImpostaEnQueryLimiti();
    p.step([&] { VLT_RESIZEFORM1.layOut(); });
    activated_ = true;
  });
}

void FRMKB_SELMULTICLI::ImpostaEnQueryLimiti() {
  procedure(context(), "ImpostaEnQueryLimiti", [&](Procedure& p) { prepareEditor(p); });
}

std::string FRMKB_SELMULTICLI::condition(Procedure& /*p*/) {
  return StringaLimitiADV();
}

std::string FRMKB_SELMULTICLI::StringaLimitiADV() {
  return procedure(context(), "StringaLimitiADV",
                   [&](Procedure& p) { return SelectionDialog::condition(p); });
}

void FRMKB_SELMULTICLI::Form_Unload() {
  while (editor_.fieldCount() > 0) editor_.removeLastField();
  SelectionDialog::Form_Unload();
}

// ---- the main window's side

namespace {

template <class Dialog>
void showDialog(SelectionCaller& caller, const char* name) {
  procedure(caller.context, name, [&](Procedure& p) {
    const auto dialog = p.step([&] { return std::make_shared<Dialog>(caller); });
    if (!dialog) return;
    p.step([&] { caller.context.services.letUserWork([&] { dialog->Show(true); }); });
    dialog->clearCaller();
  });
}

}  // namespace

void VisualizzaFiltroArticoli(SelectionCaller& caller) {
  showDialog<FRMKB_SELMULTIART>(caller, "VisualizzaFiltroArticoli");
}

void VisualizzaFiltroClienti(SelectionCaller& caller) {
  showDialog<FRMKB_SELMULTICLI>(caller, "VisualizzaFiltroClienti");
}

}  // namespace kebu::forms
