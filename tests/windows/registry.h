#pragma once

#include <map>
#include <string>

namespace kebu::tests {

/// Every value under HKEY_CLASSES_ROOT, from "key|name" to its text; a key itself is "key|".
using RegistryContents = std::map<std::wstring, std::wstring>;

RegistryContents registeredClasses();
/// The entries of `after` that are missing in `before` or differ there.
RegistryContents added(const RegistryContents& before, const RegistryContents& after);

}  // namespace kebu::tests
