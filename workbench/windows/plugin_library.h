#pragma once

#include <windows.h>

#include <oaidl.h>

#include <filesystem>

#include "windows/support/com_ptr.h"

namespace kebu::workbench {

/// The plug-in's DLL, used without being registered, and what its type library
/// tells of it. CommandError when it is not there or is something else.
class PluginLibrary {
 public:
  explicit PluginLibrary(const std::filesystem::path& file);
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

 private:
  HMODULE module_ = nullptr;
  CLSID class_{};
  IID navigatorEvents_{};
};

}  // namespace kebu::workbench
