#pragma once

#include <string>

#include "forms/page_context.h"

namespace kebu::forms {

/// Makes sure that the ERP has what the profile's synchronisation needs: its
/// activities, the synchronisation type, and the job that imports orders.
class Synchronisation {
 public:
  explicit Synchronisation(PageContext& context) : context_(context) {}

  void InsertGM02Records();
  void InsertGM08NuoviModelliSincro();
  /// Asks the ERP for the job that imports orders; whether that was done.
  bool SchedulaAttJob();

 private:
  std::string GetPercorsoInstallazione();

  PageContext& context_;
};

}  // namespace kebu::forms
