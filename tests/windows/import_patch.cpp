#include "tests/windows/import_patch.h"

#include <cstring>
#include <stdexcept>
#include <string>

namespace kebu::tests {

namespace {

/// Where the module keeps the address of an imported function; null when it does not import it.
void** placeOf(HMODULE module, const char* function) {
  auto* const base = reinterpret_cast<BYTE*>(module);
  const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports =
      headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  const auto* library =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* name =
        reinterpret_cast<const IMAGE_THUNK_DATA*>(base + library->OriginalFirstThunk);
    auto* address = reinterpret_cast<void**>(base + library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++address) {
      if (IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal)) continue;
      const auto& byName =
          *reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(byName.Name), function) == 0) return address;
    }
  }
  return nullptr;
}

void write(void** place, void* value) {
  DWORD before = 0;
  VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
  *place = value;
  VirtualProtect(place, sizeof *place, before, &before);
}

}  // namespace

ImportPatch::ImportPatch(HMODULE module, const char* function, void* replacement, int)
    : place_(placeOf(module, function)) {
  if (!place_) throw std::runtime_error(std::string("not imported: ") + function);
  original_ = *place_;
  write(place_, replacement);
}

ImportPatch::~ImportPatch() {
  write(place_, original_);
}

}  // namespace kebu::tests
