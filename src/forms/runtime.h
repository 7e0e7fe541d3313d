#pragma once

#include "ado/library.h"
#include "common/platform.h"
#include "controls/desktop.h"

namespace kebu::forms {

/// What the plug-in runs on: the operating system, the database objects it
/// creates for itself, and the screen. All outlive the plug-in.
struct Runtime {
  Platform& platform;
  ado::Library& ado;
  controls::Desktop& desktop;
};

}  // namespace kebu::forms
