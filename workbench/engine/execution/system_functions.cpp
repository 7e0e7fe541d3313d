// Functions that ask the clock, or the database and the session whose statement runs: their results
// may differ from call to call.

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <random>

#include "workbench/engine/execution/database.h"
#include "workbench/engine/execution/function_registry.h"
#include "workbench/engine/execution/session.h"

namespace kebu::engine {
namespace {

constexpr SqlType identityType{TypeKind::Decimal, 38, 0, 0};

Cell newId(Database&, CellArguments) {
  static std::mt19937_64 random{std::random_device{}()};
  const std::uint64_t a = random();
  const std::uint64_t b = random();
  // Version 4, variant 1: a GUID made of random numbers.
  std::array<char, 37> text{};
  std::snprintf(text.data(), text.size(), "%08X-%04X-4%03X-%04X-%04X%08X",
                static_cast<unsigned>(a >> 32), static_cast<unsigned>(a >> 16 & 0xFFFF),
                static_cast<unsigned>(a & 0xFFF), static_cast<unsigned>(b >> 48 & 0x3FFF) | 0x8000U,
                static_cast<unsigned>(b >> 32 & 0xFFFF), static_cast<unsigned>(b & 0xFFFFFFFF));
  return Cell::text(text.data());
}

/// The local time.
Cell now(Database&, CellArguments) {
  const auto instant = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(instant);
  const auto sinceEpoch =
      std::chrono::duration_cast<std::chrono::milliseconds>(instant.time_since_epoch()).count();
  const std::tm* local = std::localtime(&seconds);
  const auto date =
      Date::make(local->tm_year + 1900, local->tm_mon + 1, local->tm_mday, local->tm_hour,
                 local->tm_min, std::min(local->tm_sec, 59), static_cast<int>(sinceEpoch % 1000));
  return Cell::of(millisecondsOf(*date));
}

int sessionId(const Database& database) {
  return database.current() == nullptr ? 0 : database.current()->id();
}

/// kb_object_id(name, kind)
Cell objectId(Database& database, CellArguments args) {
  if (anyNull(args)) return {};
  const std::int64_t id =
      database.catalogue().objectId(textAt(args, 0), textAt(args, 1), sessionId(database));
  return id == 0 ? Cell() : Cell::of(id);
}

Cell identCurrent(Database& database, CellArguments args) {
  if (anyNull(args)) return {};
  const std::string name(textAt(args, 0));
  const auto point = name.rfind('.');
  const TablePtr table = database.catalogue().table(
      {{point == std::string::npos ? name : name.substr(point + 1)}, {}}, sessionId(database));
  const auto identity = table ? database.currentIdentity(*table) : std::nullopt;
  return identity ? storedAs(Decimal(*identity), identityType) : Cell();
}

Cell scopeIdentity(Database& database, CellArguments) {
  const auto identity = database.current()->state().scopeIdentity;
  return identity ? storedAs(Decimal(*identity), identityType) : Cell();
}

/// kb_call(name, arguments …): a scalar function written in T-SQL.
Cell callFunction(Database& database, CellArguments args) {
  return database.current()->callFunction(std::string(textAt(args, 0)), args.subspan(1));
}

constexpr std::array entries{
    NamedFunction<SystemFunction>{"kb_newid", 0, newId},
    NamedFunction<SystemFunction>{"kb_now", 0, now},
    NamedFunction<SystemFunction>{"kb_object_id", 2, objectId},
    NamedFunction<SystemFunction>{"kb_ident_current", 1, identCurrent},
    NamedFunction<SystemFunction>{"kb_scope_identity", 0, scopeIdentity},
    NamedFunction<SystemFunction>{"kb_call", -1, callFunction},
};

}  // namespace

std::span<const NamedFunction<SystemFunction>> systemFunctions() {
  return entries;
}

}  // namespace kebu::engine
