#pragma once

#include "windows/support/variant.h"

namespace kebu::tests {

/// Whether kind and contents are the same; an object goes by its identity.
bool isSame(const windows::Variant& a, const windows::Variant& b);

}  // namespace kebu::tests
