#pragma once

#include <cstdint>
#include <functional>

namespace kebu::tests::faultyfiles {

// SQLite's access to files, with faults where a test wants them. An operation is a write to a file
// or the deletion of one.

/// Puts it in front of the system's own files, for all databases that the process opens later.
void install();

/// Counts from 0 again, and nothing fails.
void reset();
/// The operations since reset().
std::int64_t operations();

/// From that operation on, counted from 1, the disk is full.
void fillDiskAt(std::int64_t operation);
/// The process is killed in the middle of that operation.
void killAt(std::int64_t operation);

/// Databases that are opened from now on can be read only, or written again.
void setReadOnly(bool readOnly);

/// Called when a transaction has ended and its journal is deleted. May be empty.
void whenTransactionEnds(std::function<void()> handler);

}  // namespace kebu::tests::faultyfiles
