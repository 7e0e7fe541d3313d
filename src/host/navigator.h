#pragma once

#include "common/event.h"
#include "common/ref.h"
#include "common/value.h"
#include "host/services.h"

namespace kebu::host {

/// The host's navigator, the source of the events that let a plug-in take part
/// in the host's object models.
class Navigator {
 public:
  virtual ~Navigator() = default;

  Event<const Value&> BeforeExportToOffice;
  Event<const Ref<LayoutModel>&> InitializeLayoutObjectModel;
  Event<const Ref<ScriptModel>&> InitializeScriptObjectModel;
};

}  // namespace kebu::host
