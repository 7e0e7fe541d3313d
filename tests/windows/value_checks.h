#pragma once

namespace kebu::tests {

/// Every kind of VARIANT as a value, and values there and back.
void checkValues();

}  // namespace kebu::tests
