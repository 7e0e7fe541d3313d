#pragma once

#include "forms/anagrafica/page_groups.h"

namespace kebu::forms {

/// A page of the window: it owns its controls and its procedures.
class Page {
 public:
  Page() = default;
  Page(const Page&) = delete;
  Page& operator=(const Page&) = delete;
  virtual ~Page() = default;

  /// Puts the page's controls into the group boxes of the window.
  virtual void place(PageGroups& groups) = 0;
  /// Gives back what the page holds of the database and of the host.
  virtual void release() {}
};

}  // namespace kebu::forms
