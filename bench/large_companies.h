#pragma once

#include "workbench/engine/execution/session.h"

// The demo company made large, for what is measured.
namespace kebu::workbench {

/// 100,100 articles: each of the company's 1,300 many times over, beside itself.
void fillWithArticles(engine::Session& session);
/// Prices of 1,000 customers for 100 articles each, in place of the demo company's.
void fillWithPrices(engine::Session& session);

}  // namespace kebu::workbench
