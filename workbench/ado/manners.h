#pragma once

namespace kebu::workbench {

/// How the stand-in behaves where ADO's documentation leaves it open or where installations differ.
/// The scenarios are played with all of these as they are and with all of them reversed.
struct Manners {
  /// A row that an edit takes out of the filter is left when it is sent; else at the next move.
  bool leavesFilterAtOnce = false;
  /// The error of asynchronous work is only in the connection's Errors; else reading State raises
  /// it.
  bool silentState = false;
  /// @@IDENTITY is that of another table, as after a trigger that inserts a row into one.
  bool foreignIdentity = false;

  static constexpr Manners reversed() { return {true, true, true}; }
};

}  // namespace kebu::workbench
