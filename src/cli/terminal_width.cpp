#include "cli/terminal_width.h"

#include <cstdlib>

#ifdef _WIN32
#include <io.h>

#include "tools/windows_api.h"
#else
#include <sys/ioctl.h>
#endif

#include "tools/exact_number.h"

namespace quillet::cli {

namespace {

constexpr int kUsualColumns = 80;

// The width of the window showing `stream`, or 0 when there is none to ask.
int toldColumns(std::FILE* stream) {
#ifdef _WIN32
    // The window's visible width: a console buffer wider than its window shows no more.
    CONSOLE_SCREEN_BUFFER_INFO info;
    const auto console = reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
    if (!::GetConsoleScreenBufferInfo(console, &info)) return 0;
    return info.srWindow.Right - info.srWindow.Left + 1;
#else
    winsize size{};
    if (::ioctl(::fileno(stream), TIOCGWINSZ, &size) != 0) return 0;
    return size.ws_col;
#endif
}

}  // namespace

int terminalColumns(std::FILE* stream) {
    if (const int told = toldColumns(stream); told > 0) return told;
    const char* variable = std::getenv("COLUMNS");
    const auto columns = variable ? exactNumber<int>(variable) : std::nullopt;
    return columns && *columns > 0 ? *columns : kUsualColumns;
}

}  // namespace quillet::cli
