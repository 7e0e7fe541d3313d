#include "workbench/engine/binding/builtins.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string>

#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

using Args = std::span<const Bound>;

const SqlType integer = SqlType::integer();
const SqlType identity = SqlType::decimal(38, 0);
const SqlType dateTime{TypeKind::DateTime};
const SqlType maxText = SqlType::text(-1);
const SqlType longestText = SqlType::text(8000);

std::string asText(const Bound& value) {
  return cast(value, maxText).sql;
}
std::string asInt(const Bound& value) {
  return cast(value, integer).sql;
}
std::string asDate(const Bound& value) {
  return value.type.isDate() ? value.sql : cast(value, dateTime).sql;
}
std::string code(const SqlType& type) {
  return std::to_string(type.code());
}
/// The argument as an integer, or `usual` when it was left out.
std::string intOr(const char* usual, Args args, std::size_t index) {
  return index < args.size() ? asInt(args[index]) : usual;
}

/// A call of one of SQLite's functions.
Bound call(const std::string& function, const std::vector<std::string>& args, const SqlType& type,
           bool nullable = true) {
  std::string list;
  for (const auto& arg : args) list += (list.empty() ? "" : ", ") + arg;
  return {function + "(" + list + ")", type, nullable};
}

/// The type of a text function's result: the argument's own, or what a number is as text.
SqlType textType(const Bound& value) {
  if (!value.type.isText()) return SqlType::text(40);
  return {value.type.isUnicode() ? TypeKind::NVarChar : TypeKind::VarChar, 0, 0, value.type.size};
}

Bound sameText(const char* function, Args args) {
  return call(function, {asText(args[0])}, textType(args[0]), args[0].nullable);
}

Bound isNull(Args args) {
  const SqlType type = args[0].type.kind == TypeKind::Null ? args[1].type : args[0].type;
  return call("ifnull", {args[0].sql, cast(args[1], type).sql}, type,
              args[0].nullable && args[1].nullable);
}

Bound coalesce(Args args) {
  SqlType type;
  bool nullable = true;
  for (const auto& arg : args) {
    type = unify(type, arg.type);
    nullable = nullable && arg.nullable;
  }
  std::vector<std::string> values;
  for (const auto& arg : args) values.push_back(cast(arg, type).sql);
  return call("coalesce", values, type, nullable);
}

Bound nullIf(Args args) {
  return {"(CASE WHEN " + comparison(ComparisonOperator::Equal, args[0], args[1]) +
              " THEN NULL ELSE " + args[0].sql + " END)",
          args[0].type};
}

Bound round(Args args) {
  const Bound number = args[0].type.isText() ? cast(args[0], SqlType::decimal(38, 6)) : args[0];
  return call("kb_round", {number.sql, code(number.type), asInt(args[1]), intOr("0", args, 2)},
              number.type);
}

/// FLOOR and CEILING: whole numbers of as many digits.
Bound wholePart(const char* function, Args args) {
  const SqlType& from = args[0].type;
  if (from.kind != TypeKind::Decimal) return cast(args[0], from.isInteger() ? from : integer);
  const SqlType type{TypeKind::Decimal, from.precision, 0, 0};
  return call(function, {args[0].sql, code(from), code(type)}, type);
}

Bound absolute(Args args) {
  if (!args[0].type.isWide()) return call("abs", {args[0].sql}, args[0].type, args[0].nullable);
  const Bound zero{"0", {TypeKind::Int, 1, 0, 0}, false};
  return {"(CASE WHEN " + comparison(ComparisonOperator::Less, args[0], zero) + " THEN " +
              negated(args[0]).sql + " ELSE " + args[0].sql + " END)",
          args[0].type};
}

Bound now(Args /*none*/) {
  return call("kb_now", {}, dateTime, false);
}

Bound dateAdd(Args args) {
  const SqlType type = args[2].type.isDate() ? args[2].type : dateTime;
  return call("kb_dateadd", {args[0].sql, asInt(args[1]), asDate(args[2]), code(type)}, type);
}

Bound datePart(const std::string& part, const Bound& date) {
  return call("kb_datepart", {part, asDate(date)}, integer);
}

Bound str(Args args) {
  const std::string number = cast(args[0], SqlType::decimal(38, 8)).sql;
  return call("kb_str", {number, intOr("10", args, 1), intOr("0", args, 2)}, SqlType::text(255));
}

Bound objectId(Args args) {
  const std::string kind = args.size() > 1 ? asText(args[1]) : "''";
  return call("kb_object_id", {asText(args[0]), kind}, integer);
}

struct Builtin {
  std::string_view name;
  std::size_t least;
  std::size_t most;
  Bound (*make)(Args args);
};

constexpr std::size_t any = 255;

const Builtin builtins[] = {
    {"ISNULL", 2, 2, isNull},
    {"COALESCE", 1, any, coalesce},
    {"NULLIF", 2, 2, nullIf},
    {"NEWID", 0, 0, [](Args) { return call("kb_newid", {}, {TypeKind::Guid}, false); }},
    {"GETDATE", 0, 0, now},
    {"SYSDATETIME", 0, 0, now},
    {"LTRIM", 1, 1, [](Args a) { return sameText("ltrim", a); }},
    {"RTRIM", 1, 1, [](Args a) { return sameText("rtrim", a); }},
    {"TRIM", 1, 1, [](Args a) { return sameText("trim", a); }},
    {"UPPER", 1, 1, [](Args a) { return sameText("kb_upper", a); }},
    {"LOWER", 1, 1, [](Args a) { return sameText("kb_lower", a); }},
    {"REVERSE", 1, 1, [](Args a) { return sameText("kb_reverse", a); }},
    {"LEFT", 2, 2,
     [](Args a) {
       return call("kb_left", {asText(a[0]), asInt(a[1])}, textType(a[0]));
     }},
    {"RIGHT", 2, 2,
     [](Args a) {
       return call("kb_right", {asText(a[0]), asInt(a[1])}, textType(a[0]));
     }},
    {"SUBSTRING", 3, 3,
     [](Args a) {
       return call("kb_substring", {asText(a[0]), asInt(a[1]), asInt(a[2])}, textType(a[0]));
     }},
    {"REPLICATE", 2, 2,
     [](Args a) {
       return call("kb_replicate", {asText(a[0]), asInt(a[1])}, longestText);
     }},
    {"SPACE", 1, 1,
     [](Args a) {
       return call("kb_replicate", {"' '", asInt(a[0])}, longestText);
     }},
    {"REPLACE", 3, 3,
     [](Args a) {
       return call("kb_replace", {asText(a[0]), asText(a[1]), asText(a[2])}, longestText);
     }},
    {"LEN", 1, 1, [](Args a) { return call("kb_len", {asText(a[0])}, integer, a[0].nullable); }},
    {"DATALENGTH", 1, 1,
     [](Args a) { return call("length", {asText(a[0])}, integer, a[0].nullable); }},
    {"CHARINDEX", 2, 3,
     [](Args a) {
       return call("kb_charindex", {asText(a[0]), asText(a[1]), intOr("1", a, 2)}, integer);
     }},
    {"CHAR", 1, 1, [](Args a) { return call("char", {asInt(a[0])}, SqlType::text(1)); }},
    {"ASCII", 1, 1, [](Args a) { return call("unicode", {asText(a[0])}, integer); }},
    {"STR", 1, 3, str},
    {"ABS", 1, 1, absolute},
    {"ROUND", 2, 3, round},
    {"FLOOR", 1, 1, [](Args a) { return wholePart("kb_floor", a); }},
    {"CEILING", 1, 1, [](Args a) { return wholePart("kb_ceiling", a); }},
    {"DATEADD", 3, 3, dateAdd},
    {"DATEDIFF", 3, 3,
     [](Args a) {
       return call("kb_datediff", {a[0].sql, asDate(a[1]), asDate(a[2])}, integer);
     }},
    {"DATEPART", 2, 2, [](Args a) { return datePart(a[0].sql, a[1]); }},
    {"YEAR", 1, 1, [](Args a) { return datePart("'YEAR'", a[0]); }},
    {"MONTH", 1, 1, [](Args a) { return datePart("'MONTH'", a[0]); }},
    {"DAY", 1, 1, [](Args a) { return datePart("'DAY'", a[0]); }},
    {"OBJECT_ID", 1, 2, objectId},
    {"IDENT_CURRENT", 1, 1,
     [](Args a) { return call("kb_ident_current", {asText(a[0])}, identity); }},
    {"SCOPE_IDENTITY", 0, 0, [](Args) { return call("kb_scope_identity", {}, identity); }},
    {"DB_NAME", 0, 0,
     [](Args) {
       const SqlType type{TypeKind::NVarChar, 0, 0, 128};
       return Bound{textLiteral(Catalogue::databaseName), type, false};
     }},
};

}  // namespace

bool isAggregate(std::string_view name) {
  static constexpr std::array<std::string_view, 6> names{"COUNT", "COUNT_BIG", "SUM",
                                                         "MIN",   "MAX",       "AVG"};
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::optional<Bound> callBuiltin(std::string_view name, const std::vector<Bound>& args) {
  const auto* const found = std::ranges::find(builtins, name, &Builtin::name);
  if (found == std::end(builtins)) return std::nullopt;
  if (args.size() < found->least || args.size() > found->most) {
    throw SqlError(174, "The " + std::string(name) + " function requires " +
                            std::to_string(found->least) + " argument(s).");
  }
  return found->make(args);
}

}  // namespace kebu::engine
