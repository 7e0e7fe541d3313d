#pragma once

#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::tests {

/// Sets every property and reads it back, by name and through the vtable.
/// `plugin` is a new instance.
void checkProperties(::Cinterface& plugin);
/// The members stand in the contract's order, in the vtable as in the type library.
void checkOrder(::Cinterface& plugin);

}  // namespace kebu::tests
