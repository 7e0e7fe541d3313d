#pragma once

#include <string>

#include "ado/recordset.h"
#include "forms/page_context.h"
#include "forms/procedure.h"
#include "sql/discount_kinds.h"

namespace kebu::forms {

/// What the current row of a working table of discount rules stands for, in words: price list,
/// customer, article, families, prices or quantity steps, and validity, a line each. Descriptions
/// are looked up by the codes that the row has. What a stored rule does not keep is looked for in
/// the price list that it came from.
std::string describeRule(PageContext& context, const sql::DiscountKind& kind,
                         const Ref<ado::Recordset>& rows, Procedure& p);

}  // namespace kebu::forms
