#pragma once

namespace quillet {

class Forms;

// Ends the program: every window goes at once (the job and tool windows first), a tool still
// running is asked to stop and is ended firmly if it does not, and the program quits once no
// command runs any more. A second call while the end is under way does nothing.
void endProgram(Forms& forms);

}  // namespace quillet
