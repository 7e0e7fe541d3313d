#pragma once

#include "windows/support/com_ptr.h"
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::tests {

/// A new instance of the plug-in's class, which must be registered.
windows::ComPtr<::Cinterface> createInstance();

}  // namespace kebu::tests
