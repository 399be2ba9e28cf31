#pragma once

#include <QAction>

#include "form1_test_window.h"

namespace quillet {

// A tool window opened as a person opens it, from the main window's Tools menu (`menuItem`).
template <class Form>
class ToolWindowTest : public Form1Window {
protected:
    explicit ToolWindowTest(const char* menuItem) : menuItem_(menuItem) {}

    void SetUp() override {
        dialogs.answerBox(MessageBoxButton::Cancel);  // the tool check finds no ffmpeg here
        form.findChild<QAction*>(menuItem_)->trigger();
        ASSERT_TRUE(forms.isLoaded(Form::kId));
    }
    Form& tool() { return forms.get<Form>(); }
    template <class T>
    T* control(const char* name) {
        return tool().template findChild<T*>(name);
    }
    void trigger(const char* item) { control<QAction>(item)->trigger(); }
    // Whether the command the tool would run now holds `piece`.
    bool commandHas(const std::string& piece) {
        return tool().commandLine().find(piece) != std::string::npos;
    }

private:
    const char* menuItem_;
};

}  // namespace quillet
