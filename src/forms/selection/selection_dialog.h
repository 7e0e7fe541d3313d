#pragma once

#include <string>

#include "common/instance_trace.h"
#include "controls/form.h"
#include "controls/query_editor.h"
#include "controls/simple_controls.h"
#include "forms/filters/filter_editor.h"
#include "forms/page_context.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// What a selection dialog gets from the window that calls it, and the filter that
/// it gives back.
struct SelectionCaller {
  PageContext& context;
  std::string filterText = {};
  bool isFilterObtained = false;
  /// The filter in words; "" for none.
  std::string filterWords = {};
  /// The profile's own filter, which the dialog offers; null for none.
  const controls::QueryEditor* profileFilter = nullptr;
};

/// A modal dialog in which the user narrows a list: one query editor, OK and
/// Cancel. On OK the caller gets the condition.
class SelectionDialog : public controls::Form {
 public:
  /// What the two dialogs differ in.
  struct Kind {
    const char* name;
    const char* caption;
    const char* editor;
    const FilterSubject& (*subject)();
    const char* keySuffix;
  };

  SelectionDialog(const Kind& kind, SelectionCaller& caller);
  ~SelectionDialog() override;
  /// Forgets the caller, once the dialog is closed.
  void clearCaller() { caller_ = nullptr; }

 protected:
  void Form_Unload() override;
  void translateTexts(Procedure& p);
  void prepareEditor(Procedure& p) { filter_.prepare(kind_.keySuffix, p); }
  /// The condition that is handed to the caller.
  virtual std::string condition(Procedure& p);
  PageContext& context() const { return context_; }

  controls::QueryEditor editor_;
  controls::Button CMD_FILTROPROFILO{"CMD_FILTROPROFILO", "Filtro del profilo"};
  controls::Button CMD_OK{"CMD_OK", "OK"};
  controls::Button CMD_ANNULLA{"CMD_ANNULLA", "Annulla"};
  controls::ProgressBar PBAR_CONTA{"PBAR_CONTA"};

 private:
  void CMD_FILTROPROFILO_ButtonClick();
  void CMD_OK_ButtonClick();
  void CMD_ANNULLA_ButtonClick();

  const Kind& kind_;
  InstanceTrace trace_;
  SelectionCaller* caller_;
  PageContext& context_;
  FilterEditor filter_;
};

/// Of articles.
class FRMKB_SELMULTIART : public SelectionDialog {
 public:
  explicit FRMKB_SELMULTIART(SelectionCaller& caller);

 protected:
  void Form_Load() override;
};

/// Of customers.
class FRMKB_SELMULTICLI : public SelectionDialog {
 public:
  explicit FRMKB_SELMULTICLI(SelectionCaller& caller);

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  void Form_Unload() override;
  std::string condition(Procedure& p) override;

 private:
  void ImpostaEnQueryLimiti();
  std::string StringaLimitiADV();

  controls::ResizeManager VLT_RESIZEFORM1;
  bool activated_ = false;
};

/// Called by the main window: each opens a new dialog and returns when it is
/// closed. If the user gave a filter, it is in the caller's members then.
void VisualizzaFiltroArticoli(SelectionCaller& caller);
void VisualizzaFiltroClienti(SelectionCaller& caller);

}  // namespace kebu::forms
