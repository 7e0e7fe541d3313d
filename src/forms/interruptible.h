#pragma once

#include <functional>

#include "controls/simple_controls.h"
#include "forms/page_context.h"

namespace kebu::forms {

/// Runs a long statement that leaves nothing half done when it ends early. While it lasts, `bar` is
/// shown, with `text` unless it is shown already, and offers to interrupt it. False when the user
/// did; other errors are raised.
bool runInterruptibly(const PageContext& context, controls::ProgressBar& bar, const char* text,
                      const std::function<void()>& statement);

}  // namespace kebu::forms
