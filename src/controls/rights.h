#pragma once

namespace kebu::controls {

/// What the host lets the user do with records.
struct Rights {
  bool canInsert = false;
  bool canUpdate = false;
  bool canDelete = false;
};

}  // namespace kebu::controls
