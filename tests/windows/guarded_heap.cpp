// Replaces the operators new and delete, so that a use of freed memory, or of memory behind a
// block, ends the program at that place with a list of its callers. The sanitizers do the same
// natively; this compiler has none for Windows.
//
// Every block has pages of its own and ends with the last of them, before a page that is never
// accessible. Pages of freed blocks become inaccessible and are never used again.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <mutex>
#include <new>

#include "windows/support/windows_api.h"

namespace {

constexpr std::size_t pageSize = 4096;
constexpr std::size_t chunkSize = std::size_t{1} << 32;
constexpr std::size_t alignment = alignof(std::max_align_t);
constexpr unsigned char unset = 0xCD;

/// Address space for blocks, reserved as it is needed.
class Chunks {
 public:
  /// Pages that are not accessible yet; null when the address space is used up.
  char* take(std::size_t size) {
    const std::lock_guard lock(guard_);
    if (static_cast<std::size_t>(end_ - next_) < size && !reserve(size)) return nullptr;
    char* const taken = next_;
    next_ += size;
    return taken;
  }

  bool contain(std::uintptr_t address) {
    for (std::size_t i = 0; i < count_; ++i) {
      if (address >= starts_[i] && address < starts_[i] + sizes_[i]) return true;
    }
    return false;
  }

 private:
  bool reserve(std::size_t size) {
    if (count_ == starts_.size()) return false;
    const std::size_t wanted = size > chunkSize ? size : chunkSize;
    auto* const start =
        static_cast<char*>(VirtualAlloc(nullptr, wanted, MEM_RESERVE, PAGE_NOACCESS));
    if (!start) return false;
    starts_[count_] = reinterpret_cast<std::uintptr_t>(start);
    sizes_[count_++] = wanted;
    next_ = start;
    end_ = start + wanted;
    return true;
  }

  std::mutex guard_;
  char* next_ = nullptr;
  char* end_ = nullptr;
  std::array<std::uintptr_t, 1024> starts_{};
  std::array<std::size_t, 1024> sizes_{};
  std::size_t count_ = 0;
};

/// At the start of a block's first page.
struct Head {
  std::uint64_t mark;
  std::size_t size;  ///< of its pages
};
constexpr std::uint64_t headMark = 0x6B6562752D686561;

template <class... Parts>
void print(const char* format, Parts... parts) {
  std::array<char, 512> line{};
  const int length = std::snprintf(line.data(), line.size(), format, parts...);
  DWORD written = 0;
  WriteFile(GetStdHandle(STD_ERROR_HANDLE), line.data(), static_cast<DWORD>(length), &written,
            nullptr);
}

void printPlace(DWORD64 address) {
  HMODULE module = nullptr;
  std::array<char, MAX_PATH> path{};
  GetModuleHandleExA(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const char*>(address), &module);
  if (module) GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size()));
  print("  0x%llx %s\n", address, path.data());
}

void printCallers(CONTEXT context) {
  constexpr int most = 40;
  for (int i = 0; i < most && context.Rip; ++i) {
    printPlace(context.Rip);
    DWORD64 base = 0;
    auto* const function = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
    if (!function) return;
    void* data = nullptr;
    DWORD64 frame = 0;
    RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, function, &context, &data, &frame,
                     nullptr);
  }
}

Chunks& chunks();

// Before any handler of the program's: Windows' own swallow what happens in window procedures.
LONG CALLBACK accessViolated(EXCEPTION_POINTERS* pointers) {
  const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
  if (record.ExceptionCode != EXCEPTION_ACCESS_VIOLATION) return EXCEPTION_CONTINUE_SEARCH;
  const std::uintptr_t address = record.ExceptionInformation[1];
  if (!chunks().contain(address)) return EXCEPTION_CONTINUE_SEARCH;
  print("guarded heap: %s of freed memory, or behind a block (0x%llx), by\n",
        record.ExceptionInformation[0] == 0 ? "read" : "write",
        static_cast<unsigned long long>(address));
  printCallers(*pointers->ContextRecord);
  constexpr UINT failed = 3;
  TerminateProcess(GetCurrentProcess(), failed);
  return EXCEPTION_CONTINUE_SEARCH;
}

// Never destroyed: memory is freed until the very end.
Chunks& chunks() {
  alignas(Chunks) static std::array<std::byte, sizeof(Chunks)> place;
  static Chunks* const all = [] {
    AddVectoredExceptionHandler(1, accessViolated);
    return new (place.data()) Chunks;
  }();
  return *all;
}

std::size_t roundedUp(std::size_t size, std::size_t unit) {
  return (size + unit - 1) / unit * unit;
}

void* allocate(std::size_t size) {
  const std::size_t block = roundedUp(size, alignment);
  const std::size_t pages = roundedUp(block + sizeof(Head), pageSize);
  char* const start = chunks().take(pages + pageSize);
  if (!start || !VirtualAlloc(start, pages, MEM_COMMIT, PAGE_READWRITE)) return nullptr;
  new (start) Head{headMark, pages};
  char* const given = start + pages - block;
  std::memset(given, unset, block);
  return given;
}

void* allocateOrThrow(std::size_t size) {
  void* const given = allocate(size);
  if (!given) throw std::bad_alloc();
  return given;
}

void release(void* block) {
  if (!block) return;
  auto page = reinterpret_cast<std::uintptr_t>(block) - sizeof(Head);
  page -= page % pageSize;
  while (reinterpret_cast<const Head*>(page)->mark != headMark) page -= pageSize;
  VirtualFree(reinterpret_cast<void*>(page), reinterpret_cast<const Head*>(page)->size,
              MEM_DECOMMIT);
}

}  // namespace

void* operator new(std::size_t size) {
  return allocateOrThrow(size);
}

void* operator new[](std::size_t size) {
  return allocateOrThrow(size);
}

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}

void operator delete(void* block) noexcept {
  release(block);
}

void operator delete[](void* block) noexcept {
  release(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept {
  release(block);
}

void operator delete[](void* block, std::size_t /*size*/) noexcept {
  release(block);
}
