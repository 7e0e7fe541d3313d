#pragma once

#include <span>
#include <string>
#include <string_view>

#include "host/cinterface.h"

namespace kebu::workbench {

/// A property of the plug-in's contract, as texts.
struct HostProperty {
  std::string_view name;
  /// Nothing for a property that only objects can be put into.
  void (*set)(host::Cinterface& plugin, const std::string& value);
  std::string (*get)(host::Cinterface& plugin);
};

/// In the contract's order.
std::span<const HostProperty> hostProperties();
/// By name, case aside; null when there is none.
const HostProperty* findHostProperty(std::string_view name);

}  // namespace kebu::workbench
