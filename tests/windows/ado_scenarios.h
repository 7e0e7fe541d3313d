#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ado/library.h"
#include "tests/windows/transcript.h"

namespace kebu::tests {

/// Where a scenario gets ADO's objects from: the engine, or the same through COM.
struct AdoSide {
  ado::Library& objects;
  /// A new closed connection to a database that adoSetUp() has filled.
  std::function<Ref<ado::Connection>()> connect;
};

/// A use of ADO's objects that must give the same on every side.
struct AdoScenario {
  const char* name;
  void (*run)(AdoSide& side, Transcript& transcript);
  std::vector<std::string> landmarks;  ///< texts that must be in the transcript
};

/// The statements that fill the database of a side.
const std::vector<std::string>& adoSetUp();
const std::vector<AdoScenario>& adoScenarios();

}  // namespace kebu::tests
