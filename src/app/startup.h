#pragma once

#include <memory>

#include "app/dialogs.h"

namespace quillet {

class Forms;

// The dialogs of this run: the real ones, or scripted answers when QUILLET_SCRIPTED_DIALOGS holds
// a script (each box shown is then printed on standard output).
std::unique_ptr<Dialogs> programDialogs();

// The start-up of a first copy: the desktop folder, the defaults, the splash window and, through
// it, the main window.
void runStartup(Forms& forms);

}  // namespace quillet
