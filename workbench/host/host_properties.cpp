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

template <auto Set>
void setFlag(Cinterface& plugin, const std::string& value) {
  (plugin.*Set)(toFlag(value));
}
template <auto Set>
void setNumber(Cinterface& plugin, const std::string& value) {
  (plugin.*Set)(toInt32(Value(value)));
}
template <auto Set>
void setValue(Cinterface& plugin, const std::string& value) {
  (plugin.*Set)(Value(value));
}
void checkFlag(const std::string& value) {
  toFlag(value);
}
void checkNumber(const std::string& value) {
  toInt32(Value(value));
}
template <auto Get>
std::string getFlag(Cinterface& plugin) {
  return (plugin.*Get)() ? "true" : "false";
}
template <auto Get>
std::string getNumber(Cinterface& plugin) {
  return std::to_string((plugin.*Get)());
}
template <auto Get>
std::string getValue(Cinterface& plugin) {
  return toDisplay((plugin.*Get)());
}
/// For an object, whether there is one.
template <auto Get>
std::string getObject(Cinterface& plugin) {
  return (plugin.*Get)() ? "set" : "none";
}
std::string getActiveFrame(Cinterface& plugin) {
  const auto frame = plugin.ActiveFrame();
  return frame ? frame->Name() : "none";
}

constexpr std::array properties{
    HostProperty{"ClsGlobal", nullptr, nullptr, getObject<&Cinterface::ClsGlobal>},
    HostProperty{"ActiveFrame", nullptr, nullptr, getActiveFrame},
    HostProperty{"ActiveNavigator", nullptr, nullptr, getObject<&Cinterface::ActiveNavigator>},
    HostProperty{"ActiveDll", nullptr, nullptr, getObject<&Cinterface::ActiveDll>},
    HostProperty{"StatusBar", nullptr, nullptr, getObject<&Cinterface::StatusBar>},
    HostProperty{"CanInsert", setFlag<&Cinterface::setCanInsert>, checkFlag,
                 getFlag<&Cinterface::CanInsert>},
    HostProperty{"CanDelete", setFlag<&Cinterface::setCanDelete>, checkFlag,
                 getFlag<&Cinterface::CanDelete>},
    HostProperty{"CanUpdate", setFlag<&Cinterface::setCanUpdate>, checkFlag,
                 getFlag<&Cinterface::CanUpdate>},
    HostProperty{"CanQbe", setFlag<&Cinterface::setCanQbe>, checkFlag,
                 getFlag<&Cinterface::CanQbe>},
    HostProperty{"WindowState", setNumber<&Cinterface::setWindowState>, checkNumber,
                 getNumber<&Cinterface::WindowState>},
    HostProperty{"WindowModal", setFlag<&Cinterface::setWindowModal>, checkFlag,
                 getFlag<&Cinterface::WindowModal>},
    HostProperty{"ProgramMode", setNumber<&Cinterface::setProgramMode>, checkNumber,
                 getNumber<&Cinterface::ProgramMode>},
    HostProperty{"MenuModulo", setValue<&Cinterface::setMenuModulo>, nullptr,
                 getValue<&Cinterface::MenuModulo>},
    HostProperty{"MenuPadre", setValue<&Cinterface::setMenuPadre>, nullptr,
                 getValue<&Cinterface::MenuPadre>},
    HostProperty{"MenuProg", setValue<&Cinterface::setMenuProg>, nullptr,
                 getValue<&Cinterface::MenuProg>},
    HostProperty{"Caption", setValue<&Cinterface::setCaption>, nullptr,
                 getValue<&Cinterface::Caption>},
    HostProperty{"hwndParent", setNumber<&Cinterface::setHwndParent>, checkNumber,
                 getNumber<&Cinterface::hwndParent>},
    HostProperty{"Connection", nullptr, nullptr, getObject<&Cinterface::Connection>},
    HostProperty{"Cwindow", nullptr, nullptr, getObject<&Cinterface::Cwindow>},
    HostProperty{"Top", setValue<&Cinterface::setTop>, nullptr, getValue<&Cinterface::Top>},
    HostProperty{"Left", setValue<&Cinterface::setLeft>, nullptr, getValue<&Cinterface::Left>},
    HostProperty{"ClsVoceMenu", nullptr, nullptr, getObject<&Cinterface::ClsVoceMenu>},
    HostProperty{"IsActive", setFlag<&Cinterface::setIsActive>, checkFlag,
                 getFlag<&Cinterface::IsActive>},
    HostProperty{"IsCalled", setFlag<&Cinterface::setIsCalled>, checkFlag,
                 getFlag<&Cinterface::IsCalled>},
    HostProperty{"Filtro", setValue<&Cinterface::setFiltro>, nullptr,
                 getValue<&Cinterface::Filtro>},
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
