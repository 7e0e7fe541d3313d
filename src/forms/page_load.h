#pragma once

#include <functional>
#include <string>

#include "forms/page_context.h"

namespace kebu::forms {

/// Whether what a page shows could be read. When a load was left by Abort the page is locked, and
/// a notice offers to read it again, until a load succeeds: saving what is shown would delete what
/// was not read.
class PageLoad {
 public:
  struct Surroundings {
    std::string cause;                      ///< of the notice
    std::string text;                       ///< of the notice, in Italian
    std::function<void()> reload;           ///< loads once more
    std::function<void(bool locked)> lock;  ///< locks the page's controls, or frees them
  };

  PageLoad(PageContext& context, Surroundings surroundings)
      : context_(context), surroundings_(std::move(surroundings)) {}

  /// A load has ended; false when it was left by Abort.
  void ended(bool succeeded);
  bool hasFailed() const { return failed_; }

 private:
  PageContext& context_;
  Surroundings surroundings_;
  bool failed_ = false;
};

}  // namespace kebu::forms
