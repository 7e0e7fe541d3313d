#include "windows/com/registration.h"

#include <optional>
#include <string>
#include <vector>

#include "common/trap.h"
#include "windows/com/registry_tree.h"
#include "windows/support/com_error.h"
#include "windows/support/com_ptr.h"
#include "windows/support/module.h"
#include "windows/support/windows_api.h"
#include "windows/types/kebu_anagkelmoria.h"

namespace kebu::windows {

namespace {

constexpr const wchar_t* programId = L"KEBU_ANAGKELMORIA.CLSKB_ANAGKELMORIA";

std::wstring textOf(REFGUID id) {
  wchar_t text[39] = {};
  StringFromGUID2(id, text, 39);
  return text;
}

std::wstring classKey() {
  return L"CLSID\\" + textOf(__uuidof(CLSKB_ANAGKELMORIA));
}

/// The type library in this module, and its attributes.
struct Library {
  Library() {
    check(LoadTypeLibEx(modulePath().c_str(), REGKIND_NONE, types.put()));
    TLIBATTR* lent = nullptr;
    check(types->GetLibAttr(&lent));
    attributes = *lent;
    types->ReleaseTLibAttr(lent);
  }

  std::wstring version() const {
    return std::to_wstring(attributes.wMajorVerNum) + L"." +
           std::to_wstring(attributes.wMinorVerNum);
  }

  ComPtr<ITypeLib> types;
  TLIBATTR attributes{};
};

void setValue(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
  const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
  check(HRESULT_FROM_WIN32(
      RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), name, REG_SZ, value.c_str(), size)));
}

std::wstring libraryKey(const Library& library) {
  return L"TypeLib\\" + textOf(library.attributes.guid);
}

void registerAll(const Library& library) {
  const std::wstring key = classKey();
  const struct {
    std::wstring key;
    const wchar_t* name;
    std::wstring value;
  } entries[] = {
      {key, nullptr, programId},
      {key + L"\\InprocServer32", nullptr, modulePath()},
      {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
      {key + L"\\ProgID", nullptr, programId},
      {key + L"\\Programmable", nullptr, {}},
      {key + L"\\TypeLib", nullptr, textOf(library.attributes.guid)},
      {key + L"\\Version", nullptr, library.version()},
      {programId, nullptr, programId},
      {std::wstring(programId) + L"\\CLSID", nullptr, textOf(__uuidof(CLSKB_ANAGKELMORIA))},
  };
  for (const auto& entry : entries) setValue(entry.key, entry.name, entry.value);
  check(RegisterTypeLib(library.types.get(), modulePath().data(), nullptr));
}

/// The keys that registering may write.
std::vector<std::wstring> writtenKeys(const Library& library) {
  std::vector<std::wstring> keys = {classKey(), programId, libraryKey(library)};
  for (UINT i = 0; i < library.types->GetTypeInfoCount(); ++i) {
    ComPtr<ITypeInfo> type;
    TYPEATTR* lent = nullptr;
    check(library.types->GetTypeInfo(i, type.put()));
    check(type->GetTypeAttr(&lent));
    if (lent->typekind == TKIND_DISPATCH || lent->typekind == TKIND_INTERFACE) {
      keys.push_back(L"Interface\\" + textOf(lent->guid));
    }
    type->ReleaseTypeAttr(lent);
  }
  return keys;
}

/// What a key says about the file that it belongs to.
enum class Owner { Nobody, ThisFile, AnotherFile };

Owner ownerOf(const std::wstring& keyOfPath) {
  const auto path = textValue(keyOfPath);
  if (!path) return Owner::Nobody;
  const std::wstring own = modulePath();
  const bool same = CompareStringOrdinal(path->c_str(), -1, own.c_str(), -1, TRUE) == CSTR_EQUAL;
  return same ? Owner::ThisFile : Owner::AnotherFile;
}

/// 32-bit and 64-bit copies have classes of their own, but share the name.
bool isClassRegistered() {
  const std::wstring server = classKey() + L"\\InprocServer32";
  return textValue(server, KEY_WOW64_32KEY) || textValue(server, KEY_WOW64_64KEY);
}

}  // namespace

void registerServer() {
  const Library library;
  std::vector<RegistryTree> before;
  for (const std::wstring& key : writtenKeys(library)) before.emplace_back(key);
  try {
    registerAll(library);
  } catch (...) {
    for (const RegistryTree& tree : before) ignoringErrors([&] { tree.restore(); });
    throw;
  }
}

void unregisterServer() {
  const Library library;
  if (ownerOf(classKey() + L"\\InprocServer32") != Owner::AnotherFile) deleteTree(classKey());
  if (!isClassRegistered()) deleteTree(programId);
  const std::wstring file = libraryKey(library) + L"\\" + library.version() + L"\\0\\win" +
                            (library.attributes.syskind == SYS_WIN64 ? L"64" : L"32");
  if (ownerOf(file) != Owner::ThisFile) return;
  const TLIBATTR& id = library.attributes;
  check(UnRegisterTypeLib(id.guid, id.wMajorVerNum, id.wMinorVerNum, id.lcid, id.syskind));
}

}  // namespace kebu::windows
