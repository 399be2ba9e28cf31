#pragma once

#include <functional>
#include <initializer_list>

class QMainWindow;

namespace quillet {

// One command of a tool window's menu, by the name and caption the program gives it.
struct ToolCommand {
    const char* name;
    const char* caption;
    std::function<void()> run;
};

// Adds a menu heading with its commands to a tool window's menu bar.
void addToolMenu(QMainWindow& window, const char* name, const char* caption,
                 std::initializer_list<ToolCommand> commands);

}  // namespace quillet
