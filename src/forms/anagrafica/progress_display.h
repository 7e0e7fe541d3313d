#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "controls/simple_controls.h"
#include "forms/page_context.h"
#include "forms/procedure.h"

namespace kebu::forms {

/// The controls by whose sizes the progress bar is placed.
struct ProgressSurroundings {
  const controls::Control& sideBar;
  const controls::Control& page;
  const controls::Control& navigatorBar;
};

/// Tells the user that a long procedure is running: the progress bar and the
/// status text.
class ProgressDisplay {
 public:
  ProgressDisplay(PageContext& context, const ProgressSurroundings& around);

  controls::ProgressBar PBAR;
  controls::StatusBar STATUSBAR;

  void InizializzaProgressAnimation();
  /// Shows the moving bar with `message` (the usual text when empty), or hides it.
  void MostraAvanzamento(bool show, const std::string& message = {});
  /// Puts the translated `message` into the status bar, and shows or hides the bar.
  void ImpostaMessaggioStato(const std::string& message, bool show);
  /// Runs the body of a long procedure under its given name, with `message` in the
  /// status bar while it runs and "Pronto" when it is done. When it is left early
  /// its text stays, the moving bar is hidden, and the result is false.
  bool during(const ProcedureName& called, const char* message,
              const std::function<void(Procedure&)>& body);
  /// Shows from now on how much of `total` is done.
  void expect(std::int32_t total);
  void advance(std::int32_t done);

 private:
  void PosizionaProgressBar();

  PageContext& context_;
  ProgressSurroundings around_;
};

}  // namespace kebu::forms
