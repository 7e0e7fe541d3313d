#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ado/library.h"
#include "tests/windows/story.h"

namespace kebu::tests {

/// One way to ADO's objects: the engine's own, or the same through COM.
struct AdoSide {
  ado::Library& objects;
  /// A new one to a database that begins with the table T, still closed.
  std::function<Ref<ado::Connection>()> connect;
};

struct AdoStory {
  const char* name;
  void (*tell)(AdoSide& side, Story& story);
  /// What has to come up on the way.
  std::vector<std::string> milestones;
};

/// The statements that make the database of a side.
const std::vector<std::string>& adoSetUp();
const std::vector<AdoStory>& adoStories();

}  // namespace kebu::tests
