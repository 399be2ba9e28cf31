#pragma once

#include <QPointer>
#include <QWidget>
#include <array>
#include <vector>

#include "app/dialogs.h"
#include "app/program_state.h"
#include "tools/running_commands.h"

namespace quillet {

class Form1;
class Form3;
class Form4;
class Form5;
class Form6;
class Form7;
class Form8;

enum class FormId {
    Form1,
    Form2,
    Form3,
    Form4,
    Form5,
    Form6,
    Form7,
    Form8,
    Form9,
    Form10,
    Form11,
    Form13,
    Form14,
    Count
};

// The program's windows, reached by name. A window is created and its Form_Load run the first time
// it is asked for, and destroyed when unloaded. A window whose procedure is still running (see
// Busy) is only hidden by an unload and destroyed once that procedure has returned, so nothing
// ever runs on a destroyed window.
class Forms {
public:
    Forms(ProgramState& state, Dialogs& dialogs);
    ~Forms();
    Forms(const Forms&) = delete;
    Forms& operator=(const Forms&) = delete;

    ProgramState& state() { return state_; }
    Dialogs& dialogs() { return dialogs_; }
    // Every window's command runner comes from here, so that the program can end its children.
    RunningCommands& runningCommands() { return runningCommands_; }

    Form1& form1();
    Form3& form3();
    Form4& form4();
    Form5& form5();
    Form6& form6();
    Form7& form7();
    Form8& form8();

    bool isLoaded(FormId id) const;
    void unload(FormId id);
    void unloadAll();

    // Marks a procedure of a window as running for as long as it lives.
    class Busy {
    public:
        explicit Busy(QWidget* form);
        ~Busy();
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;

    private:
        QPointer<QWidget> form_;
    };

private:
    template <class Form>
    Form& load(FormId id);
    QPointer<QWidget>& slot(FormId id) { return slots_[static_cast<std::size_t>(id)]; }

    ProgramState& state_;
    Dialogs& dialogs_;
    RunningCommands runningCommands_;
    std::array<QPointer<QWidget>, static_cast<std::size_t>(FormId::Count)> slots_;
    // Every window ever loaded, so that none outlives the registry.
    std::vector<QPointer<QWidget>> created_;
};

}  // namespace quillet
