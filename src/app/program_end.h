#pragma once

namespace quillet {

class Forms;

// Ends the program: every window goes at once, a tool still running is ended, and the program
// quits once nothing is left running.
void endProgram(Forms& forms);

}  // namespace quillet
