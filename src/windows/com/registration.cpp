#include "windows/com/registration.h"

#include <string>

#include "common/trap.h"
#include "windows/support/com_error.h"
#include "windows/support/com_ptr.h"
#include "windows/support/handles.h"
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

void registerAll() {
  const Library library;
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
      {key + L"\\Programmable", nullptr, L""},
      {key + L"\\TypeLib", nullptr, textOf(library.attributes.guid)},
      {key + L"\\Version", nullptr, library.version()},
      {programId, nullptr, programId},
      {std::wstring(programId) + L"\\CLSID", nullptr, textOf(__uuidof(CLSKB_ANAGKELMORIA))},
  };
  for (const auto& entry : entries) setValue(entry.key, entry.name, entry.value);
  check(RegisterTypeLib(library.types.get(), modulePath().data(), nullptr));
}

/// Whether the type library is registered for programs of this one's bitness.
bool isRegistered(const Library& library) {
  const std::wstring place = L"TypeLib\\" + textOf(library.attributes.guid) + L"\\" +
                             library.version() + L"\\0\\win" +
                             (library.attributes.syskind == SYS_WIN64 ? L"64" : L"32");
  HKEY key = nullptr;
  RegOpenKeyExW(HKEY_CLASSES_ROOT, place.c_str(), 0, KEY_READ, &key);
  return OwnedKey(key) != nullptr;
}

void deleteKey(const std::wstring& key) {
  const LSTATUS result = RegDeleteTreeW(HKEY_CLASSES_ROOT, key.c_str());
  if (result != ERROR_FILE_NOT_FOUND) check(HRESULT_FROM_WIN32(result));
}

}  // namespace

void registerServer() {
  try {
    registerAll();
  } catch (...) {
    ignoringErrors(unregisterServer);
    throw;
  }
}

void unregisterServer() {
  deleteKey(classKey());
  deleteKey(programId);
  const Library library;
  if (!isRegistered(library)) return;
  const TLIBATTR& id = library.attributes;
  check(UnRegisterTypeLib(id.guid, id.wMajorVerNum, id.wMinorVerNum, id.lcid, id.syskind));
}

}  // namespace kebu::windows
