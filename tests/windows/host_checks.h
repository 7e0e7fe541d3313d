#pragma once

namespace kebu::tests {

/// The host's roles over COM beside the host's services themselves, the
/// navigator's events, identities, and hosts that answer badly.
void checkHostObjects();

}  // namespace kebu::tests
