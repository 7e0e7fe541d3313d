#include "plugin/clskb_anagkelmoria.h"

#include "common/convert.h"

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
    host_ = {};
    // The host's models may still hold the window, which must not use released objects.
    if (window_) window_->detach();
    window_.reset();
  });
}

template <class Action>
void CLSKB_ANAGKELMORIA::reporting(const char* place, Action&& action) {
  try {
    action();
  } catch (...) {
    const RuntimeError error = RuntimeError::current();
    ignoringErrors([&] {
      runtime_.platform.messageBox("Errore VB n." + std::to_string(error.number()) + " - " +
                                       error.description() + " " + place,
                                   msgbox::okOnly, toDisplay(caption_));
    });
  }
}

Ref<host::Cinterface> CLSKB_ANAGKELMORIA::uncounted() {
  return std::shared_ptr<host::Cinterface>(std::shared_ptr<void>(), this);
}

void CLSKB_ANAGKELMORIA::setClsGlobal(const Ref<host::ClsGlobal>& value) {
  host_.clsGlobal = value;
}
Ref<host::ClsGlobal> CLSKB_ANAGKELMORIA::ClsGlobal() {
  return host_.clsGlobal;
}

void CLSKB_ANAGKELMORIA::setActiveFrame(const Ref<NamedObject>& value) {
  host_.activeFrame = value;
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
Ref<host::Navigator> CLSKB_ANAGKELMORIA::ActiveNavigator() {
  return host_.activeNavigator;
}

void CLSKB_ANAGKELMORIA::setActiveDll(const Ref<host::Cinterface>& value) {
  host_.activeDll = value.get() == this ? uncounted() : value;
}
Ref<host::Cinterface> CLSKB_ANAGKELMORIA::ActiveDll() {
  if (host_.activeDll.get() == this) return std::shared_ptr<host::Cinterface>(shared_from_this());
  return host_.activeDll;
}

void CLSKB_ANAGKELMORIA::setStatusBar(const Ref<host::StatusBar>& value) {
  host_.statusBar = value;
}
Ref<host::StatusBar> CLSKB_ANAGKELMORIA::StatusBar() {
  return host_.statusBar;
}

void CLSKB_ANAGKELMORIA::setCanInsert(bool value) {
  canInsert_ = value;
}
bool CLSKB_ANAGKELMORIA::CanInsert() {
  return canInsert_;
}
void CLSKB_ANAGKELMORIA::setCanDelete(bool value) {
  canDelete_ = value;
}
bool CLSKB_ANAGKELMORIA::CanDelete() {
  return canDelete_;
}
void CLSKB_ANAGKELMORIA::setCanUpdate(bool value) {
  canUpdate_ = value;
}
bool CLSKB_ANAGKELMORIA::CanUpdate() {
  return canUpdate_;
}
void CLSKB_ANAGKELMORIA::setCanQbe(bool value) {
  canQbe_ = value;
}
bool CLSKB_ANAGKELMORIA::CanQbe() {
  return canQbe_;
}

void CLSKB_ANAGKELMORIA::setWindowState(std::int32_t value) {
  ignoringErrors([&] { windowState_ = toInt16(value); });
}
std::int32_t CLSKB_ANAGKELMORIA::WindowState() {
  return windowState_;
}
void CLSKB_ANAGKELMORIA::setWindowModal(bool value) {
  windowModal_ = value;
}
bool CLSKB_ANAGKELMORIA::WindowModal() {
  return windowModal_;
}
void CLSKB_ANAGKELMORIA::setProgramMode(std::int32_t value) {
  ignoringErrors([&] { programMode_ = toInt16(value); });
}
std::int32_t CLSKB_ANAGKELMORIA::ProgramMode() {
  return programMode_;
}

void CLSKB_ANAGKELMORIA::setMenuModulo(const Value& value) {
  menuModulo_ = value;
}
Value CLSKB_ANAGKELMORIA::MenuModulo() {
  return menuModulo_;
}
void CLSKB_ANAGKELMORIA::setMenuPadre(const Value& value) {
  menuPadre_ = value;
}
Value CLSKB_ANAGKELMORIA::MenuPadre() {
  return menuPadre_;
}
void CLSKB_ANAGKELMORIA::setMenuProg(const Value& value) {
  menuProg_ = value;
}
Value CLSKB_ANAGKELMORIA::MenuProg() {
  return menuProg_;
}
void CLSKB_ANAGKELMORIA::setCaption(const Value& value) {
  caption_ = value;
}
Value CLSKB_ANAGKELMORIA::Caption() {
  return caption_;
}
void CLSKB_ANAGKELMORIA::setHwndParent(std::int32_t value) {
  hwndParent_ = value;
}
std::int32_t CLSKB_ANAGKELMORIA::hwndParent() {
  return hwndParent_;
}
void CLSKB_ANAGKELMORIA::setConnection(const Ref<ado::Connection>& value) {
  host_.connection = value;
}
Ref<ado::Connection> CLSKB_ANAGKELMORIA::Connection() {
  return host_.connection;
}

Ref<NamedObject> CLSKB_ANAGKELMORIA::Cwindow() {
  return nullptr;
}

void CLSKB_ANAGKELMORIA::setTop(const Value& value) {
  ignoringErrors([&] { top_ = toInt32(value); });
}
Value CLSKB_ANAGKELMORIA::Top() {
  return top_;
}
void CLSKB_ANAGKELMORIA::setLeft(const Value& value) {
  ignoringErrors([&] { left_ = toInt32(value); });
}
Value CLSKB_ANAGKELMORIA::Left() {
  return left_;
}

void CLSKB_ANAGKELMORIA::setClsVoceMenu(const Ref<Object>& value) {
  host_.clsVoceMenu = value;
}
Ref<Object> CLSKB_ANAGKELMORIA::ClsVoceMenu() {
  return host_.clsVoceMenu;
}
void CLSKB_ANAGKELMORIA::setIsActive(bool value) {
  isActive_ = value;
}
bool CLSKB_ANAGKELMORIA::IsActive() {
  return isActive_;
}
void CLSKB_ANAGKELMORIA::setIsCalled(bool value) {
  isCalled_ = value;
}
bool CLSKB_ANAGKELMORIA::IsCalled() {
  return isCalled_;
}
void CLSKB_ANAGKELMORIA::setFiltro(const Value&) {}
Value CLSKB_ANAGKELMORIA::Filtro() {
  return {};
}

Value CLSKB_ANAGKELMORIA::ShowForm() {
  ignoringErrors([&] {
    if (window_) window_->detach();
    window_ = makeRef<forms::FRMKB_ANAGRAFICA>(runtime_);
    window_->setHost(host_.activeDll);
    window_->setOwner(uncounted());
    window_->setCaption(toText(caption_));
    window_->Show(windowModal_);
  });
  return {};
}

Value CLSKB_ANAGKELMORIA::CloseForm() {
  bool closed = false;
  ignoringErrors([&] {
    window_->Unload();
    // A window that refused still holds the host's interface.
    closed = !window_->host();
  });
  return closed;
}

Value CLSKB_ANAGKELMORIA::TransferData(const Value& data) {
  ignoringErrors([&] { DataTransfer.raise(data); });
  return {};
}

bool CLSKB_ANAGKELMORIA::isActive() {
  return host_.activeDll && host_.activeDll->IsActive();
}

void CLSKB_ANAGKELMORIA::BeforeExportToOffice() {
  // Nothing of the window is exported.
}

void CLSKB_ANAGKELMORIA::InitializeLayoutObjectModel(const Ref<host::LayoutModel>& model) {
  ignoringErrors([&] {
    if (!isActive()) return;
    keepWindow(model->Register(forms::windowDescription, asNamedObject(), windowKind, ""));
  });
}

void CLSKB_ANAGKELMORIA::InitializeScriptObjectModel(const Ref<host::ScriptModel>& model) {
  ignoringErrors([&] {
    if (!isActive()) return;
    ignoringErrors([&] {
      keepWindow(
          model->Register(window_->Name(), asNamedObject(), windowKind, forms::windowDescription));
    });
    const Ref<NamedObject> frame = host_.activeDll->ActiveFrame();
    if (!frame) return;
    frame->setName("FME_ANAGRAFICA");
    model->Register(frame->Name(), frame, frameKind, frame->Name());
  });
}

Ref<NamedObject> CLSKB_ANAGKELMORIA::asNamedObject() {
  return Ref<NamedObject>(window_);
}

void CLSKB_ANAGKELMORIA::keepWindow(const Ref<NamedObject>& object) {
  if (auto window = std::dynamic_pointer_cast<forms::FRMKB_ANAGRAFICA>(object.shared())) {
    window_ = window;
  }
}

}  // namespace kebu::plugin
