#pragma once

#include "windows/support/dispatch.h"

namespace kebu::windows {

// What a batch gives back comes as a chain of recordsets, closed ones for the
// statements that give no rows. An error of a later statement is only told
// when the chain is followed so far.

/// The first recordset of the chain that has rows; the last closed one when
/// none has. `first` may be absent.
Dispatch firstWithRows(Dispatch first);
/// Follows the chain to its end.
void drain(Dispatch first);

}  // namespace kebu::windows
