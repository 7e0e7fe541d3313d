#pragma once

#include "windows/support/variant.h"

namespace kebu::tests {

/// A VARIANT of any type, which no constructor makes: `field` is the one that the type uses.
template <class Field>
windows::Variant with(VARTYPE type, Field VARIANT::*field, Field content) {
  windows::Variant result;
  result.raw().*field = content;
  result.raw().vt = type;
  return result;
}

}  // namespace kebu::tests
