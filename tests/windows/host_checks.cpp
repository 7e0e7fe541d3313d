#include "tests/windows/host_checks.h"

#include <string>
#include <vector>

#include "tests/windows/checks.h"
#include "tests/windows/story.h"
#include "windows/host/host_objects.h"
#include "windows/host/navigator_events.h"
#include "workbench/engine/execution/database.h"
#include "workbench/host/global_services.h"
#include "workbench/host/host_status_bar.h"
#include "workbench/host/object_models.h"
#include "workbench/windows/host_automation.h"

namespace kebu::tests {

namespace {

/// Says "no" to everything and remembers what was asked.
class Refuser : public workbench::User {
 public:
  explicit Refuser(Story& story) : story_(story) {}

  std::int32_t answer(const workbench::ShownMessage& box) override {
    story_.note("box " + box.title + " | " + box.text + " | " + std::to_string(box.style));
    return msgbox::no;
  }
  void chooseFrom(workbench::ShownList& /*list*/) override {}
  void workIn(controls::Form& /*form*/) override {}

 private:
  Story& story_;
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

void useServices(const Ref<host::ClsGlobal>& global, Story& story) {
  story.tell("string", [&] { return global->ConnectionString(); });
  story.tell("company", [&] { return global->CompanyCode(); });

  const Ref<host::MessageService> messages = global->Messages();
  story.tell("translate", [&] { return messages->Translate("Sì"); });
  story.tell("translate", [&] { return messages->Translate("senza traduzione"); });
  story.tell("box", [&] { return messages->MsgBox("È «vero»?", 36, "Città", Value()); });
  story.tell("box", [&] { return messages->MsgBox(Null{}, 0, std::int32_t{7}, Null{}); });
  story.tell("stored", [&] { return messages->MsgBoxFromId(75210, 64, "T", Value()); });

  const Ref<host::LogService> log = global->CreateLog();
  story.tell("error", [&] { log->SetError(-2147217900, "perché", "Provider"); });
  story.tell("errors", [&] { log->SetConnectionErrors(someErrors()); });
  story.tell("show", [&] { return log->ShowError("APP", "Titolo", "Form_Load", 4370); });
  story.tell("no errors", [&] { log->SetConnectionErrors({}); });
  story.tell("show", [&] { return log->ShowError("APP", "Titolo", "Form_Load", 4370); });

  const Ref<ado::Connection> connection = global->CreateConnectionProvider()->NewConnection();
  story.tell("open", [&] { connection->Open(); });
  story.tell("row", [&] { return connection->Execute("SELECT 'à' AS A")->GetRows(-1); });

  const Ref<host::EnvironmentService> environment = global->CreateEnvironment();
  story.tell("initialise", [&] { environment->Initialize(nullptr); });
  story.tell("path", [&] { return environment->GetPath(6, ""); });
  story.tell("path", [&] { return environment->GetPath(1, "x"); });

  const Ref<host::SqlDecodeService> decode = global->CreateSqlDecode();
  story.tell("initialise", [&] { decode->Initialize(nullptr); });
  story.tell("document", [&] { return decode->DocumentType("1", "OC'X"); });
  story.tell("customer", [&] { return decode->Customer("1", "00042"); });

  const Ref<host::LookupService> lookups = global->CreateLookups();
  story.tell("initialise", [&] { lookups->Initialize(nullptr); });
  story.tell("documents", [&] { return describeList(lookups->DocumentTypes("1")); });
  story.tell("customers", [&] { return describeList(lookups->Customers("1")); });

  const Ref<host::SavedFilterService> filters = global->CreateSavedFilters();
  story.tell("load", [&] { return filters->Load("K", "mio"); });
  story.tell("save", [&] { filters->Save("K", "mio", "A = 'ù'", true); });
  story.tell("load", [&] { return filters->Load("K", "mio"); });

  const Ref<host::NamedObject> window = makeRef<Window>();
  story.tell("refresh", [&] { global->RefreshStatus(window); });
  story.tell("refresh", [&] { global->RefreshStatus(nullptr); });
  const Ref<host::LayoutModel> layout = global->CreateLayoutModel();
  story.tell("initialise", [&] { layout->Initialize(nullptr); });
  story.tell("the same", [&] { return layout->Register("FRM", window, 2, "finestra") == window; });
  story.tell("none", [&] { return layout->Register("FRM", nullptr, 2, "") == window; });
  const Ref<host::ScriptModel> script = global->CreateScriptModel();
  story.tell("the same", [&] { return script->Register("FRM", window, 0, "x") == window; });
  for (int time = 0; time < 2; ++time) {
    bool cancel = false;
    story.tell("event", [&] { script->RunEvent("tsOpen", cancel); });
    story.note(describe(cancel));
  }
  bool refusedBefore = true;
  story.tell("event", [&] { script->RunEvent("tsClose", refusedBefore); });
  story.note(describe(refusedBefore));
}

template <class Wrap>
Story storyOfServices(Wrap&& wrap) {
  Story story;
  Refuser user(story);
  const auto database = engine::Database::createInMemory();
  auto services = makeRef<workbench::GlobalServices>(
      workbench::HostSurroundings{user, workbench::embeddedCompany(database, nullptr), 7,
                                  workbench::Translations::parse("Sì\tYes, «ja»\n"),
                                  [&story](const std::string& entry) { story.note(entry); }});
  services->refuseNext("tsOpen");
  useServices(wrap(Ref<host::ClsGlobal>(services)), story);
  return story;
}

void sameServices() {
  const Story direct = storyOfServices([](const auto& global) { return global; });
  const Story throughCom = storyOfServices([](const Ref<host::ClsGlobal>& global) {
    return windows::wrapClsGlobal(workbench::automate(global).get());
  });
  expectSameStory("the host's services", direct, throughCom,
                  {"Yes, «ja»", "«È»", "Data Source=workbench", "FRM, kind 2", "the same: 1",
                   "event tsOpen, refused", "text \"A = 'ù'\"", "C:\\ERP", "OC''X"});
}

void absentServices() {
  Story story;
  Refuser user(story);
  auto services = makeRef<workbench::GlobalServices>(workbench::HostSurroundings{
      user, workbench::embeddedCompany(engine::Database::createInMemory(), nullptr), 1, {}, {}});
  for (const std::string& name : workbench::GlobalServices::serviceNames()) {
    services->withhold(name);
  }
  const auto global =
      windows::wrapClsGlobal(workbench::automate(Ref<host::ClsGlobal>(services)).get());
  expectThat(!global->Messages() && !global->CreateLog() && !global->CreateConnectionProvider() &&
                 !global->CreateEnvironment() && !global->CreateSqlDecode() &&
                 !global->CreateLookups() && !global->CreateSavedFilters() &&
                 !global->CreateLayoutModel() && !global->CreateScriptModel(),
             "services that the host does not offer are absent");
}

void statusBar() {
  const auto bar = makeRef<workbench::HostStatusBar>();
  windows::wrapStatusBar(workbench::automate(Ref<host::StatusBar>(bar)).get())
      ->SetPanelText(2, "Città");
  expectThat(bar->panels() == std::map<std::int32_t, std::string>{{2, "Città"}},
             "a text reaches the host's status bar");
}

void identities() {
  const auto bar = workbench::automate(Ref<host::StatusBar>(makeRef<workbench::HostStatusBar>()));
  expectThat(windows::unwrap(windows::wrapObject(bar.get())).get() == bar.get() &&
                 windows::unwrap(windows::wrapStatusBar(bar.get())).get() == bar.get(),
             "a host's object comes out as itself");
  expectThat(!windows::wrapObject(nullptr) && !windows::wrapClsGlobal(nullptr) &&
                 !windows::wrapNavigator(nullptr) && !windows::wrapStatusBar(nullptr) &&
                 !windows::wrapNamedObject(nullptr) && !windows::unwrap(Ref<Object>()),
             "nothing stays nothing");

  const Ref<host::NamedObject> window = makeRef<Window>();
  const auto face = windows::unwrap(window);
  expectThat(face.get() == windows::unwrap(window).get() &&
                 windows::wrapNamedObject(face.get()) == window &&
                 windows::wrapObject(face.get()).get() == window.get(),
             "an object of ours has one face and comes back from it");
  const windows::Dispatch outside(face);
  outside.put(L"Name", "nuovo");
  expectThat(window->Name() == "nuovo" && outside.text(L"name") == "nuovo",
             "a face shows the name");
}

void navigatorEvents() {
  const auto navigator = makeRef<host::Navigator>();
  const auto object = workbench::automate(navigator, windows::navigatorEventsId);
  Story story;
  std::vector<std::string> entries;
  const auto note = [&](const std::string& entry) { entries.push_back(entry); };
  const Ref<host::NamedObject> window = makeRef<Window>();

  Ref<host::Navigator> heard = windows::wrapNavigator(object.get());
  const Subscription export_ = heard->BeforeExportToOffice.connect(
      [&](const Value& arguments) { story.note("export " + describe(arguments)); });
  const Subscription layout =
      heard->InitializeLayoutObjectModel.connect([&](const Ref<host::LayoutModel>& model) {
        story.note(model->Register("FRM", window, 1, "a") == window ? "own object back" : "lost");
      });
  const Subscription script =
      heard->InitializeScriptObjectModel.connect([&](const Ref<host::ScriptModel>& model) {
        bool cancel = false;
        model->RunEvent("tsOpen", cancel);
        story.note(cancel ? "refused" : "allowed");
      });
  const auto raiseAll = [&] {
    navigator->BeforeExportToOffice.raise(Value("perché"));
    navigator->InitializeLayoutObjectModel.raise(makeRef<workbench::LayoutModel>(note));
    navigator->InitializeScriptObjectModel.raise(
        makeRef<workbench::ScriptModel>(note, [](const std::string&) { return true; }));
  };
  raiseAll();
  expectThat(story.lines() == std::vector<std::string>{"export text \"perché\"", "own object back",
                                                       "refused"} &&
                 entries == std::vector<std::string>{"layout: FRM, kind 1, \"a\""},
             "the navigator's three events arrive");
  expectThat(windows::unwrap(heard).get() == object.get(), "the navigator keeps its identity");

  const std::size_t before = story.lines().size();
  heard.reset();
  raiseAll();
  expectThat(story.lines().size() == before, "a navigator that was let go is not heard any more");

  // One that is let go by what it tells.
  heard = windows::wrapNavigator(object.get());
  const Subscription last = heard->BeforeExportToOffice.connect([&](const Value&) {
    story.note("let go");
    heard.reset();
  });
  raiseAll();
  raiseAll();
  expectThat(story.lines().size() == before + 1, "a handler may let its navigator go");
}

}  // namespace

void checkHostObjects() {
  sameServices();
  absentServices();
  statusBar();
  identities();
  navigatorEvents();
}

}  // namespace kebu::tests
