#include "workbench/host/host_properties.h"

#include <algorithm>
#include <array>

#include "common/convert.h"

namespace kebu::workbench {

namespace {

using host::Cinterface;

bool toFlag(const std::string& text) {
  if (equalsIgnoringCase(text, "on")) return true;
  if (equalsIgnoringCase(text, "off")) return false;
  return toBoolean(Value(text));
}

template <auto Set, auto Get>
constexpr HostProperty flag(std::string_view name) {
  return {name, [](Cinterface& plugin, const std::string& value) { (plugin.*Set)(toFlag(value)); },
          [](const std::string& value) { toFlag(value); },
          [](Cinterface& plugin) { return std::string((plugin.*Get)() ? "true" : "false"); }};
}

template <auto Set, auto Get>
constexpr HostProperty number(std::string_view name) {
  return {name, [](Cinterface& plugin, const std::string& value) { (plugin.*Set)(toInt32(value)); },
          [](const std::string& value) { toInt32(value); },
          [](Cinterface& plugin) { return std::to_string((plugin.*Get)()); }};
}

template <auto Set, auto Get>
constexpr HostProperty value(std::string_view name) {
  return {name, [](Cinterface& plugin, const std::string& value) { (plugin.*Set)(Value(value)); },
          nullptr, [](Cinterface& plugin) { return toDisplay((plugin.*Get)()); }};
}

/// Tells whether there is an object.
template <auto Get>
constexpr HostProperty object(std::string_view name) {
  return {name, nullptr, nullptr,
          [](Cinterface& plugin) { return std::string((plugin.*Get)() ? "set" : "none"); }};
}

std::string activeFrame(Cinterface& plugin) {
  const auto frame = plugin.ActiveFrame();
  return frame ? frame->Name() : "none";
}

constexpr std::array properties{
    object<&Cinterface::ClsGlobal>("ClsGlobal"),
    HostProperty{"ActiveFrame", nullptr, nullptr, activeFrame},
    object<&Cinterface::ActiveNavigator>("ActiveNavigator"),
    object<&Cinterface::ActiveDll>("ActiveDll"),
    object<&Cinterface::StatusBar>("StatusBar"),
    flag<&Cinterface::setCanInsert, &Cinterface::CanInsert>("CanInsert"),
    flag<&Cinterface::setCanDelete, &Cinterface::CanDelete>("CanDelete"),
    flag<&Cinterface::setCanUpdate, &Cinterface::CanUpdate>("CanUpdate"),
    flag<&Cinterface::setCanQbe, &Cinterface::CanQbe>("CanQbe"),
    number<&Cinterface::setWindowState, &Cinterface::WindowState>("WindowState"),
    flag<&Cinterface::setWindowModal, &Cinterface::WindowModal>("WindowModal"),
    number<&Cinterface::setProgramMode, &Cinterface::ProgramMode>("ProgramMode"),
    value<&Cinterface::setMenuModulo, &Cinterface::MenuModulo>("MenuModulo"),
    value<&Cinterface::setMenuPadre, &Cinterface::MenuPadre>("MenuPadre"),
    value<&Cinterface::setMenuProg, &Cinterface::MenuProg>("MenuProg"),
    value<&Cinterface::setCaption, &Cinterface::Caption>("Caption"),
    number<&Cinterface::setHwndParent, &Cinterface::hwndParent>("hwndParent"),
    object<&Cinterface::Connection>("Connection"),
    object<&Cinterface::Cwindow>("Cwindow"),
    value<&Cinterface::setTop, &Cinterface::Top>("Top"),
    value<&Cinterface::setLeft, &Cinterface::Left>("Left"),
    object<&Cinterface::ClsVoceMenu>("ClsVoceMenu"),
    flag<&Cinterface::setIsActive, &Cinterface::IsActive>("IsActive"),
    flag<&Cinterface::setIsCalled, &Cinterface::IsCalled>("IsCalled"),
    value<&Cinterface::setFiltro, &Cinterface::Filtro>("Filtro"),
};

}  // namespace

std::span<const HostProperty> hostProperties() {
  return properties;
}

const HostProperty* findHostProperty(std::string_view name) {
  const auto* const at = std::find_if(properties.begin(), properties.end(), [&](const auto& p) {
    return equalsIgnoringCase(p.name, name);
  });
  return at == properties.end() ? nullptr : at;
}

}  // namespace kebu::workbench
