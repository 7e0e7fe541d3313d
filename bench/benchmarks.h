#pragma once

#include "bench/paired_runner.h"
#include "tests/support/statement_recorder.h"
#include "tests/support/test_workplace.h"

namespace kebu::bench {

/// Opening the window and saving the profile, on a company in a file.
void measureProfile(PairedRunner& runner);
/// Discount rules of a company with 100,000 prices: recomputing, loading, saving.
void measureRules(PairedRunner& runner);
/// The preview and the summary of 100,100 articles, and counting articles by a filter.
void measurePreview(PairedRunner& runner);
/// Sorting and finding in a grid of 1,000,000 rows.
void measureGridTools(PairedRunner& runner);

/// Runs the statements directly on the engine.
inline void replay(engine::Session& session, const tests::Statements& statements) {
  for (const std::string& statement : statements) session.execute(statement);
}

/// A workplace whose user accepts modal windows and meets no message box: one that is shown ends
/// the measurement with its text.
class BenchWorkplace : public tests::TestWorkplace {
 public:
  explicit BenchWorkplace(const std::shared_ptr<engine::Database>& database);
};

}  // namespace kebu::bench
