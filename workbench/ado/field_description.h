#pragma once

#include "ado/recordset.h"
#include "workbench/engine/execution/result_set.h"

namespace kebu::workbench {

/// A column of a result as ADO describes it: type, size in characters, digits.
ado::Field describeField(const engine::ResultColumn& column);

}  // namespace kebu::workbench
