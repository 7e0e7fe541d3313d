#pragma once

#include <string>

#include "ado/recordset.h"
#include "controls/control_host.h"

namespace kebu::controls {

/// Whether the field would keep something else than was meant: a number with more decimals than it
/// keeps, or with a point of another locale, or a text with characters that the database lacks.
bool isLossy(ControlHost& host, const ado::Field& field, const Value& value);

/// Tells the user that the value is not taken, naming the field by its caption and what the field
/// takes instead.
void tellRefused(ControlHost& host, const std::string& caption, const ado::Field& field,
                 const Value& value);

}  // namespace kebu::controls
