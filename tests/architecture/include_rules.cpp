#include "tests/architecture/include_rules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <initializer_list>
#include <optional>

namespace kebu::architecture {

namespace {

using Names = std::vector<std::string_view>;

struct Room {
  std::string_view folder;
  Names mayKnow;                ///< besides itself and what is inside it
  bool foreignHeaders = false;  ///< headers beyond those of the language's standard library
  bool windowsHeaders = false;
  bool sqliteHeader = false;
};

/// A folder inside another one stands before it.
const std::vector<Room>& rooms() {
  static const Names aboveForms{"common", "ado", "host", "controls", "sql"};
  static const Names abovePlugin{"common", "ado", "host", "controls", "sql", "forms"};
  static const Names aboveWindows{"common", "ado", "host", "controls", "sql", "forms", "plugin"};
  static const Names aboveWorkbench{"common", "ado",   "host",   "controls",
                                    "sql",    "forms", "plugin", "windows"};
  static const Names aboveWorkbenchWindows{
      "common", "ado",    "host",    "controls",  "sql",
      "forms",  "plugin", "windows", "workbench", "workbench/engine"};
  static const Names everything{
      "common",       "ado",     "host",      "controls",         "sql",   "forms",
      "plugin",       "windows", "workbench", "workbench/engine", "tests", "workbench/windows",
      "tests/windows"};
  static const std::vector<Room> all{
      {"common", {}},
      {"ado", {"common"}},
      {"host", {"common", "ado"}},
      {"controls", {"common", "ado", "host"}},
      {"sql", {"common"}},
      {"forms", aboveForms},
      {"plugin", abovePlugin},
      {"windows", aboveWindows, true, true, false},
      {"workbench/engine", {"common", "ado"}, false, false, true},
      {"workbench/windows", aboveWorkbenchWindows, true, true, false},
      {"workbench", aboveWorkbench},
      {"tests/windows", everything, true, true, false},
      {"tests", everything, true, false, false},
      {"bench", everything, true, false, true},
  };
  return all;
}

bool isInside(std::string_view path, std::string_view folder) {
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

const Room* findRoom(std::string_view path) {
  const auto at = std::find_if(rooms().begin(), rooms().end(),
                               [&](const Room& room) { return isInside(path, room.folder); });
  return at == rooms().end() ? nullptr : &*at;
}

struct Include {
  std::string_view header;
  bool quoted = false;
};

/// The include directive of a line, if it is one.
std::optional<Include> parseInclude(std::string_view line) {
  const auto skipBlanks = [&] {
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
  };
  for (const std::string_view word : {"#", "include"}) {
    skipBlanks();
    if (!line.starts_with(word)) return std::nullopt;
    line.remove_prefix(word.size());
  }
  skipBlanks();
  if (line.empty() || (line.front() != '"' && line.front() != '<')) return std::nullopt;
  const bool quoted = line.front() == '"';
  line.remove_prefix(1);
  return Include{line.substr(0, line.find(quoted ? '"' : '>')), quoted};
}

bool isWindowsHeader(std::string_view header) {
  static constexpr std::array names{
      "windows.h", "windowsx.h", "winuser.h",    "winbase.h", "windef.h",  "winnt.h",
      "wtypes.h",  "objbase.h",  "combaseapi.h", "oaidl.h",   "ocidl.h",   "olectl.h",
      "ole2.h",    "oleauto.h",  "unknwn.h",     "comdef.h",  "comutil.h", "commctrl.h",
      "commdlg.h", "shellapi.h", "shlwapi.h",    "shlobj.h",  "uxtheme.h", "vssym32.h"};
  std::string lower(header);
  for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return std::find(names.begin(), names.end(), lower) != names.end();
}

bool isSqliteHeader(std::string_view header) {
  return header.starts_with("sqlite3");
}

/// Those of the C++ standard library have no dot in their names.
bool isStandardHeader(std::string_view header) {
  return header.find('.') == std::string_view::npos;
}

std::string join(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) text += piece;
  return text;
}

/// Why the room may not have the include; nothing when it may.
std::optional<std::string> objection(const Room& room, const Include& include) {
  const std::string_view header = include.header;
  if (const Room* const other = findRoom(header)) {
    const bool known =
        other == &room || isInside(other->folder, room.folder) ||
        std::find(room.mayKnow.begin(), room.mayKnow.end(), other->folder) != room.mayKnow.end();
    if (known) return std::nullopt;
    return join({room.folder, " may not know ", other->folder, " (", header, ")"});
  }
  if (isWindowsHeader(header)) {
    if (room.windowsHeaders) return std::nullopt;
    return join({"a Windows header outside of windows: ", header});
  }
  if (isSqliteHeader(header)) {
    if (room.sqliteHeader) return std::nullopt;
    return join({"SQLite outside of its engine: ", header});
  }
  if (include.quoted) return join({"not written from the project's root: ", header});
  if (isStandardHeader(header) || room.foreignHeaders) return std::nullopt;
  return join({"not a header of the standard library: ", header});
}

}  // namespace

std::string_view roomOf(std::string_view path) {
  const Room* const room = findRoom(path);
  return room ? room->folder : std::string_view{};
}

std::vector<Violation> violations(std::string_view path, std::string_view text) {
  const Room* const room = findRoom(path);
  if (!room) return {{0, join({"in no room: ", path})}};
  std::vector<Violation> found;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (const auto include = parseInclude(text.substr(0, end))) {
      if (auto reason = objection(*room, *include)) found.push_back({number, std::move(*reason)});
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return found;
}

}  // namespace kebu::architecture
