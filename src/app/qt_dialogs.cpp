#include "app/qt_dialogs.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QGridLayout>
#include <QMessageBox>
#include <QSpacerItem>
#include <QStringList>
#include <QUrl>

#include "app/file_filter.h"
#include "app/title_bar.h"

namespace quillet {

namespace {

QMessageBox::StandardButton standardButton(MessageBoxButton button) {
    switch (button) {
        case MessageBoxButton::Ok:
            return QMessageBox::Ok;
        case MessageBoxButton::Cancel:
            return QMessageBox::Cancel;
        case MessageBoxButton::Retry:
            return QMessageBox::Retry;
        case MessageBoxButton::Yes:
            return QMessageBox::Yes;
        case MessageBoxButton::No:
            return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

// A message box is as wide as its text, and a short text leaves too little room for the title
// beside the title bar's icon and buttons, where the window manager cuts it short.
void keepTitleWhole(QMessageBox& box) {
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (!grid) return;
    grid->addItem(new QSpacerItem(titleBarWidth(box), 0), grid->rowCount(), 0, 1,
                  grid->columnCount());
}

}  // namespace

MessageBoxButton QtDialogs::messageBox(const std::string& text, const std::string& title,
                                       int flags) {
    const MessageBoxStyle style = messageBoxStyle(flags);
    QMessageBox box(style.exclamation ? QMessageBox::Warning : QMessageBox::NoIcon,
                    QString::fromStdString(title.empty() ? kApplicationTitle : title),
                    QString::fromStdString(text).replace("\r\n", "\n"), QMessageBox::NoButton,
                    QApplication::activeWindow());
    for (MessageBoxButton button : style.buttons) box.addButton(standardButton(button));
    box.setDefaultButton(standardButton(style.buttons.front()));
    box.setEscapeButton(standardButton(escapeButton(style)));
    if (style.systemModal) box.setWindowFlag(Qt::WindowStaysOnTopHint);
    keepTitleWhole(box);
    const int pressed = box.exec();
    for (MessageBoxButton button : style.buttons) {
        if (pressed == standardButton(button)) return button;
    }
    return escapeButton(style);
}

std::string QtDialogs::openFile(const std::string& title, const std::string& folder,
                                const std::string& filter) {
    QStringList filters;
    for (const std::string& entry : fileDialogFilters(filter)) {
        filters << QString::fromStdString(entry);
    }
    const QString chosen =
        QFileDialog::getOpenFileName(QApplication::activeWindow(), QString::fromStdString(title),
                                     QString::fromStdString(folder), filters.join(";;"));
    // The rest of the program builds paths with the platform's own separator.
    return QDir::toNativeSeparators(chosen).toStdString();
}

bool QtDialogs::openExternally(const std::string& pathOrAddress) {
    const QString target = QString::fromStdString(pathOrAddress);
    const bool isAddress = target.startsWith("http://") || target.startsWith("https://");
    return QDesktopServices::openUrl(isAddress ? QUrl(target) : QUrl::fromLocalFile(target));
}

}  // namespace quillet
