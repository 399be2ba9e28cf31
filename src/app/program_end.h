#pragma once

namespace quillet {

class Forms;

// Ends the program: every window goes at once, waits end, a tool still running is asked to stop
// and is ended firmly if it does not, and the program quits once no command runs any more.
void endProgram(Forms& forms);

}  // namespace quillet
