#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "tests/walk/gesture_source.h"
#include "tests/walk/statement_shapes.h"
#include "workbench/engine/execution/database.h"

namespace kebu::tests {

/// What a walk is made on.
struct WalkGround {
  const engine::Database& company;  ///< copied for each walk
  const StatementShapes& shapes;
};

/// What came of a walk.
struct WalkOutcome {
  std::deque<WalkStep> steps;
  std::deque<WalkStep> closing;  ///< of the windows that were open at the end, nothing saved
  std::size_t statements = 0;
  std::size_t comparisons = 0;  ///< of a page with a fresh load
  /// The first rule that was broken, in one line; nothing when all held.
  std::optional<std::string> broken;
};

/// Walks through the window on a company of its own, closes it, and holds everything to the rules
/// that must hold whatever a user does:
/// - no error leaves the plug-in
/// - the window can always be closed, and leaves no working table
/// - a lost connection is told once in a gesture
/// - nothing is changed but the company's own rows of the plug-in's tables and what the ERP's
///   procedures write
/// - the profile is only written when the user saves
/// - every statement has one of the known shapes, and none runs while rows of another are unread
/// - after "Annulla", and after "Conferma" without a fault, a page shows what a fresh window shows;
///   so does the page of discounts when another list type is chosen, and the rules that were saved
WalkOutcome walk(const WalkGround& ground, GestureSource& source);

/// The steps of a walk made again; those that cannot be made are passed over.
WalkOutcome walkAgain(const WalkGround& ground, const std::deque<WalkStep>& steps);

/// The walk without the steps that are not needed for the same rule to be broken.
WalkOutcome shortened(const WalkGround& ground, WalkOutcome broken);

}  // namespace kebu::tests
