#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/cinterface.h"

namespace kebu::workbench {

/// A property of the plug-in's contract, read and written as text.
struct HostProperty {
  std::string_view name;
  /// Null for a property whose value is an object.
  void (*set)(host::Cinterface& plugin, const std::string& value);
  /// RuntimeError when the property does not take the value; null where it takes every text.
  void (*check)(const std::string& value);
  std::string (*get)(host::Cinterface& plugin);
};

/// All properties in the order of the contract.
std::span<const HostProperty> hostProperties();
/// Finds a property by name, ignoring case; null when there is none.
const HostProperty* findHostProperty(std::string_view name);

}  // namespace kebu::workbench
