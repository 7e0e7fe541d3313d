#include "workbench/windows/host_automation.h"

#include "common/convert.h"
#include "windows/ado/error_collection.h"
#include "windows/host/host_objects.h"
#include "windows/support/automation.h"
#include "windows/support/safe_array.h"
#include "workbench/host/host_status_bar.h"
#include "workbench/windows/ado_automation.h"
#include "workbench/windows/navigator_object.h"

namespace kebu::workbench {

using namespace windows;

namespace {

using Argument = const Arguments&;

/// Services are handed the plug-in's interface; those of the workbench need nothing of it.
template <class Service>
Variant initialize(Service& service, Argument /*arguments*/) {
  service.Initialize(nullptr);
  return nothing();
}

constexpr Member<host::MessageService> messageMembers[] = {
    {L"Translate",
     [](host::MessageService& s, Argument a) { return Variant(s.Translate(a.text(0))); }},
    {L"MsgBox",
     [](host::MessageService& s, Argument a) {
       return Variant(s.MsgBox(a.value(0), a.number(1), a.has(2) ? a.value(2) : Value(), {}));
     }},
    {L"MsgBoxFromId",
     [](host::MessageService& s, Argument a) {
       return Variant(
           s.MsgBoxFromId(a.number(0), a.number(1), a.has(2) ? a.value(2) : Value(), {}));
     }},
};

/// What a collection held when it was handed over.
class ReadErrors : public ado::ErrorSource {
 public:
  explicit ReadErrors(IDispatch* collection) : errors_(readErrors(collection)) {}
  ado::Errors errors() const override { return errors_; }

 private:
  ado::Errors errors_;
};

constexpr Member<host::LogService> logMembers[] = {
    {L"SetError",
     [](host::LogService& s, Argument a) {
       s.SetError(a.number(0), a.text(1), a.text(2));
       return nothing();
     }},
    {L"SetConnectionErrors",
     [](host::LogService& s, Argument a) {
       s.SetConnectionErrors(ReadErrors(a.object(0).get()));
       return nothing();
     }},
    {L"ShowError",
     [](host::LogService& s, Argument a) {
       return Variant(s.ShowError(a.text(0), a.text(1), a.text(2), a.number(3)));
     }},
};

constexpr Member<host::ConnectionProvider> providerMembers[] = {
    {L"NewConnection",
     [](host::ConnectionProvider& s, Argument) { return Variant(automate(s.NewConnection())); }},
};

constexpr Member<host::EnvironmentService> environmentMembers[] = {
    {L"Initialize", initialize<host::EnvironmentService>},
    {L"GetPath",
     [](host::EnvironmentService& s, Argument a) {
       return Variant(s.GetPath(a.number(0), a.has(1) ? a.text(1) : ""));
     }},
};

constexpr Member<host::SqlDecodeService> decodeMembers[] = {
    {L"Initialize", initialize<host::SqlDecodeService>},
    {L"DocumentType", [](host::SqlDecodeService& s,
                         Argument a) { return Variant(s.DocumentType(a.text(0), a.text(1))); }},
    {L"Customer", [](host::SqlDecodeService& s,
                     Argument a) { return Variant(s.Customer(a.text(0), a.text(1))); }},
    {L"Code", [](host::SqlDecodeService& s,
                 Argument a) { return Variant(s.Code(a.text(0), a.text(1), a.textsFrom(2))); }},
};

constexpr Member<host::LookupDefinition> definitionMembers[] = {
    {L"Statement", [](host::LookupDefinition& d, Argument) { return Variant(d.statement); }},
    {L"Title", [](host::LookupDefinition& d, Argument) { return Variant(d.title); }},
    {L"Captions", [](host::LookupDefinition& d, Argument) { return textArray(d.captions); }},
    {L"Key", [](host::LookupDefinition& d, Argument) { return Variant(d.key); }},
};

Variant definition(host::LookupDefinition&& value) {
  return Variant(automated<host::LookupDefinition>(
      std::make_shared<host::LookupDefinition>(std::move(value)), definitionMembers));
}

constexpr Member<host::LookupService> lookupMembers[] = {
    {L"Initialize", initialize<host::LookupService>},
    {L"DocumentTypes",
     [](host::LookupService& s, Argument a) { return definition(s.DocumentTypes(a.text(0))); }},
    {L"Customers",
     [](host::LookupService& s, Argument a) { return definition(s.Customers(a.text(0))); }},
    {L"Configurator",
     [](host::LookupService& s, Argument a) { return definition(s.Configurator(a.text(0))); }},
    {L"CustomerNames",
     [](host::LookupService& s, Argument a) { return definition(s.CustomerNames(a.text(0))); }},
    {L"Suppliers",
     [](host::LookupService& s, Argument a) { return definition(s.Suppliers(a.text(0))); }},
    {L"Codes",
     [](host::LookupService& s, Argument a) {
       return definition(s.Codes(a.text(0), a.text(1), a.textsFrom(2)));
     }},
};

constexpr Member<host::SavedFilterService> filterMembers[] = {
    {L"Initialize", initialize<host::SavedFilterService>},
    {L"Load", [](host::SavedFilterService& s,
                 Argument a) { return toVariant(s.Load(a.text(0), a.text(1))); }},
    {L"Save",
     [](host::SavedFilterService& s, Argument a) {
       s.Save(a.text(0), a.text(1), a.text(2), a.flag(3));
       return nothing();
     }},
};

template <class Model>
Variant registerIn(Model& model, Argument a) {
  return Variant(unwrap(
      model.Register(a.text(0), wrapNamedObject(a.object(1).get()), a.number(2), a.text(3))));
}

constexpr Member<host::LayoutModel> layoutMembers[] = {
    {L"Initialize", initialize<host::LayoutModel>},
    {L"Register", registerIn<host::LayoutModel>},
};

constexpr Member<host::ScriptModel> scriptMembers[] = {
    {L"Initialize", initialize<host::ScriptModel>},
    {L"Register", registerIn<host::ScriptModel>},
    {L"RunEvent",
     [](host::ScriptModel& s, Argument a) {
       bool cancel = a.has(1) && a.flag(1);
       s.RunEvent(a.text(0), cancel);
       if (a.has(1)) a.giveBack(1, cancel);
       return Variant(cancel);
     }},
};

constexpr Member<host::StatusBarPanel> panelMembers[] = {
    {L"Text", nullptr, [](host::StatusBarPanel& p, Argument a) { p.setText(a.text(0)); }},
};

/// The collection of the panels, as the bar that holds them.
constexpr Member<HostStatusBar> panelsMembers[] = {
    {L"Item",
     [](HostStatusBar& s, Argument a) {
       return Variant(automated(s.Panels(a.number(0)).shared(), panelMembers));
     }},
    {L"Count", [](HostStatusBar& s,
                  Argument) { return Variant(static_cast<std::int32_t>(s.panels().size())); }},
};

constexpr Member<host::StatusBar> statusBarMembers[] = {
    // Takes no argument, as a property does whose collection is an object of its own.
    {L"Panels",
     [](host::StatusBar& s, Argument a) {
       if (a.count() > 0) throw errorOf(DISP_E_BADPARAMCOUNT);
       return Variant(automated(dynamic_cast<HostStatusBar&>(s).shared_from_this(), panelsMembers));
     }},
};

/// A service of the global object, under the members that it has for others.
template <auto Create, const auto& members>
Variant service(host::ClsGlobal& global, Argument /*arguments*/) {
  return Variant(automated((global.*Create)().shared(), members));
}

constexpr Member<host::ClsGlobal> globalMembers[] = {
    {L"ConnectionString",
     [](host::ClsGlobal& g, Argument) { return Variant(g.ConnectionString()); }},
    {L"CompanyCode", [](host::ClsGlobal& g, Argument) { return toVariant(g.CompanyCode()); }},
    {L"ApplicationCode", [](host::ClsGlobal& g, Argument) { return Variant(g.ApplicationCode()); }},
    {L"SessionId", [](host::ClsGlobal& g, Argument) { return toVariant(g.SessionId()); }},
    {L"UserId", [](host::ClsGlobal& g, Argument) { return toVariant(g.UserId()); }},
    {L"Messages", service<&host::ClsGlobal::Messages, messageMembers>},
    {L"RefreshStatus",
     [](host::ClsGlobal& g, Argument a) {
       g.RefreshStatus(wrapNamedObject(a.object(0).get()));
       return nothing();
     }},
    {L"CreateLog", service<&host::ClsGlobal::CreateLog, logMembers>},
    {L"CreateConnectionProvider",
     service<&host::ClsGlobal::CreateConnectionProvider, providerMembers>},
    {L"CreateEnvironment", service<&host::ClsGlobal::CreateEnvironment, environmentMembers>},
    {L"CreateSqlDecode", service<&host::ClsGlobal::CreateSqlDecode, decodeMembers>},
    {L"CreateLookups", service<&host::ClsGlobal::CreateLookups, lookupMembers>},
    {L"CreateSavedFilters", service<&host::ClsGlobal::CreateSavedFilters, filterMembers>},
    {L"CreateLayoutModel", service<&host::ClsGlobal::CreateLayoutModel, layoutMembers>},
    {L"CreateScriptModel", service<&host::ClsGlobal::CreateScriptModel, scriptMembers>},
};

}  // namespace

ComPtr<IDispatch> automate(const Ref<host::ClsGlobal>& global) {
  return automated<host::ClsGlobal>(global.shared(), globalMembers);
}

ComPtr<IDispatch> automate(const Ref<host::StatusBar>& bar) {
  return automated<host::StatusBar>(bar.shared(), statusBarMembers);
}

ComPtr<IDispatch> automate(const Ref<host::LayoutModel>& model) {
  if (auto script = std::dynamic_pointer_cast<host::ScriptModel>(model.shared())) {
    return automated<host::ScriptModel>(script, scriptMembers);
  }
  return automated<host::LayoutModel>(model.shared(), layoutMembers);
}

ComPtr<IDispatch> automate(const Ref<host::Navigator>& navigator, REFIID events) {
  if (!navigator) return nullptr;
  NavigatorEventInterface own = ownNavigatorEvents();
  own.id = events;
  return ComPtr<IDispatch>::adopt(new NavigatorObject(navigator.shared(), std::move(own)));
}

}  // namespace kebu::workbench
