#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "common/trap.h"
#include "controls/simple_controls.h"
#include "forms/services.h"

namespace kebu::forms {

/// The sizes from which the progress bar finds its place, in pixels.
struct ProgressSurroundings {
  const controls::Control& sideBar;
  const controls::Control& page;
  const controls::Control& navigatorBar;
};

/// Tells the user that something long is at work: the progress bar and the
/// status text.
class ProgressDisplay {
 public:
  ProgressDisplay(Services& services, controls::Desktop& desktop,
                  const ProgressSurroundings& around);

  controls::ProgressBar PBAR;
  controls::StatusBar STATUSBAR;

  void InizializzaProgressAnimation();
  /// Shows the moving bar with `message` (the usual text when empty), or hides it.
  void MostraAvanzamento(bool show, const std::string& message = {});
  /// Puts the translated `message` into the status bar, and shows or hides the bar.
  void ImpostaMessaggioStato(const std::string& message, bool show);
  /// Runs the body of a long procedure in its trap, with `message` in the status
  /// bar while it is at work and "Pronto" when it is done. A procedure that is
  /// left leaves its text there, but not the moving bar.
  void during(const std::string& procedure, const char* message,
              const std::function<void(Steps&)>& body);
  /// Shows from now on how much of `total` is done.
  void expect(std::int32_t total);
  void advance(std::int32_t done);

 private:
  void PosizionaProgressBar();

  Services& services_;
  controls::Desktop& desktop_;
  ProgressSurroundings around_;
};

}  // namespace kebu::forms
