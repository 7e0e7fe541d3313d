#include "workbench/windows/plugin_library.h"

#include <string>

#include "common/error.h"
#include "common/trap.h"
#include "windows/support/text.h"
#include "workbench/cli/command_line.h"

namespace kebu::workbench {

using windows::ComPtr;

namespace {

std::string shown(const std::filesystem::path& path) {
  return windows::toUtf8(path.wstring());
}

GUID idOf(ITypeLib& library, const wchar_t* type) {
  std::wstring name = type;
  ComPtr<ITypeInfo> info;
  MEMBERID member = 0;
  USHORT count = 1;
  TYPEATTR* attributes = nullptr;
  if (FAILED(library.FindName(name.data(), 0, info.put(), &member, &count)) || count == 0 ||
      FAILED(info->GetTypeAttr(&attributes))) {
    throw CommandError("the plug-in's type library knows no " + windows::toUtf8(type));
  }
  const GUID id = attributes->guid;
  info->ReleaseTypeAttr(attributes);
  return id;
}

using EntryPoint = HRESULT(STDAPICALLTYPE*)();

/// An exported function.
template <class Function>
Function exported(HMODULE module, const char* name) {
  const FARPROC address = GetProcAddress(module, name);
  if (!address) throw CommandError(std::string("the plug-in's library has no ") + name);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}

}  // namespace

std::filesystem::path PluginLibrary::besideProgram() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return std::filesystem::path(path).parent_path() / L"KEBU_ANAGKELMORIA.dll";
}

PluginLibrary::PluginLibrary(const std::filesystem::path& file) {
  ComPtr<ITypeLib> types;
  if (FAILED(LoadTypeLibEx(file.c_str(), REGKIND_NONE, types.put()))) {
    throw CommandError(shown(file) + " is not there, or holds no type library");
  }
  class_ = idOf(*types.get(), L"CLSKB_ANAGKELMORIA");
  navigatorEvents_ = idOf(*types.get(), L"DNavigatorEvents");
  module_.reset(LoadLibraryW(file.c_str()));
  if (!module_) throw CommandError(shown(file) + " cannot be loaded");
}

PluginLibrary::~PluginLibrary() {
  bool agrees = false;
  ignoringErrors([&] { agrees = canUnload(); });
  if (!agrees) static_cast<void>(module_.release());
}

ComPtr<IDispatch> PluginLibrary::create() const {
  const auto getClassObject = exported<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, LPVOID*)>(
      module_.get(), "DllGetClassObject");
  ComPtr<IClassFactory> factory;
  ComPtr<IDispatch> object;
  HRESULT result = getClassObject(class_, IID_IClassFactory, factory.putVoid());
  if (SUCCEEDED(result)) {
    result = factory->CreateInstance(nullptr, IID_IDispatch, object.putVoid());
  }
  if (FAILED(result)) {
    throw RuntimeError(static_cast<std::int32_t>(result), "The plug-in cannot be created.");
  }
  return object;
}

bool PluginLibrary::canUnload() const {
  return exported<EntryPoint>(module_.get(), "DllCanUnloadNow")() == S_OK;
}

HRESULT PluginLibrary::registerServer() const {
  return exported<EntryPoint>(module_.get(), "DllRegisterServer")();
}

HRESULT PluginLibrary::unregisterServer() const {
  return exported<EntryPoint>(module_.get(), "DllUnregisterServer")();
}

}  // namespace kebu::workbench
