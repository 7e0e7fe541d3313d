#pragma once

namespace kebu::workbench {

/// Whether the program is alone in its console. So it is after a double click, but not when it was
/// started from a command prompt.
bool startedByDoubleClick();

/// Closes the console and opens the window on a new demo company in memory. Returns the program's
/// exit code; an error is shown in a message box.
int showDemo();

}  // namespace kebu::workbench
