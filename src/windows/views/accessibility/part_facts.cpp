#include "windows/views/accessibility/part_facts.h"

#include <oleacc.h>

#include <string_view>

namespace kebu::windows {

namespace {

/// How a control, or a part of one, is told of.
struct Kind {
  std::wstring_view name;  ///< as an Inspection has it
  LONG role;
  Contents contents = Contents::None;
  bool textIsValue = false;  ///< else its name
  LONG itemRole = 0;
};

constexpr Kind kinds[] = {
    {L"Button", ROLE_SYSTEM_PUSHBUTTON},
    {L"CheckBox", ROLE_SYSTEM_CHECKBUTTON},
    {L"ComboBox", ROLE_SYSTEM_COMBOBOX, Contents::Windows, true},
    {L"EditBox", ROLE_SYSTEM_TEXT, Contents::None, true},
    {L"GroupBox", ROLE_SYSTEM_GROUPING},
    {L"Label", ROLE_SYSTEM_STATICTEXT},
    {L"LookupList", ROLE_SYSTEM_TABLE, Contents::Rows},
    {L"NavigatorBar", ROLE_SYSTEM_TOOLBAR, Contents::Windows, false, ROLE_SYSTEM_PUSHBUTTON},
    {L"NoticeList", ROLE_SYSTEM_GROUPING, Contents::Windows, false, ROLE_SYSTEM_PUSHBUTTON},
    {L"Page", ROLE_SYSTEM_PANE},
    {L"ProgressBar", ROLE_SYSTEM_PROGRESSBAR},
    {L"QueryEditor", ROLE_SYSTEM_GROUPING, Contents::None, true},
    {L"QueryGrid", ROLE_SYSTEM_TABLE, Contents::Rows},
    {L"SideBar", ROLE_SYSTEM_LIST, Contents::Items, false, ROLE_SYSTEM_LISTITEM},
    {L"StatusBar", ROLE_SYSTEM_STATUSBAR, Contents::Items, false, ROLE_SYSTEM_STATICTEXT},
    {L"TitleBar", ROLE_SYSTEM_STATICTEXT},
};

const Kind& kindOf(const Inspection& answer) {
  static constexpr Kind other{L"", ROLE_SYSTEM_CLIENT};
  for (const Kind& kind : kinds) {
    if (kind.name == answer.kind) return kind;
  }
  return other;
}

/// What a mark of an Inspection means.
struct Mark {
  std::wstring_view name;
  LONG state;
};

constexpr Mark marks[] = {
    {L"read-only", STATE_SYSTEM_READONLY}, {L"locked", STATE_SYSTEM_READONLY},
    {L"unused", STATE_SYSTEM_UNAVAILABLE}, {L"masked", STATE_SYSTEM_PROTECTED},
    {L"some", STATE_SYSTEM_MIXED},         {L"busy", STATE_SYSTEM_BUSY},
    {L"running", STATE_SYSTEM_BUSY},       {L"look-up", STATE_SYSTEM_HASPOPUP},
    {L"ticked", STATE_SYSTEM_CHECKED},
};

bool isMarked(const Inspection& answer, std::wstring_view mark) {
  const std::wstring padded = L" " + std::wstring(answer.marks) + L" ";
  return padded.find(L" " + std::wstring(mark) + L" ") != std::wstring::npos;
}

}  // namespace

Contents contentsOf(const Inspection& answer) {
  return answer.part == Inspected::Control || answer.part == Inspected::Item
             ? kindOf(answer).contents
             : Contents::None;
}

LONG roleOf(const Inspection& answer) {
  switch (answer.part) {
    case Inspected::Row:
      return ROLE_SYSTEM_ROW;
    case Inspected::Cell:
      return isMarked(answer, L"check") ? ROLE_SYSTEM_CHECKBUTTON : ROLE_SYSTEM_CELL;
    case Inspected::Column:
      return ROLE_SYSTEM_COLUMNHEADER;
    case Inspected::Item:
      return kindOf(answer).itemRole;
    case Inspected::Lookup:
      return ROLE_SYSTEM_PUSHBUTTON;
    default:
      return kindOf(answer).role;
  }
}

namespace {

bool hasValue(const Inspection& answer) {
  return answer.part == Inspected::Cell ||
         (answer.part == Inspected::Control && kindOf(answer).textIsValue);
}

}  // namespace

std::wstring nameOf(const Inspection& answer) {
  if (answer.spoken[0]) return answer.spoken;
  if (answer.caption[0]) return answer.caption;
  return hasValue(answer) ? L"" : answer.text;
}

std::wstring valueOf(const Inspection& answer) {
  const bool isTick = isMarked(answer, L"check");
  return hasValue(answer) && !isTick && !isMarked(answer, L"masked") ? answer.text : L"";
}

const char* actionOf(const Inspection& answer) {
  switch (roleOf(answer)) {
    case ROLE_SYSTEM_PUSHBUTTON:
      return "Premi";
    case ROLE_SYSTEM_CHECKBUTTON:
      return "Segna";
    case ROLE_SYSTEM_COLUMNHEADER:
      return "Ordina";
    case ROLE_SYSTEM_LISTITEM:
    case ROLE_SYSTEM_COMBOBOX:
      return "Apri";
    default:
      return "";
  }
}

LONG ownStateOf(const Inspection& answer) {
  LONG state = 0;
  for (const Mark& mark : marks) {
    if (isMarked(answer, mark.name)) state |= mark.state;
  }
  if (!answer.enabled) state |= STATE_SYSTEM_UNAVAILABLE;
  if (!answer.visible) state |= STATE_SYSTEM_INVISIBLE;
  if (answer.visible && IsRectEmpty(&answer.bounds)) state |= STATE_SYSTEM_OFFSCREEN;
  if (answer.part == Inspected::Control && isMarked(answer, L"chosen")) {
    state |= STATE_SYSTEM_CHECKED;
  }
  return state;
}

}  // namespace kebu::windows
