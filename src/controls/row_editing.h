#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "ado/recordset.h"
#include "common/value.h"

namespace kebu::controls {

/// The value as the field's type: texts are read by the user's locale, since ADO reads them without
/// one, and decimals are rounded to the field's digits. RuntimeError 13 for what is of another
/// kind, 6 for a number too large, -2147217887 for a text too long.
Value convertedFor(const ado::Field& field, const Value& value);

/// Sets a field of the current row to the converted value. Also 3265 when there is no such field.
void setField(ado::Recordset& rows, std::string_view field, const Value& value);

/// Changes fields of the current row and sends it. A change that fails is discarded, so that it is
/// not sent with the row's next edit.
void writeRow(ado::Recordset& rows, const std::vector<std::pair<std::string, Value>>& cells);

}  // namespace kebu::controls
