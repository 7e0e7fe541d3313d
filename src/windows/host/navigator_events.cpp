#include "windows/host/navigator_events.h"

#include <string>

namespace kebu::windows {

namespace {

struct EventName {
  NavigatorEvent event;
  const wchar_t* name;
};
constexpr EventName eventNames[] = {
    {NavigatorEvent::BeforeExportToOffice, L"BeforeExportToOffice"},
    {NavigatorEvent::InitializeLayoutObjectModel, L"InitializeLayoutObjectModel"},
    {NavigatorEvent::InitializeScriptObjectModel, L"InitializeScriptObjectModel"},
};

/// Attributes of a described type.
struct TypeAttributes {
  IID id{};
  TYPEKIND kind = TKIND_MAX;
  UINT implemented = 0;  ///< how many interfaces a class has
  bool isDual = false;
};

TypeAttributes attributesOf(ITypeInfo& type) {
  TYPEATTR* attributes = nullptr;
  if (FAILED(type.GetTypeAttr(&attributes))) return {};
  const TypeAttributes result{attributes->guid, attributes->typekind, attributes->cImplTypes,
                              (attributes->wTypeFlags & TYPEFLAG_FDUAL) != 0};
  type.ReleaseTypeAttr(attributes);
  return result;
}

/// The interface that the class names as its default source of events; absent when there is none.
ComPtr<ITypeInfo> defaultSourceOf(ITypeInfo& classType) {
  constexpr INT wanted = IMPLTYPEFLAG_FDEFAULT | IMPLTYPEFLAG_FSOURCE;
  const UINT count = attributesOf(classType).implemented;
  for (UINT i = 0; i < count; ++i) {
    INT flags = 0;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> source;
    if (SUCCEEDED(classType.GetImplTypeFlags(i, &flags)) && (flags & wanted) == wanted &&
        SUCCEEDED(classType.GetRefTypeOfImplType(i, &reference)) &&
        SUCCEEDED(classType.GetRefTypeInfo(reference, source.put()))) {
      return source;
    }
  }
  return nullptr;
}

NavigatorEventInterface describedInterface(ITypeInfo& source) {
  const TypeAttributes attributes = attributesOf(source);
  NavigatorEventInterface described{attributes.id, attributes.isDual, {}};
  if (attributes.kind != TKIND_DISPATCH) return described;
  for (const EventName& known : eventNames) {
    std::wstring copy(known.name);
    LPOLESTR name = copy.data();
    DISPID id = DISPID_UNKNOWN;
    if (SUCCEEDED(source.GetIDsOfNames(&name, 1, &id))) {
      described.events.emplace_back(id, known.event);
    }
  }
  return described;
}

}  // namespace

NavigatorEventInterface ownNavigatorEvents() {
  NavigatorEventInterface own;
  for (const EventName& known : eventNames) {
    own.events.emplace_back(static_cast<DISPID>(known.event), known.event);
  }
  return own;
}

std::vector<NavigatorEventInterface> eventInterfacesOf(const ComPtr<IDispatch>& navigator) {
  std::vector<NavigatorEventInterface> interfaces;
  ComPtr<ITypeInfo> classType;
  ComPtr<ITypeInfo> source;
  if (const auto provider = navigator.as<IProvideClassInfo>()) {
    if (SUCCEEDED(provider->GetClassInfo(classType.put())) && classType) {
      source = defaultSourceOf(*classType.get());
    }
  }
  if (source) {
    interfaces.push_back(describedInterface(*source.get()));
  } else if (const auto provider = navigator.as<IProvideClassInfo2>()) {
    // Only named and not described: its events may have the identifiers of ours.
    NavigatorEventInterface named = ownNavigatorEvents();
    if (SUCCEEDED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &named.id))) {
      interfaces.push_back(std::move(named));
    }
  }
  interfaces.push_back(ownNavigatorEvents());
  return interfaces;
}

}  // namespace kebu::windows
