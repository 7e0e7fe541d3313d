#include "plugin/clskb_anagkelmoria.h"

namespace kebu::plugin {

using host::NamedObject;

namespace {

/// Kinds under which the script model knows windows and frames.
enum ScriptKind : std::int32_t { windowKind = 0, frameKind = 3 };

}  // namespace

Ref<CLSKB_ANAGKELMORIA> CLSKB_ANAGKELMORIA::create(const forms::Runtime& runtime) {
  const std::shared_ptr<CLSKB_ANAGKELMORIA> instance(new CLSKB_ANAGKELMORIA(runtime));
  instance->Class_Initialize();
  return instance;
}

CLSKB_ANAGKELMORIA::CLSKB_ANAGKELMORIA(const forms::Runtime& runtime)
    : runtime_(runtime), trace_(runtime.platform, "CLSKB_ANAGRAFICA") {}

CLSKB_ANAGKELMORIA::~CLSKB_ANAGKELMORIA() {
  Class_Terminate();
}

void CLSKB_ANAGKELMORIA::Class_Initialize() {
  trace_.initialized();
  host_.activeDll = uncounted();
}

void CLSKB_ANAGKELMORIA::Class_Terminate() {
  reporting("nel Terminate della classe principale", [&] {
    trace_.terminated();
    DestroyClass();
  });
}

void CLSKB_ANAGKELMORIA::DestroyClass() {
  reporting("nel metodo DestroyClass della classe principale", [&] {
    // The host closed the window that it knows of. The others may have changes to ask about.
    for (const auto& window : earlierWindows_) ignoring("DestroyClass", [&] { window->Unload(); });
    host_ = {};
    // The host's models may still hold the windows, which must not use released objects.
    keepEarlierWindow();
    for (const auto& window : earlierWindows_) window->detach();
    earlierWindows_.clear();
  });
}

template <class Action>
void CLSKB_ANAGKELMORIA::reporting(const char* place, Action&& action) {
  try {
    action();
  } catch (...) {
    const RuntimeError error = RuntimeError::current();
    ignoring("messageBox", [&] {
      runtime_.platform.messageBox("Errore VB n." + std::to_string(error.number()) + " - " +
                                       error.description() + " " + place,
                                   msgbox::okOnly, toDisplay(caption_));
    });
  }
}

Ref<host::Cinterface> CLSKB_ANAGKELMORIA::uncounted() {
  return std::shared_ptr<host::Cinterface>(std::shared_ptr<void>(), this);
}

Ref<NamedObject> CLSKB_ANAGKELMORIA::ActiveFrame() {
  if (host_.activeFrame) return host_.activeFrame;
  return window_ ? window_->profileFrame() : nullptr;
}

void CLSKB_ANAGKELMORIA::setActiveNavigator(const Ref<host::Navigator>& value) {
  host_.navigatorEvents.clear();
  host_.activeNavigator = value;
  if (!value) return;
  host_.navigatorEvents.push_back(
      value->BeforeExportToOffice.connect([this](const Value&) { BeforeExportToOffice(); }));
  host_.navigatorEvents.push_back(value->InitializeLayoutObjectModel.connect(
      [this](const Ref<host::LayoutModel>& model) { InitializeLayoutObjectModel(model); }));
  host_.navigatorEvents.push_back(value->InitializeScriptObjectModel.connect(
      [this](const Ref<host::ScriptModel>& model) { InitializeScriptObjectModel(model); }));
}

void CLSKB_ANAGKELMORIA::setActiveDll(const Ref<host::Cinterface>& value) {
  host_.activeDll = value.get() == this ? uncounted() : value;
}
Ref<host::Cinterface> CLSKB_ANAGKELMORIA::ActiveDll() {
  if (host_.activeDll.get() == this) return std::shared_ptr<host::Cinterface>(shared_from_this());
  return host_.activeDll;
}

Value CLSKB_ANAGKELMORIA::ShowForm() {
  ignoring("ShowForm", [&] {
    keepEarlierWindow();
    // A reference of its own: a modal window may call back and have another one shown.
    const auto window = makeRef<forms::FRMKB_ANAGRAFICA>(runtime_);
    window_ = window;
    window->setHost(host_.activeDll);
    window->setOwner(uncounted());
    ignoring("Caption", [&] { window->setCaption(toText(caption_)); });
    window->Show(windowModal_);
  });
  return {};
}

void CLSKB_ANAGKELMORIA::keepEarlierWindow() {
  if (window_) earlierWindows_.push_back(window_);
  window_.reset();
  std::erase_if(earlierWindows_, [](const auto& window) { return !window->isLoaded(); });
}

Value CLSKB_ANAGKELMORIA::CloseForm() {
  bool closed = false;
  ignoring("CloseForm", [&] {
    window_->Unload();
    // A window that refused still holds the host's interface.
    closed = !window_->host();
  });
  return closed;
}

Value CLSKB_ANAGKELMORIA::TransferData(const Value& data) {
  ignoring("TransferData", [&] { DataTransfer.raise(data); });
  return {};
}

void CLSKB_ANAGKELMORIA::InitializeLayoutObjectModel(const Ref<host::LayoutModel>& model) {
  ignoring("InitializeLayoutObjectModel", [&] {
    if (!isActive()) return;
    keepWindow(model->Register(forms::windowDescription, asNamedObject(), windowKind, ""));
  });
}

void CLSKB_ANAGKELMORIA::InitializeScriptObjectModel(const Ref<host::ScriptModel>& model) {
  constexpr const char* name = "InitializeScriptObjectModel";
  ignoring(name, [&] {
    if (!isActive()) return;
    ignoring(name, [&] {
      keepWindow(
          model->Register(window_->Name(), asNamedObject(), windowKind, forms::windowDescription));
    });
    const Ref<NamedObject> frame = host_.activeDll->ActiveFrame();
    if (!frame) return;
    ignoring(name, [&] { frame->setName("FME_ANAGRAFICA"); });
    model->Register(frame->Name(), frame, frameKind, frame->Name());
  });
}

void CLSKB_ANAGKELMORIA::keepWindow(const Ref<NamedObject>& object) {
  if (auto window = std::dynamic_pointer_cast<forms::FRMKB_ANAGRAFICA>(object.shared())) {
    window_ = window;
  }
}

}  // namespace kebu::plugin
