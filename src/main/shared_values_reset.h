#pragma once

#include "app/program_state.h"

namespace quillet {

// The program-wide part of resetting the main window (Reset App, and the end of every job and
// tool): the job settings and the tool values go back to fixed texts. Several differ from what the
// labels show after a reset (audio "192k" beside "160", rates without their unit, buffer "1", QP 20
// beside "14"); that is harmless, because the next job start copies the labels again.
void resetSharedValues(ProgramState& state);

}  // namespace quillet
