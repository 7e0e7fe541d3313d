#include "forms/selection/selection_dialog.h"

#include <memory>

#include "sql/query_predicate.h"

namespace kebu::forms {

namespace {

constexpr SelectionDialog::Kind ofArticles{"FRMKB_SELMULTIART", "Selezione articoli",
                                           "ENHQUERY_LIMITI", articlesSubject, "_SELART"};
constexpr SelectionDialog::Kind ofCustomers{"FRMKB_SELMULTICLI", "Selezione clienti", "ENHQUERY",
                                            customersSubject, "_SELCLI"};

constexpr std::int32_t withTheWindow = 15;  // resize rule: keeps to all four sides

}  // namespace

SelectionDialog::SelectionDialog(const Kind& kind, SelectionCaller& caller)
    : Form(kind.name, caller.context.runtime().desktop),
      editor_(kind.editor, caller.context.services, sql::queryComposer),
      CMD_OK("CMD_OK", "OK"),
      CMD_ANNULLA("CMD_ANNULLA", "Annulla"),
      kind_(kind),
      trace_(caller.context.runtime().platform, kind.name),
      caller_(&caller),
      context_(caller.context),
      filter_(context_, editor_, kind.subject()) {
  trace_.initialized();
  setCaption(kind.caption);
  addAll(editor_, CMD_OK, CMD_ANNULLA);
  CMD_OK.ButtonClick.on([this] { CMD_OK_ButtonClick(); });
  CMD_ANNULLA.ButtonClick.on([this] { CMD_ANNULLA_ButtonClick(); });
}

SelectionDialog::~SelectionDialog() {
  ignoringErrors([&] { trace_.terminated(); });
}

void SelectionDialog::translateTexts(Steps& step) {
  step([&] {
    setCaption(context_.translate(kind_.caption));
    translate([this](const std::string& text) { return context_.translate(text); });
  });
}

void SelectionDialog::CMD_OK_ButtonClick() {
  trap(services(), "CMD_OK_ButtonClick", [&](Steps& step) {
    if (!step([&] { return editor_.confirmRanges(); })) return;
    const std::string text = condition(step);
    step([&] { caller_->filterText = text; });
    step([&] { caller_->isFilterObtained = true; });
    step([&] { Unload(); });
  });
}

void SelectionDialog::CMD_ANNULLA_ButtonClick() {
  trap(services(), "CMD_ANNULLA_ButtonClick", [&](Steps& step) { step([&] { Unload(); }); });
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
  trap(services(), "Form_Load", [&](Steps& step) {
    translateTexts(step);
    prepareEditor(step);
    step([&] { editor_.setVisible(true); });
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
  trap(services(), "Form_Load", [&](Steps& step) { translateTexts(step); });
}

void FRMKB_SELMULTICLI::Form_Activate() {
  trap(services(), "Form_Activate", [&](Steps& step) {
    if (activated_) return;
    ImpostaEnQueryLimiti();
    step([&] { VLT_RESIZEFORM1.layOut(); });
    activated_ = true;
  });
}

void FRMKB_SELMULTICLI::ImpostaEnQueryLimiti() {
  trap(services(), "ImpostaEnQueryLimiti", [&](Steps& step) { prepareEditor(step); });
}

std::string FRMKB_SELMULTICLI::condition(Steps& /*step*/) {
  return StringaLimitiADV();
}

std::string FRMKB_SELMULTICLI::StringaLimitiADV() {
  return trap(services(), "StringaLimitiADV",
              [&](Steps& step) { return SelectionDialog::condition(step); });
}

void FRMKB_SELMULTICLI::Form_Unload() {
  while (editor_.fieldCount() > 0) editor_.removeLastField();
  SelectionDialog::Form_Unload();
}

// ---- the main window's side

namespace {

template <class Dialog>
void showDialog(SelectionCaller& caller, const char* procedure) {
  trap(caller.context.services, procedure, [&](Steps& step) {
    const auto dialog = step([&] { return std::make_shared<Dialog>(caller); });
    if (!dialog) return;
    step([&] { dialog->Show(true); });
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
