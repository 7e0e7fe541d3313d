#include "windows/views/window/common_controls.h"

#include <commctrl.h>

namespace kebu::windows {

const CommonControls* CommonControls::current_ = nullptr;

CommonControls::CommonControls(HINSTANCE module) {
  current_ = this;
  ACTCTXW wanted{};
  wanted.cbSize = sizeof wanted;
  wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  wanted.hModule = module;
  wanted.lpResourceName = MAKEINTRESOURCEW(2);
  // Without it the controls work, too, and look like the host's.
  HANDLE const context = CreateActCtxW(&wanted);
  if (context != INVALID_HANDLE_VALUE) context_.reset(context);
  const Scope scope(*this);
  library_.reset(LoadLibraryW(L"comctl32.dll"));
  if (!library_) return;
  const auto initialise = reinterpret_cast<decltype(&InitCommonControlsEx)>(
      reinterpret_cast<void*>(GetProcAddress(library_.get(), "InitCommonControlsEx")));
  const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_BAR_CLASSES};
  if (initialise) initialise(&classes);
}

CommonControls::~CommonControls() {
  if (current_ == this) current_ = nullptr;
}

CommonControls::Scope::Scope(const CommonControls* controls) {
  if (controls && controls->context_) ActivateActCtx(controls->context_.get(), &cookie_);
}

CommonControls::Scope::~Scope() {
  if (cookie_) DeactivateActCtx(0, cookie_);
}

}  // namespace kebu::windows
