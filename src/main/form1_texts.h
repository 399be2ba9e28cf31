#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <string>

#include "app/qt_format_locale.h"

namespace quillet {

// How the main window's code reads and writes its boxes and captions.

// Numbers are shown with the separators of the user's language.
inline FormatLocale shownLocale() {
    return formatLocale(QLocale());
}

inline std::string textOf(const QLabel* label) {
    return label->text().toStdString();
}
inline std::string textOf(const QLineEdit* box) {
    return box->text().toStdString();
}

inline void showText(QLabel* label, const std::string& text) {
    label->setText(QString::fromStdString(text));
}

}  // namespace quillet
