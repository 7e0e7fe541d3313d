#pragma once

#include <memory>

#include "common/platform.h"
#include "workbench/engine/ado_objects.h"
#include "workbench/host/stand_in_host.h"

namespace kebu::workbench {

/// Where the plug-in comes from: the DLL beside this program, or, while there
/// is none, the plug-in that this program is linked with, in the same window.
/// Must outlive what it creates.
class PluginSource {
 public:
  /// The platform is for the linked plug-in.
  explicit PluginSource(Platform& platform);
  ~PluginSource();

  Ref<host::Cinterface> create() const;
  bool isDll() const;

 private:
  class Dll;
  class Linked;
  std::unique_ptr<Dll> dll_;
  std::unique_ptr<Linked> linked_;
};

}  // namespace kebu::workbench
