#pragma once

#include "workbench/engine/execution/session.h"

// Fills the demo company with large amounts of data.
namespace kebu::workbench {

/// Copies the 1,300 articles of company 1 until there are 100,100.
void fillWithArticles(engine::Session& session);
/// Replaces the customers' prices by 100,000: 1,000 customers with 100 articles each.
void fillWithPrices(engine::Session& session);

}  // namespace kebu::workbench
