#pragma once

#include <cstdio>

namespace quillet::cli {

// The columns of the terminal `stream` writes to, as the terminal tells them; when it does not
// tell (no terminal, or one that gives no size), the COLUMNS environment variable, else 80. Asked
// at each use, as the window may be resized while a job runs.
int terminalColumns(std::FILE* stream);

}  // namespace quillet::cli
