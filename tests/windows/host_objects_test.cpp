#include "windows/host/host_objects.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/windows/transcript.h"
#include "windows/ado/ado_objects.h"
#include "windows/ado/error_collection.h"
#include "windows/support/automation.h"
#include "workbench/engine/execution/database.h"
#include "workbench/host/global_services.h"
#include "workbench/host/host_status_bar.h"
#include "workbench/host/object_models.h"
#include "workbench/windows/host_automation.h"

namespace kebu::tests {

namespace {

using windows::ComPtr;

/// Answers every box with "no" and records it.
class RefusingUser : public workbench::User {
 public:
  explicit RefusingUser(Transcript& transcript) : transcript_(transcript) {}

  std::int32_t answer(const workbench::ShownMessage& box) override {
    transcript_.note("box " + box.title + " | " + box.text + " | " + std::to_string(box.style));
    return msgbox::no;
  }
  void chooseFrom(workbench::ShownList& /*list*/) override {}
  void workIn(controls::Form& /*form*/) override {}

 private:
  Transcript& transcript_;
};

class Window : public host::NamedObject {
 public:
  std::string Name() const override { return name_; }
  void setName(const std::string& name) override { name_ = name; }

 private:
  std::string name_ = "FRMKB_ANAGRAFICA";
};

std::string describeList(const host::LookupDefinition& list) {
  std::string text = list.title + " | " + list.statement;
  for (const std::string& caption : list.captions) text += " | " + caption;
  return text;
}

ado::Errors someErrors() {
  return {{-2147217900, "Nome di oggetto non valido: «È»", "Provider", 208, "42S02"},
          {5, "secondo", "Altro", 0, ""}};
}

/// A connection that is none of ADO's, after a failing call.
class Failed : public ado::ErrorSource {
 public:
  explicit Failed(ado::Errors errors) : errors_(std::move(errors)) {}
  ado::Errors errors() const override { return errors_; }

 private:
  ado::Errors errors_;
};

void useServices(const Ref<host::ClsGlobal>& global, Transcript& transcript) {
  transcript.record("string", [&] { return global->ConnectionString(); });
  transcript.record("company", [&] { return global->CompanyCode(); });

  const Ref<host::MessageService> messages = global->Messages();
  transcript.record("translate", [&] { return messages->Translate("Sì"); });
  transcript.record("translate", [&] { return messages->Translate("senza traduzione"); });
  transcript.record("box", [&] { return messages->MsgBox("È «vero»?", 36, "Città", Value()); });
  transcript.record("box", [&] { return messages->MsgBox(Null{}, 0, std::int32_t{7}, Null{}); });
  transcript.record("stored", [&] { return messages->MsgBoxFromId(75210, 64, "T", Value()); });

  const Ref<host::LogService> log = global->CreateLog();
  transcript.record("error", [&] { log->SetError(-2147217900, "perché", "Provider"); });
  transcript.record("errors", [&] { log->SetConnectionErrors(Failed(someErrors())); });
  transcript.record("show", [&] { return log->ShowError("APP", "Titolo", "Form_Load", 4370); });
  transcript.record("no errors", [&] { log->SetConnectionErrors(Failed({})); });
  transcript.record("show", [&] { return log->ShowError("APP", "Titolo", "Form_Load", 4370); });

  const Ref<ado::Connection> connection = global->CreateConnectionProvider()->NewConnection();
  transcript.record("open", [&] { connection->Open(); });
  transcript.record("row", [&] { return connection->Execute("SELECT 'à' AS A")->GetRows(-1); });

  const Ref<host::EnvironmentService> environment = global->CreateEnvironment();
  transcript.record("initialise", [&] { environment->Initialize(nullptr); });
  transcript.record("path", [&] { return environment->GetPath(6, ""); });
  transcript.record("path", [&] { return environment->GetPath(1, "x"); });

  const Ref<host::SqlDecodeService> decode = global->CreateSqlDecode();
  transcript.record("initialise", [&] { decode->Initialize(nullptr); });
  transcript.record("document", [&] { return decode->DocumentType("1", "OC'X"); });
  transcript.record("customer", [&] { return decode->Customer("1", "00042"); });

  const Ref<host::LookupService> lookups = global->CreateLookups();
  transcript.record("initialise", [&] { lookups->Initialize(nullptr); });
  transcript.record("documents", [&] { return describeList(lookups->DocumentTypes("1")); });
  transcript.record("customers", [&] { return describeList(lookups->Customers("1")); });

  const Ref<host::SavedFilterService> filters = global->CreateSavedFilters();
  transcript.record("load", [&] { return filters->Load("K", "mio"); });
  transcript.record("save", [&] { filters->Save("K", "mio", "A = 'ù'", true); });
  transcript.record("load", [&] { return filters->Load("K", "mio"); });

  const Ref<host::NamedObject> window = makeRef<Window>();
  transcript.record("refresh", [&] { global->RefreshStatus(window); });
  transcript.record("refresh", [&] { global->RefreshStatus(nullptr); });
  const Ref<host::LayoutModel> layout = global->CreateLayoutModel();
  transcript.record("initialise", [&] { layout->Initialize(nullptr); });
  transcript.record("the same",
                    [&] { return layout->Register("FRM", window, 2, "finestra") == window; });
  transcript.record("none", [&] { return layout->Register("FRM", nullptr, 2, "") == window; });
  const Ref<host::ScriptModel> script = global->CreateScriptModel();
  transcript.record("the same", [&] { return script->Register("FRM", window, 0, "x") == window; });
  for (int time = 0; time < 2; ++time) {
    bool cancel = false;
    transcript.record("event", [&] { script->RunEvent("tsOpen", cancel); });
    transcript.note(describe(cancel));
  }
  bool refusedBefore = true;
  transcript.record("event", [&] { script->RunEvent("tsClose", refusedBefore); });
  transcript.note(describe(refusedBefore));
}

template <class Wrap>
Transcript transcriptOfServices(Wrap&& wrap) {
  Transcript transcript;
  RefusingUser user(transcript);
  const auto database = engine::Database::createInMemory();
  auto services = makeRef<workbench::GlobalServices>(workbench::HostSurroundings{
      user, workbench::embeddedCompany(database, nullptr), 7,
      workbench::Translations::parse("Sì\tYes, «ja»\n"),
      [&transcript](const std::string& entry) { transcript.note(entry); }});
  services->refuseNext("tsOpen");
  useServices(wrap(Ref<host::ClsGlobal>(services)), transcript);
  return transcript;
}

TEST(HostServices, GiveTheSameThroughCom) {
  const Transcript direct = transcriptOfServices([](const auto& global) { return global; });
  const Transcript throughCom = transcriptOfServices([](const Ref<host::ClsGlobal>& global) {
    return windows::wrapClsGlobal(workbench::automate(global).get());
  });
  expectSame(direct, throughCom,
             {"Yes, «ja»", "«È»", "Data Source=workbench", "FRM, kind 2", "the same: 1",
              "event tsOpen, refused", "text \"A = 'ù'\"", "C:\\ERP", "OC''X"});
}

TEST(HostServices, MayBeAbsent) {
  Transcript transcript;
  RefusingUser user(transcript);
  auto services = makeRef<workbench::GlobalServices>(workbench::HostSurroundings{
      user, workbench::embeddedCompany(engine::Database::createInMemory(), nullptr), 1, {}, {}});
  for (const std::string& name : workbench::GlobalServices::serviceNames()) {
    services->withhold(name);
  }
  const auto global =
      windows::wrapClsGlobal(workbench::automate(Ref<host::ClsGlobal>(services)).get());
  EXPECT_FALSE(global->Messages());
  EXPECT_FALSE(global->CreateLog());
  EXPECT_FALSE(global->CreateConnectionProvider());
  EXPECT_FALSE(global->CreateEnvironment());
  EXPECT_FALSE(global->CreateSqlDecode());
  EXPECT_FALSE(global->CreateLookups());
  EXPECT_FALSE(global->CreateSavedFilters());
  EXPECT_FALSE(global->CreateLayoutModel());
  EXPECT_FALSE(global->CreateScriptModel());
}

TEST(HostStatusBar, ReceivesTexts) {
  const auto bar = makeRef<workbench::HostStatusBar>();
  const auto throughCom =
      windows::wrapStatusBar(workbench::automate(Ref<host::StatusBar>(bar)).get());
  throughCom->Panels(2)->setText("Città");
  EXPECT_EQ(bar->panels()[0]->text(), "");
  EXPECT_EQ(bar->panels()[1]->text(), "Città");
  EXPECT_THROW(throughCom->Panels(3), RuntimeError);
}

constexpr windows::Member<ComPtr<IDispatch>> connectionMembers[] = {
    {L"Errors",
     [](ComPtr<IDispatch>& errors, const windows::Arguments&) { return windows::Variant(errors); }},
};
constexpr windows::Member<ComPtr<IDispatch>> logMembers[] = {
    {L"SetConnectionErrors",
     [](ComPtr<IDispatch>& given, const windows::Arguments& arguments) {
       given = arguments.object(0);
       return windows::nothing();
     }},
};
constexpr windows::Member<ComPtr<IDispatch>> globalMembers[] = {
    {L"CreateLog",
     [](ComPtr<IDispatch>& log, const windows::Arguments&) { return windows::Variant(log); }},
};

/// An object whose members use one other object.
template <std::size_t Size>
ComPtr<IDispatch> holding(const std::shared_ptr<ComPtr<IDispatch>>& other,
                          const windows::Member<ComPtr<IDispatch>> (&members)[Size]) {
  return windows::automated<ComPtr<IDispatch>>(other, members);
}

TEST(HostLog, IsGivenTheConnectionsOwnErrors) {
  const auto errors = windows::newErrorCollection(someErrors());
  const auto connection = windows::wrapConnection(
      holding(std::make_shared<ComPtr<IDispatch>>(errors), connectionMembers).get());
  const auto given = std::make_shared<ComPtr<IDispatch>>();
  const auto global = windows::wrapClsGlobal(
      holding(std::make_shared<ComPtr<IDispatch>>(holding(given, logMembers)), globalMembers)
          .get());
  global->CreateLog()->SetConnectionErrors(*connection);
  EXPECT_EQ(given->get(), errors.get());
}

TEST(ErrorCollection, CanBeEnumerated) {
  const auto collection = windows::newErrorCollection(someErrors());
  VARIANT answer;
  VariantInit(&answer);
  DISPPARAMS none{};
  ASSERT_EQ(collection->Invoke(DISPID_NEWENUM, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET,
                               &none, &answer, nullptr, nullptr),
            S_OK);
  ASSERT_EQ(answer.vt, VT_UNKNOWN);
  const auto entries = ComPtr<IUnknown>::adopt(answer.punkVal).as<IEnumVARIANT>();
  ASSERT_TRUE(entries);
  std::vector<std::string> found;
  for (windows::Variant entry; entries->Next(1, entry.put(), nullptr) == S_OK;) {
    found.push_back(windows::Dispatch(windows::objectIn(entry.get())).text(L"Description"));
  }
  EXPECT_EQ(found, (std::vector<std::string>{"Nome di oggetto non valido: «È»", "secondo"}));

  std::wstring copy = L"_newenum";
  LPOLESTR name = copy.data();
  DISPID id = 0;
  EXPECT_EQ(collection->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
  EXPECT_EQ(id, DISPID_NEWENUM);
}

TEST(Identity, AHostsObjectComesOutAsItself) {
  const auto bar = workbench::automate(Ref<host::StatusBar>(makeRef<workbench::HostStatusBar>()));
  EXPECT_EQ(windows::unwrap(windows::wrapObject(bar.get())).get(), bar.get());
  EXPECT_EQ(windows::unwrap(windows::wrapStatusBar(bar.get())).get(), bar.get());
}

TEST(Identity, NothingStaysNothing) {
  EXPECT_FALSE(windows::wrapObject(nullptr));
  EXPECT_FALSE(windows::wrapClsGlobal(nullptr));
  EXPECT_FALSE(windows::wrapNavigator(nullptr));
  EXPECT_FALSE(windows::wrapStatusBar(nullptr));
  EXPECT_FALSE(windows::wrapNamedObject(nullptr));
  EXPECT_FALSE(windows::unwrap(Ref<Object>()));
}

TEST(Identity, AnObjectOfOursHasOneFaceAndComesBackFromIt) {
  const Ref<host::NamedObject> window = makeRef<Window>();
  const auto face = windows::unwrap(window);
  EXPECT_EQ(face.get(), windows::unwrap(window).get());
  EXPECT_TRUE(windows::wrapNamedObject(face.get()) == window);
  EXPECT_EQ(windows::wrapObject(face.get()).get(), window.get());
  const windows::Dispatch outside(face);
  outside.put(L"Name", "nuovo");
  EXPECT_EQ(window->Name(), "nuovo");
  EXPECT_EQ(outside.text(L"name"), "nuovo");
}

}  // namespace

}  // namespace kebu::tests
