#pragma once

#include <string>

#include "ado/recordset.h"
#include "controls/control_host.h"

namespace kebu::controls {

/// Whether the field holds whole numbers and the value is one with decimals, which would be
/// rounded.
bool losesDecimals(const ado::Field& field, const Value& value);

/// Tells the user that the value is not taken, naming the field by its caption and what the field
/// takes instead.
void tellRefused(ControlHost& host, const std::string& caption, const ado::Field& field,
                 const Value& value);

}  // namespace kebu::controls
