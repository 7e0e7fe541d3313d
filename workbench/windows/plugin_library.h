#pragma once

#include <filesystem>

#include "windows/support/com_ptr.h"
#include "windows/support/handles.h"

namespace kebu::workbench {

/// The plug-in's DLL, used without needing to be registered, and the identifiers in its type
/// library. CommandError when the file is missing or is something else.
class PluginLibrary {
 public:
  explicit PluginLibrary(const std::filesystem::path& file);
  /// As COM does, unloads the DLL only if it agrees.
  ~PluginLibrary();
  PluginLibrary(const PluginLibrary&) = delete;
  PluginLibrary& operator=(const PluginLibrary&) = delete;

  /// The one beside this program.
  static std::filesystem::path besideProgram();

  /// A new instance of the class.
  windows::ComPtr<IDispatch> create() const;
  /// The interface of the navigator's events.
  const IID& navigatorEvents() const { return navigatorEvents_; }
  bool canUnload() const;
  /// Its entry points of these names.
  HRESULT registerServer() const;
  HRESULT unregisterServer() const;

 private:
  windows::OwnedModule module_;
  CLSID class_{};
  IID navigatorEvents_{};
};

}  // namespace kebu::workbench
