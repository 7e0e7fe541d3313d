#pragma once

#include <string>

#include "common/value.h"
#include "workbench/engine/values/types.h"

namespace kebu::workbench {

/// A value converted to the type of a field or parameter, as OLE DB converts it: texts without a
/// locale, numbers with a point and dates as yyyy-mm-dd. RuntimeError -2147217887 for what cannot
/// be converted or does not fit.
Value forField(const Value& value, const engine::SqlType& type);
/// A value of the type as a literal in SQL.
std::string literalOf(const Value& value, const engine::SqlType& type);

}  // namespace kebu::workbench
