#include "workbench/engine/binding/builtins.h"

#include <algorithm>
#include <array>
#include <string>

#include "workbench/engine/sqlite.h"
#include "workbench/engine/values/sql_error.h"

namespace kebu::engine {
namespace {

using Args = std::vector<Bound>;

const SqlType longText = SqlType::text(-1);

std::string asText(const Bound& value) {
  return cast(value, longText).sql;
}
std::string asInt(const Bound& value) {
  return cast(value, SqlType::integer()).sql;
}
std::string asDate(const Bound& value) {
  return value.type.isDate() ? value.sql : cast(value, {TypeKind::DateTime}).sql;
}
/// The type of a text function's result: the argument's own, or what a number is as text.
SqlType textType(const Bound& value) {
  return value.type.isText()
             ? SqlType{value.type.kind == TypeKind::NVarChar || value.type.kind == TypeKind::NChar
                           ? TypeKind::NVarChar
                           : TypeKind::VarChar,
                       0, 0, value.type.size}
             : SqlType::text(40);
}

Bound textCall(const std::string& function, const Args& args, SqlType type) {
  std::string sql = function + "(" + asText(args[0]);
  for (std::size_t i = 1; i < args.size(); ++i) sql += ", " + asInt(args[i]);
  return {sql + ")", type};
}

Bound sameText(const std::string& function, const Args& args) {
  Bound result = textCall(function, args, textType(args[0]));
  result.nullable = args[0].nullable;
  return result;
}

Bound isNull(const Args& args) {
  const SqlType type = args[0].type.kind == TypeKind::Null ? args[1].type : args[0].type;
  return {"ifnull(" + args[0].sql + ", " + cast(args[1], type).sql + ")", type,
          args[0].nullable && args[1].nullable};
}

Bound coalesce(const Args& args) {
  SqlType type;
  bool nullable = true;
  for (const auto& arg : args) {
    type = unify(type, arg.type);
    nullable = nullable && arg.nullable;
  }
  std::string sql = "coalesce(";
  for (std::size_t i = 0; i < args.size(); ++i)
    sql += (i > 0 ? ", " : "") + cast(args[i], type).sql;
  return {sql + ")", type, nullable};
}

Bound nullIf(const Args& args) {
  return {"(CASE WHEN " + comparison(ComparisonOperator::Equal, args[0], args[1]) +
              " THEN NULL ELSE " + args[0].sql + " END)",
          args[0].type};
}

Bound round(const Args& args) {
  const std::string cut = args.size() > 2 ? asInt(args[2]) : "0";
  if (args[0].type.isText()) return round({cast(args[0], SqlType::decimal(38, 6)), args[1]});
  return {"kb_round(" + args[0].sql + ", " + std::to_string(args[0].type.code()) + ", " +
              asInt(args[1]) + ", " + cut + ")",
          args[0].type};
}

/// FLOOR and CEILING: whole numbers of as many digits.
Bound wholePart(const char* function, const Args& args) {
  if (args[0].type.kind != TypeKind::Decimal)
    return cast(args[0], args[0].type.isInteger() ? args[0].type : SqlType::integer());
  const SqlType type{TypeKind::Decimal, args[0].type.precision, 0, 0};
  return {std::string(function) + "(" + args[0].sql + ", " + std::to_string(args[0].type.code()) +
              ", " + std::to_string(type.code()) + ")",
          type};
}

Bound absolute(const Args& args) {
  if (!args[0].type.isWide()) return {"abs(" + args[0].sql + ")", args[0].type, args[0].nullable};
  const Bound zero{"0", {TypeKind::Int, 1, 0, 0}, false};
  return {"(CASE WHEN " + comparison(ComparisonOperator::Less, args[0], zero) + " THEN " +
              negated(args[0]).sql + " ELSE " + args[0].sql + " END)",
          args[0].type};
}

SqlType dateResult(const Bound& date) {
  return date.type.isDate() ? date.type : SqlType{TypeKind::DateTime};
}

struct Builtin {
  std::string_view name;
  std::size_t least;
  std::size_t most;
  Bound (*make)(const Args& args);
};

constexpr std::size_t any = 255;

const std::array builtins{
    Builtin{"ISNULL", 2, 2, isNull},
    Builtin{"COALESCE", 1, any, coalesce},
    Builtin{"NULLIF", 2, 2, nullIf},
    Builtin{"NEWID", 0, 0,
            [](const Args&) {
              return Bound{"kb_newid()", {TypeKind::Guid}, false};
            }},
    Builtin{"GETDATE", 0, 0,
            [](const Args&) {
              return Bound{"kb_now()", {TypeKind::DateTime}, false};
            }},
    Builtin{"SYSDATETIME", 0, 0,
            [](const Args&) {
              return Bound{"kb_now()", {TypeKind::DateTime}, false};
            }},
    Builtin{"LTRIM", 1, 1, [](const Args& a) { return sameText("ltrim", a); }},
    Builtin{"RTRIM", 1, 1, [](const Args& a) { return sameText("rtrim", a); }},
    Builtin{"TRIM", 1, 1, [](const Args& a) { return sameText("trim", a); }},
    Builtin{"UPPER", 1, 1, [](const Args& a) { return sameText("kb_upper", a); }},
    Builtin{"LOWER", 1, 1, [](const Args& a) { return sameText("kb_lower", a); }},
    Builtin{"REVERSE", 1, 1, [](const Args& a) { return sameText("kb_reverse", a); }},
    Builtin{"LEFT", 2, 2, [](const Args& a) { return textCall("kb_left", a, textType(a[0])); }},
    Builtin{"RIGHT", 2, 2, [](const Args& a) { return textCall("kb_right", a, textType(a[0])); }},
    Builtin{"SUBSTRING", 3, 3,
            [](const Args& a) { return textCall("kb_substring", a, textType(a[0])); }},
    Builtin{"REPLICATE", 2, 2,
            [](const Args& a) { return textCall("kb_replicate", a, SqlType::text(8000)); }},
    Builtin{"SPACE", 1, 1,
            [](const Args& a) {
              return Bound{"kb_replicate(' ', " + asInt(a[0]) + ")", SqlType::text(8000)};
            }},
    Builtin{"REPLACE", 3, 3,
            [](const Args& a) {
              return Bound{
                  "kb_replace(" + asText(a[0]) + ", " + asText(a[1]) + ", " + asText(a[2]) + ")",
                  SqlType::text(8000)};
            }},
    Builtin{"LEN", 1, 1,
            [](const Args& a) {
              return Bound{"kb_len(" + asText(a[0]) + ")", SqlType::integer(), a[0].nullable};
            }},
    Builtin{"DATALENGTH", 1, 1,
            [](const Args& a) {
              return Bound{"length(" + asText(a[0]) + ")", SqlType::integer(), a[0].nullable};
            }},
    Builtin{"CHARINDEX", 2, 3,
            [](const Args& a) {
              return Bound{"kb_charindex(" + asText(a[0]) + ", " + asText(a[1]) + ", " +
                               (a.size() > 2 ? asInt(a[2]) : "1") + ")",
                           SqlType::integer()};
            }},
    Builtin{"CHAR", 1, 1,
            [](const Args& a) {
              return Bound{"char(" + asInt(a[0]) + ")", SqlType::text(1)};
            }},
    Builtin{"ASCII", 1, 1,
            [](const Args& a) {
              return Bound{"unicode(" + asText(a[0]) + ")", SqlType::integer()};
            }},
    Builtin{"STR", 1, 3,
            [](const Args& a) {
              const std::string length = a.size() > 1 ? asInt(a[1]) : "10";
              const std::string decimals = a.size() > 2 ? asInt(a[2]) : "0";
              return Bound{"kb_str(" + cast(a[0], SqlType::decimal(38, 8)).sql + ", " + length +
                               ", " + decimals + ")",
                           SqlType::text(255)};
            }},
    Builtin{"ABS", 1, 1, absolute},
    Builtin{"ROUND", 2, 3, round},
    Builtin{"FLOOR", 1, 1, [](const Args& a) { return wholePart("kb_floor", a); }},
    Builtin{"CEILING", 1, 1, [](const Args& a) { return wholePart("kb_ceiling", a); }},
    Builtin{"DATEADD", 3, 3,
            [](const Args& a) {
              return Bound{"kb_dateadd(" + a[0].sql + ", " + asInt(a[1]) + ", " + asDate(a[2]) +
                               ", " + std::to_string(dateResult(a[2]).code()) + ")",
                           dateResult(a[2])};
            }},
    Builtin{"DATEDIFF", 3, 3,
            [](const Args& a) {
              return Bound{
                  "kb_datediff(" + a[0].sql + ", " + asDate(a[1]) + ", " + asDate(a[2]) + ")",
                  SqlType::integer()};
            }},
    Builtin{
        "DATEPART", 2, 2,
        [](const Args& a) {
          return Bound{"kb_datepart(" + a[0].sql + ", " + asDate(a[1]) + ")", SqlType::integer()};
        }},
    Builtin{"YEAR", 1, 1,
            [](const Args& a) {
              return Bound{"kb_datepart('YEAR', " + asDate(a[0]) + ")", SqlType::integer()};
            }},
    Builtin{"MONTH", 1, 1,
            [](const Args& a) {
              return Bound{"kb_datepart('MONTH', " + asDate(a[0]) + ")", SqlType::integer()};
            }},
    Builtin{"DAY", 1, 1,
            [](const Args& a) {
              return Bound{"kb_datepart('DAY', " + asDate(a[0]) + ")", SqlType::integer()};
            }},
    Builtin{"OBJECT_ID", 1, 2,
            [](const Args& a) {
              return Bound{"kb_object_id(" + asText(a[0]) + ", " +
                               (a.size() > 1 ? asText(a[1]) : "''") + ")",
                           SqlType::integer()};
            }},
    Builtin{"IDENT_CURRENT", 1, 1,
            [](const Args& a) {
              const SqlType type = SqlType::decimal(38, 0);
              return Bound{"kb_ident_current(" + asText(a[0]) + ")", type};
            }},
    Builtin{"SCOPE_IDENTITY", 0, 0,
            [](const Args&) {
              return Bound{"kb_scope_identity()", SqlType::decimal(38, 0)};
            }},
    Builtin{"DB_NAME", 0, 0,
            [](const Args&) {
              const std::string name = textLiteral(Catalogue::databaseName);
              return Bound{name, {TypeKind::NVarChar, 0, 0, 128}, false};
            }},
};

}  // namespace

bool isAggregate(std::string_view name) {
  static constexpr std::array<std::string_view, 6> names{"COUNT", "COUNT_BIG", "SUM",
                                                         "MIN",   "MAX",       "AVG"};
  return std::find(names.begin(), names.end(), name) != names.end();
}

std::optional<Bound> callBuiltin(std::string_view name, const std::vector<Bound>& args) {
  const auto found = std::find_if(builtins.begin(), builtins.end(),
                                  [&](const Builtin& builtin) { return builtin.name == name; });
  if (found == builtins.end()) return std::nullopt;
  if (args.size() < found->least || args.size() > found->most) {
    throw SqlError(174, "The " + std::string(name) + " function requires " +
                            std::to_string(found->least) + " argument(s).");
  }
  return found->make(args);
}

}  // namespace kebu::engine
