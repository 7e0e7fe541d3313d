#pragma once

#include <map>
#include <string>

namespace kebu::tests {

/// Every value of the registry's classes, "key|name" to its text; a key by
/// itself as "key|".
using RegistryContents = std::map<std::wstring, std::wstring>;

RegistryContents registeredClasses();
/// The entries of `after` that `before` has not or has otherwise.
RegistryContents added(const RegistryContents& before, const RegistryContents& after);

}  // namespace kebu::tests
