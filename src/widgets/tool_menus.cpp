#include "widgets/tool_menus.h"

#include <QAction>
#include <QMainWindow>
#include <QMenuBar>

namespace quillet {

void addToolMenu(QMainWindow& window, const char* name, const char* caption,
                 std::initializer_list<ToolCommand> commands) {
    QMenu* heading = window.menuBar()->addMenu(caption);
    heading->setObjectName(name);
    for (const ToolCommand& command : commands) {
        QAction* action = heading->addAction(command.caption);
        action->setObjectName(command.name);
        QObject::connect(action, &QAction::triggered, &window, command.run);
    }
}

}  // namespace quillet
