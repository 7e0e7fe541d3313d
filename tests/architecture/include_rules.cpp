#include "tests/architecture/include_rules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <initializer_list>
#include <optional>
#include <span>

namespace kebu::architecture {

namespace {

/// Headers beyond those of the language's standard library.
enum class Foreign { None, Windows, Sqlite, AnyPortable, Any };

/// A folder. One that lies inside another is a room of its own; the files that lie directly in the
/// outer one are then that room's entrance.
struct Room {
  std::string_view folder;
  Foreign foreign = Foreign::None;
  bool commonOnly = false;  ///< may know less than its place would allow
};

// In each roof the rooms stand from the bottom up: one may include those that stand before it.

constexpr Room plugIn[] = {
    {"src/common"},
    {"src/ado"},
    {"src/host"},
    {"src/controls"},
    {"src/sql", Foreign::None, true},
    {"src/forms"},
    {"src/forms/changes"},
    {"src/forms/filters"},
    {"src/forms/selection"},
    {"src/forms/anagrafica"},
    {"src/forms/anagrafica/profile/parameters"},
    {"src/forms/anagrafica/pricelists"},
    {"src/forms/anagrafica/categories"},
    {"src/forms/anagrafica/filters"},
    {"src/forms/anagrafica/discounts"},
    {"src/forms/anagrafica/preview"},
    {"src/forms/anagrafica/profile"},
    {"src/forms/anagrafica/summary"},
    {"src/forms/anagrafica/frame"},
    {"src/plugin"},
    {"src/windows/types", Foreign::Windows},
    {"src/windows/support", Foreign::Windows},
    {"src/windows/ado", Foreign::Windows},
    {"src/windows/host", Foreign::Windows},
    {"src/windows/views/layout"},
    {"src/windows/views/window", Foreign::Windows},
    {"src/windows/views/accessibility", Foreign::Windows},
    {"src/windows/views/drawing", Foreign::Windows},
    {"src/windows/views/controls", Foreign::Windows},
    {"src/windows/views/grid", Foreign::Windows},
    {"src/windows/views/form", Foreign::Windows},
    {"src/windows/views", Foreign::Windows},
    {"src/windows/com", Foreign::Windows},
};

constexpr Room workbench[] = {
    {"workbench/engine", Foreign::Sqlite},
    {"workbench/engine/values", Foreign::Sqlite},
    {"workbench/engine/syntax"},
    {"workbench/engine/catalogue"},
    {"workbench/engine/binding"},
    {"workbench/engine/functions"},
    {"workbench/engine/execution"},
    {"workbench/ado"},
    {"workbench/company"},
    {"workbench/host"},
    {"workbench/player"},
    {"workbench/acceptance"},
    {"workbench/cli"},
    {"workbench/windows", Foreign::Windows},
};

constexpr Room tests[] = {
    {"tests", Foreign::AnyPortable},
    {"tests/windows", Foreign::Any},
    {"bench", Foreign::AnyPortable},
    {"bench/windows", Foreign::Any},
};

// A roof may know those that stand before it: the plug-in never knows the workbench.
constexpr std::array<std::span<const Room>, 3> roofs{plugIn, workbench, tests};

/// Where a room stands: its roof, and its floor there.
struct Place {
  std::size_t roof = 0;
  std::size_t floor = 0;
  const Room* room = nullptr;
};

bool isInside(std::string_view path, std::string_view folder) {
  return path.size() > folder.size() && path.starts_with(folder) && path[folder.size()] == '/';
}

/// The innermost room of a path from the project's root.
std::optional<Place> findRoom(std::string_view path) {
  std::optional<Place> found;
  for (std::size_t roof = 0; roof < roofs.size(); ++roof) {
    for (std::size_t floor = 0; floor < roofs[roof].size(); ++floor) {
      const Room& room = roofs[roof][floor];
      if (!isInside(path, room.folder)) continue;
      if (!found || room.folder.size() > found->room->folder.size()) found = {roof, floor, &room};
    }
  }
  return found;
}

/// The room of an included header: src/ is an include folder beside the project's root.
std::optional<Place> findHeader(std::string_view header) {
  const auto found = findRoom(header);
  return found ? found : findRoom("src/" + std::string(header));
}

bool mayKnow(const Place& from, const Place& to) {
  if (from.room == to.room) return true;
  if (from.room->commonOnly) return to.room->folder == "src/common";
  if (from.roof != to.roof) return from.roof > to.roof;
  // The tests' rooms share what they have.
  return roofs[from.roof].data() == tests || from.floor > to.floor;
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

/// The header that includes windows.h for all others.
constexpr std::string_view windowsApi = "src/windows/support/windows_api.h";

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

/// Why a file may not have the include; nothing when it may.
std::optional<std::string> objection(std::string_view path, const Place& place,
                                     const Include& include) {
  const std::string_view header = include.header;
  if (const auto other = findHeader(header)) {
    if (mayKnow(place, *other)) return std::nullopt;
    return join({place.room->folder, " may not know ", other->room->folder, " (", header, ")"});
  }
  const Foreign foreign = place.room->foreign;
  if (header == "windows.h" && path != windowsApi && foreign != Foreign::None) {
    return join({"not through ", windowsApi, ": ", header});
  }
  if (isWindowsHeader(header)) {
    if (foreign == Foreign::Windows || foreign == Foreign::Any) return std::nullopt;
    return join({"a Windows header outside of windows: ", header});
  }
  if (isSqliteHeader(header)) {
    if (foreign != Foreign::None && foreign != Foreign::Windows) return std::nullopt;
    return join({"SQLite outside of its engine: ", header});
  }
  if (include.quoted) return join({"not written from src/ or the project's root: ", header});
  if (isStandardHeader(header)) return std::nullopt;
  if (foreign != Foreign::None && foreign != Foreign::Sqlite) return std::nullopt;
  return join({"not a header of the standard library: ", header});
}

}  // namespace

std::string_view roomOf(std::string_view path) {
  const auto place = findRoom(path);
  return place ? place->room->folder : std::string_view{};
}

std::vector<std::string_view> roomFolders() {
  std::vector<std::string_view> folders;
  for (const auto& roof : roofs) {
    for (const Room& room : roof) folders.push_back(room.folder);
  }
  return folders;
}

std::vector<Violation> violations(std::string_view path, std::string_view text) {
  const auto place = findRoom(path);
  if (!place) return {{0, join({"in no room: ", path})}};
  std::vector<Violation> found;
  for (int number = 1; !text.empty(); ++number) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    if (const auto include = parseInclude(text.substr(0, end))) {
      if (auto reason = objection(path, *place, *include))
        found.push_back({number, std::move(*reason)});
    }
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return found;
}

}  // namespace kebu::architecture
