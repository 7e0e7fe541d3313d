#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ado/library.h"
#include "tests/windows/transcript.h"

namespace kebu::tests {

/// One way to ADO's objects: the engine's own, or the same through COM.
struct AdoSide {
  ado::Library& objects;
  /// A new one to a database that begins with the table T, still closed.
  std::function<Ref<ado::Connection>()> connect;
};

/// A use of ADO's objects that must give the same on every side.
struct AdoScenario {
  const char* name;
  void (*run)(AdoSide& side, Transcript& transcript);
  std::vector<std::string> landmarks;  ///< texts that must be in the transcript
};

/// The statements that make the database of a side.
const std::vector<std::string>& adoSetUp();
const std::vector<AdoScenario>& adoScenarios();

}  // namespace kebu::tests
