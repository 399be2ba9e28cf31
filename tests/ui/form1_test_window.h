#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPalette>

#include "app/forms.h"
#include "app/scripted_dialogs.h"
#include "main/form1.h"
#include "program_windows.h"
#include "widgets/label_looks.h"

namespace quillet {

// A main window as start-up leaves it, with English number separators so that the texts are
// fixed.
class Form1Window : public ::testing::Test {
protected:
    Form1Window() {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        applyStartupDefaults(state);
        form.prepareAtStartup();
    }

    static bool lit(const QWidget* widget) {
        const QPalette::ColorRole role =
            qobject_cast<const QLineEdit*>(widget) ? QPalette::Text : QPalette::WindowText;
        return widget->palette().color(role) == kHighlightText;
    }

    static std::string text(const QLabel* label) { return label->text().toStdString(); }
    static std::string text(const QLineEdit* box) { return box->text().toStdString(); }

    ScriptedDialogs dialogs;
    ProgramState state;
    ProgramForms forms{state, dialogs};
    Form1& form = forms.get<Form1>();
    Form1Controls& c = form.controls();
};

}  // namespace quillet
