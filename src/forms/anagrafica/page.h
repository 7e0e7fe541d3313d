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
  /// Releases the rows and the host's objects that the page holds.
  virtual void release() {}
};

}  // namespace kebu::forms
