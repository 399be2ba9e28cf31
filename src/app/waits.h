#pragma once

#include <chrono>

namespace quillet {

// Lets the windows handle what is pending (clicks, repaints, timers) and returns.
void handlePendingEvents();

// Returns after the given time; meanwhile the windows keep painting and the timers keep running,
// and the program itself uses no processor time. Returns at once once the program is ending, so
// that a procedure waiting inside a window does not hold up the end.
void waitHandlingEvents(std::chrono::milliseconds duration);

// Marks the program as ending; from then on waits return at once.
void markProgramEnding();
bool programEnding();

}  // namespace quillet
