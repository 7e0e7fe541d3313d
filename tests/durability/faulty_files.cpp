#include "tests/durability/faulty_files.h"

#include <sqlite3.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string_view>
#include <utility>

namespace kebu::tests::faultyfiles {

namespace {

constexpr std::int64_t never = 0;

struct Faults {
  std::int64_t operations = 0;
  std::int64_t fullAt = never;
  std::int64_t killedAt = never;
};

Faults faults;
bool isReadOnly = false;
std::function<void()> transactionEnds;
sqlite3_vfs* usual = nullptr;

bool isFull() {
  return faults.fullAt != never && faults.operations >= faults.fullAt;
}
bool isKilled() {
  return faults.operations == faults.killedAt;
}
[[noreturn]] void killProcess() {
  kill(getpid(), SIGKILL);
  pause();
  std::abort();
}

/// The size of a file of ours. Behind it in memory lies the system's own, aligned.
constexpr std::size_t ownSize = (sizeof(sqlite3_file) + alignof(std::max_align_t) - 1) /
                                alignof(std::max_align_t) * alignof(std::max_align_t);

sqlite3_file* behind(sqlite3_file* file) {
  return reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + ownSize);
}

/// A method that does what the system's own does.
template <auto method>
struct Forwarded;
template <class... Arguments, int (*sqlite3_io_methods::*method)(sqlite3_file*, Arguments...)>
struct Forwarded<method> {
  static int call(sqlite3_file* file, Arguments... arguments) {
    sqlite3_file* const real = behind(file);
    return (real->pMethods->*method)(real, arguments...);
  }
};

int write(sqlite3_file* file, const void* data, int size, sqlite3_int64 place) {
  ++faults.operations;
  if (isFull()) return SQLITE_FULL;
  sqlite3_file* const real = behind(file);
  if (isKilled()) {
    real->pMethods->xWrite(real, data, size / 2, place);
    killProcess();
  }
  return real->pMethods->xWrite(real, data, size, place);
}

// The first version of the methods: without shared memory and mapped files.
constexpr sqlite3_io_methods methods = {
    .iVersion = 1,
    .xClose = Forwarded<&sqlite3_io_methods::xClose>::call,
    .xRead = Forwarded<&sqlite3_io_methods::xRead>::call,
    .xWrite = write,
    .xTruncate = Forwarded<&sqlite3_io_methods::xTruncate>::call,
    .xSync = Forwarded<&sqlite3_io_methods::xSync>::call,
    .xFileSize = Forwarded<&sqlite3_io_methods::xFileSize>::call,
    .xLock = Forwarded<&sqlite3_io_methods::xLock>::call,
    .xUnlock = Forwarded<&sqlite3_io_methods::xUnlock>::call,
    .xCheckReservedLock = Forwarded<&sqlite3_io_methods::xCheckReservedLock>::call,
    .xFileControl = Forwarded<&sqlite3_io_methods::xFileControl>::call,
    .xSectorSize = Forwarded<&sqlite3_io_methods::xSectorSize>::call,
    .xDeviceCharacteristics = Forwarded<&sqlite3_io_methods::xDeviceCharacteristics>::call,
    .xShmMap = nullptr,
    .xShmLock = nullptr,
    .xShmBarrier = nullptr,
    .xShmUnmap = nullptr,
    .xFetch = nullptr,
    .xUnfetch = nullptr,
};

int open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* outFlags) {
  new (file) sqlite3_file();
  if (isReadOnly && (flags & SQLITE_OPEN_MAIN_DB) != 0) {
    flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
  }
  const int code = usual->xOpen(usual, name, behind(file), flags, outFlags);
  // SQLite closes a file that has methods, even when it could not be opened.
  file->pMethods = behind(file)->pMethods ? &methods : nullptr;
  return code;
}

int remove(sqlite3_vfs*, const char* name, int syncFolder) {
  ++faults.operations;
  if (isKilled()) killProcess();
  const int code = usual->xDelete(usual, name, syncFolder);
  const bool isJournal = std::string_view(name).ends_with("-journal");
  if (isJournal && code == SQLITE_OK && transactionEnds) transactionEnds();
  return code;
}

}  // namespace

void install() {
  static sqlite3_vfs own;
  if (usual != nullptr) return;
  usual = sqlite3_vfs_find(nullptr);
  own = *usual;
  own.pNext = nullptr;
  own.zName = "faulty";
  own.szOsFile = static_cast<int>(ownSize) + usual->szOsFile;
  own.xOpen = open;
  own.xDelete = remove;
  constexpr int asDefault = 1;
  sqlite3_vfs_register(&own, asDefault);
}

void reset() {
  faults = {};
}
std::int64_t operations() {
  return faults.operations;
}
void fillDiskAt(std::int64_t operation) {
  faults.fullAt = operation;
}
void killAt(std::int64_t operation) {
  faults.killedAt = operation;
}
void setReadOnly(bool readOnly) {
  isReadOnly = readOnly;
}
void whenTransactionEnds(std::function<void()> handler) {
  transactionEnds = std::move(handler);
}

}  // namespace kebu::tests::faultyfiles
