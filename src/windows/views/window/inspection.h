#pragma once

#include <cstdint>

#include "windows/support/windows_api.h"

namespace kebu::windows {

/// What can be asked about.
enum class Inspected : std::uint32_t {
  Control,  ///< the control itself
  Row,      ///< a row of a grid or list; `row` from 1, or 0 for its heads
  Cell,     ///< `row`, and the column by `key` (its field) or `index`
  Column,   ///< a column's head, by `key` (its field) or `index`
  TickAll,  ///< the box in a column's head that sets all of its cells
  Item,     ///< a bar's button, a side bar's link, a combo's row, a status panel, a
            ///< query editor's field: by `key` (button key, view number, code,
            ///< caption) or `index`
  Lookup,   ///< the button that opens the look-up of an edit box, or a navigator bar's list of
            ///< changes
  Choice,   ///< an entry of the list of values that the current row's cell of a column
            ///< offers: the column, and `row` from 1; its code is the name
};

/// A question of a test to a window of the plug-in, and the answer: where a
/// control is, and what its appearance alone does not show. It is sent to a form or look-up window
/// with SendMessage(inspectMessage(), 0, address); the result is 1 when the part exists, else 0.
struct Inspection {
  std::uint32_t size = sizeof(Inspection);
  Inspected part = Inspected::Control;
  wchar_t control[64] = {};  ///< its name, case aside; "" for the window itself
  wchar_t key[128] = {};     ///< "" to go by `index`
  std::int32_t row = 0;      ///< from 1
  std::int32_t index = 0;    ///< from 0; in the answer about a grid or side bar, where the user is

  // The answer.
  HWND window = nullptr;  ///< of the control; null for one that is not drawn
  RECT bounds = {};       ///< of the part, in `window`'s client area; empty when out of sight
  BOOL enabled = FALSE;
  BOOL visible = FALSE;
  std::int32_t count = 0;    ///< a grid's or list's rows; a bar's items; a combo's rows;
                             ///< the list of values in the current row of a column
  std::int32_t columns = 0;  ///< a grid's or list's columns
  std::int32_t current =
      0;                    ///< a grid's current row, from 1; a chosen item's index + 1; 0 for none
  wchar_t kind[32] = {};    ///< the model's class: "EditBox", "QueryGrid", …
  wchar_t name[128] = {};   ///< of the control; of a part its key: field, button key, view, code;
                            ///< of a row the field of its state
  wchar_t text[2048] = {};  ///< as people read it
  wchar_t caption[128] = {};  ///< of a field
  wchar_t hint[128] = {};     ///< shown in an empty edit box
  wchar_t spoken[128] = {};   ///< its name for assistive technology, where the texts above are not
  wchar_t description[256] =
      {};                     ///< what else one should know: a code's description, a row's state
  wchar_t shortcut[64] = {};  ///< the key that does the same
  /// Blank-separated: "read-only required masked look-up locked chosen some changed unknown unused
  /// check ticked running animated no-record warning", a row's state.
  wchar_t marks[128] = {};
};

/// The number of the message, the same for every process.
inline UINT inspectMessage() {
  static const UINT number = RegisterWindowMessageW(L"kebu.inspect");
  return number;
}

}  // namespace kebu::windows
