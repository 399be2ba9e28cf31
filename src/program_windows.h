#pragma once

#include "app/forms.h"

namespace quillet {

// Every window of the program, by name: what the registry makes when a window is first loaded.
Forms::Factories programWindows();

// The registry of the program's own windows.
class ProgramForms : public Forms {
public:
    ProgramForms(ProgramState& state, Dialogs& dialogs) : Forms(state, dialogs, programWindows()) {}
};

}  // namespace quillet
