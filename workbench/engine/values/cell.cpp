#include "workbench/engine/values/cell.h"

#include <cstddef>
#include <type_traits>
#include <utility>

#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

constexpr char positive = '\x80';
constexpr char negative = '\x7f';

SqlError tooManyDigits() {
  return {8115, "Arithmetic overflow error converting expression to data type numeric."};
}

/// A sign byte, then the mantissa with its highest byte first. Negative numbers have all bits
/// inverted, so that the bytes sort as the numbers.
std::string sortableBytes(const Decimal& value) {
  std::string bytes(1, value.isNegative() ? negative : positive);
  for (std::size_t limb = value.mantissa().size(); limb-- > 0;) {
    for (int shift = 24; shift >= 0; shift -= 8) {
      const auto byte = static_cast<unsigned char>(value.mantissa().at(limb) >> shift);
      bytes += static_cast<char>(value.isNegative() ? ~byte : byte);
    }
  }
  return bytes;
}

Decimal fromSortableBytes(std::string_view bytes, int scale) {
  constexpr std::size_t size = 1 + sizeof(Decimal::Mantissa);
  if (bytes.size() != size) throw SqlError(824, "The database file is damaged: a number is cut.");
  const bool isNegative = bytes.front() == negative;
  Decimal::Mantissa mantissa{};
  for (std::size_t i = 0; i < 12; ++i) {
    auto byte = static_cast<unsigned char>(bytes[i + 1]);
    if (isNegative) byte = static_cast<unsigned char>(~byte);
    mantissa.at(2 - i / 4) |= static_cast<std::uint32_t>(byte) << (24 - 8 * (i % 4));
  }
  return {mantissa, scale, isNegative};
}

std::string_view bytesOf(sqlite3_value* value) {
  const auto* const data = static_cast<const char*>(sqlite3_value_blob(value));
  return {data, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

/// The value that an integer of SQLite represents.
Value fromInteger(std::int64_t integer, const SqlType& type) {
  switch (type.kind) {
    case TypeKind::Bit:
      return integer != 0;
    case TypeKind::TinyInt:
    case TypeKind::SmallInt:
      return static_cast<std::int16_t>(integer);
    case TypeKind::BigInt:
      return Decimal(integer);
    case TypeKind::Decimal:
      return Decimal::scaled(integer, type.scale);
    case TypeKind::Date:
    case TypeKind::DateTime:
      return dateFromMilliseconds(integer);
    default:
      return static_cast<std::int32_t>(integer);
  }
}

// SQLite gives a floating-point number only where integers overflowed 64 bits.
SqlError integerTooLarge() {
  return {8115, "Arithmetic overflow error converting expression to data type bigint."};
}

}  // namespace

Cell cellOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return Cell::of(sqlite3_value_int64(value));
    case SQLITE_TEXT:
      return {Cell::Kind::Text, 0, std::string(bytesOf(value))};
    case SQLITE_BLOB:
      return {Cell::Kind::Blob, 0, std::string(bytesOf(value))};
    case SQLITE_FLOAT:
      throw integerTooLarge();
    default:
      return {};
  }
}

void bind(sqlite3_stmt* statement, int place, const Cell& cell) {
  const auto size = static_cast<int>(cell.bytes.size());
  switch (cell.kind) {
    case Cell::Kind::Null:
      sqlite3_bind_null(statement, place);
      break;
    case Cell::Kind::Integer:
      sqlite3_bind_int64(statement, place, cell.integer);
      break;
    case Cell::Kind::Text:
      sqlite3_bind_text(statement, place, cell.bytes.data(), size, SQLITE_TRANSIENT);
      break;
    case Cell::Kind::Blob:
      sqlite3_bind_blob(statement, place, cell.bytes.data(), size, SQLITE_TRANSIENT);
      break;
  }
}

void setResult(sqlite3_context* context, const Cell& cell) {
  const auto size = static_cast<int>(cell.bytes.size());
  switch (cell.kind) {
    case Cell::Kind::Null:
      sqlite3_result_null(context);
      break;
    case Cell::Kind::Integer:
      sqlite3_result_int64(context, cell.integer);
      break;
    case Cell::Kind::Text:
      sqlite3_result_text(context, cell.bytes.data(), size, SQLITE_TRANSIENT);
      break;
    case Cell::Kind::Blob:
      sqlite3_result_blob(context, cell.bytes.data(), size, SQLITE_TRANSIENT);
      break;
  }
}

Value valueOf(Cell cell, const SqlType& type) {
  switch (cell.kind) {
    case Cell::Kind::Integer:
      return fromInteger(cell.integer, type);
    case Cell::Kind::Text:
      return std::move(cell.bytes);
    case Cell::Kind::Blob:
      return fromSortableBytes(cell.bytes, type.scale);
    default:
      return Null{};
  }
}

Value valueOf(sqlite3_value* cell, const SqlType& type) {
  return valueOf(cellOf(cell), type);
}

Cell storedAs(const Value& value, const SqlType& type) {
  return std::visit(
      [&](const auto& v) -> Cell {
        using T = std::decay_t<decltype(v)>;
        if constexpr (std::is_same_v<T, std::string>) {
          return Cell::text(v);
        } else if constexpr (std::is_same_v<T, Decimal>) {
          const int scale = type.kind == TypeKind::Decimal ? type.scale : 0;
          if (!type.isWide()) {
            const auto whole = v.unscaledAt(scale);
            if (!whole) throw tooManyDigits();
            return Cell::of(*whole);
          }
          const Decimal exact = v.roundedAway(scale);
          if (exact.scale() != scale) throw tooManyDigits();
          return {Cell::Kind::Blob, 0, sortableBytes(exact)};
        } else if constexpr (std::is_same_v<T, Date>) {
          return Cell::of(millisecondsOf(v));
        } else if constexpr (std::is_integral_v<T>) {
          return Cell::of(v);
        } else {
          return {};
        }
      },
      value.storage());
}

std::int64_t millisecondsOf(const Date& date) {
  return date.dayNumber() * Date::millisecondsPerDay + date.millisecondOfDay();
}

Date dateFromMilliseconds(std::int64_t milliseconds) {
  std::int64_t day = milliseconds / Date::millisecondsPerDay;
  std::int64_t rest = milliseconds % Date::millisecondsPerDay;
  if (rest < 0) {
    rest += Date::millisecondsPerDay;
    --day;
  }
  const auto date = Date::fromDayNumber(day, rest);
  if (!date)
    throw SqlError(8115, "Arithmetic overflow error converting expression to data type datetime.");
  return *date;
}

}  // namespace kebu::engine
