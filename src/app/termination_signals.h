#pragma once

#include <functional>

namespace quillet {

// Turns the termination requests of the system (SIGTERM, SIGINT and SIGHUP where there are such
// signals) into a call of `end` on the window thread, from the event loop, so that the program
// ends in order: its children stopped politely, then firmly, as at Exit. A second request while
// the first is being handled comes to the same call, which is expected to ignore it.
// Call once, on the window thread, after the application object exists.
void endOnTerminationSignals(std::function<void()> end);

}  // namespace quillet
