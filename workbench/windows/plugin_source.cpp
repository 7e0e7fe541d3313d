#include "workbench/windows/plugin_source.h"

#include "plugin/clskb_anagkelmoria.h"
#include "windows/views/win32_desktop.h"
#include "workbench/windows/dll_plugin.h"
#include "workbench/windows/plugin_library.h"

namespace kebu::workbench {

class PluginSource::Dll {
 public:
  Ref<host::Cinterface> create() const {
    return makeRef<DllPlugin>(library_.create(), library_.navigatorEvents());
  }

 private:
  PluginLibrary library_{PluginLibrary::besideProgram()};
};

class PluginSource::Linked {
 public:
  explicit Linked(Platform& platform) : platform_(platform) {}
  Ref<host::Cinterface> create() {
    return plugin::CLSKB_ANAGKELMORIA::create({platform_, objects_, desktop_});
  }

 private:
  Platform& platform_;
  engine::Library objects_;
  windows::Win32Desktop desktop_{GetModuleHandleW(nullptr)};
};

PluginSource::PluginSource(Platform& platform) {
  if (std::filesystem::exists(PluginLibrary::besideProgram())) {
    dll_ = std::make_unique<Dll>();
  } else {
    linked_ = std::make_unique<Linked>(platform);
  }
}

PluginSource::~PluginSource() = default;

bool PluginSource::isDll() const {
  return dll_ != nullptr;
}

Ref<host::Cinterface> PluginSource::create() const {
  return dll_ ? dll_->create() : linked_->create();
}

}  // namespace kebu::workbench
