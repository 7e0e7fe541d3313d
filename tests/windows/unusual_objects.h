#pragma once

namespace kebu::tests {

/// Hosts that answer nothing or something else than they should.
void checkUnusualHosts();
/// What the real ADO does otherwise than the workbench's objects.
void checkAdoManners();

}  // namespace kebu::tests
