#pragma once

#include <optional>
#include <string>

#include "common/date.h"

#include "forms/page_context.h"

namespace kebu::forms {

/// When the ERP was asked for the job that imports orders, and whether it took the request.
struct JobRequest {
  Date at;
  bool isTaken = false;
};

/// Makes sure that the ERP has what the profile's synchronisation needs: its
/// activities, the synchronisation type, and the job that imports orders.
class Synchronisation {
 public:
  explicit Synchronisation(PageContext& context) : context_(context) {}

  void InsertGM02Records();
  void InsertGM08NuoviModelliSincro();
  /// Asks the ERP for the job that imports orders; whether that was done.
  bool SchedulaAttJob();
  /// The last request since the window was opened; nothing when there was none.
  const std::optional<JobRequest>& lastRequest() const { return lastRequest_; }

 private:
  std::string GetPercorsoInstallazione();

  PageContext& context_;
  std::optional<JobRequest> lastRequest_;
};

}  // namespace kebu::forms
