#pragma once

#include <QPointer>
#include <QWidget>
#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "app/dialogs.h"
#include "app/form_id.h"
#include "app/program_state.h"
#include "tools/running_commands.h"

namespace quillet {

class MainWindow;

// What the registry tells a window: that it has been loaded (its procedures may now run) and that
// it is being unloaded (hidden at once and destroyed a moment later; a job it runs must end now).
class FormEvents {
public:
    virtual ~FormEvents() = default;
    virtual void Form_Load() {}
    virtual void Form_Unload() {}
};

// The program's windows, reached by name. A window is created and its Form_Load run the first time
// it is asked for; unloading hides it, tells it so, and destroys it from the event loop, once the
// handler that unloaded it has returned, so nothing ever runs on a destroyed window.
//
// The registry knows the windows only through the factories it is given, so the lower layers that
// use it need not know the windows above them.
class Forms {
public:
    using Factory = std::function<QWidget*(Forms&)>;
    using Factories = std::array<Factory, kFormCount>;

    Forms(ProgramState& state, Dialogs& dialogs, Factories factories);
    ~Forms();
    Forms(const Forms&) = delete;
    Forms& operator=(const Forms&) = delete;

    ProgramState& state() { return state_; }
    Dialogs& dialogs() { return dialogs_; }
    // Every window's command runner comes from here, so that the program can end its children.
    RunningCommands& runningCommands() { return runningCommands_; }

    // The window, loaded first if need be.
    QWidget& load(FormId id);
    // The same, as the class it is: `forms.get<Form1>()`.
    template <class Form>
    Form& get() {
        return dynamic_cast<Form&>(load(Form::kId));
    }
    // The main window while it is loaded; null once it has gone (the program ending).
    MainWindow* mainWindow();

    // Whether the program has the window at all (one still to be built has no factory yet).
    bool canLoad(FormId id) const {
        return static_cast<bool>(factories_[static_cast<std::size_t>(id)]);
    }
    bool isLoaded(FormId id) const { return loaded(id) != nullptr; }
    // The window if it is loaded; null otherwise (nothing is loaded by asking).
    QWidget* loaded(FormId id) const { return slots_[static_cast<std::size_t>(id)].data(); }
    void unload(FormId id);
    // The job and tool windows first, so that their children are asked to stop first.
    void unloadAll();

    // Marks the program as ending; false when it already was.
    bool startEnding() { return !std::exchange(ending_, true); }

private:
    QPointer<QWidget>& slot(FormId id) { return slots_[static_cast<std::size_t>(id)]; }

    ProgramState& state_;
    Dialogs& dialogs_;
    Factories factories_;
    RunningCommands runningCommands_;
    std::array<QPointer<QWidget>, kFormCount> slots_;
    // Every window ever loaded, so that none outlives the registry.
    std::vector<QPointer<QWidget>> created_;
    bool ending_ = false;
};

}  // namespace quillet
