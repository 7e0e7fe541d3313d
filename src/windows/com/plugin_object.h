#pragma once

#include "windows/support/com_ptr.h"
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::windows {

/// A new instance of the plug-in's class, as COM knows it.
ComPtr<::Cinterface> newPluginObject();

}  // namespace kebu::windows
