// A person pastes into a multi-line box whatever is on the clipboard, or nothing at all (a fresh
// session, or after the program that copied has ended). Every multi-line box of every window
// takes each without harm, through the keys a person presses.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>
#include <QUrl>
#include <functional>

#include "app/scripted_dialogs.h"
#include "program_windows.h"

namespace quillet {
namespace {

struct Clipboard {
    const char* what;
    std::function<QMimeData*()> contents;  // null: an empty clipboard
    QString pasted;                        // what the box then holds
};

QMimeData* richText() {
    auto* data = new QMimeData;
    data->setHtml("<p><b>Summer</b> <i>holiday</i></p>");
    return data;
}

QMimeData* fileList() {
    auto* data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(QDir::temp().filePath("holiday clip.mp4")),
                   QUrl::fromLocalFile(QDir::temp().filePath("second.mp4"))});
    return data;
}

QMimeData* plainText() {
    auto* data = new QMimeData;
    data->setText("A day at the sea\nwith friends");
    return data;
}

// Pastes with Ctrl+V and with Shift+Insert into an empty box and returns what each left there.
template <class Box>
std::pair<QString, QString> pasteBothWays(Box* box) {
    std::pair<QString, QString> pasted;
    box->clear();
    box->setFocus();
    QTest::keyClick(box, Qt::Key_V, Qt::ControlModifier);
    pasted.first = box->toPlainText();
    box->clear();
    QTest::keyClick(box, Qt::Key_Insert, Qt::ShiftModifier);
    pasted.second = box->toPlainText();
    return pasted;
}

TEST(Paste, EveryMultiLineBoxTakesAnyClipboard) {
    ScriptedDialogs dialogs;
    ProgramState state;
    applyStartupDefaults(state);
    ProgramForms forms(state, dialogs);
    // The job windows and the probe start their work as they load, and hold labels only.
    const FormId windows[] = {FormId::Form1, FormId::Form2,  FormId::Form3,  FormId::Form4,
                              FormId::Form9, FormId::Form10, FormId::Form11, FormId::Form13};
    const QString files = QDir::toNativeSeparators(QDir::temp().filePath("holiday clip.mp4")) +
                          "\n" + QDir::toNativeSeparators(QDir::temp().filePath("second.mp4"));
    const Clipboard clipboards[] = {
        // An empty desktop clipboard hands over data of no kind at all.
        {"nothing", [] { return new QMimeData; }, ""},
        {"a cleared clipboard", nullptr, ""},
        {"text", plainText, "A day at the sea\nwith friends"},
        {"rich text", richText, "Summer holiday"},
        {"a file list", fileList, files},
    };

    int boxes = 0;
    for (const FormId id : windows) {
        QWidget& window = forms.load(id);
        window.show();
        const auto check = [&](auto* box) {
            ++boxes;
            for (const Clipboard& clipboard : clipboards) {
                if (clipboard.contents) {
                    QGuiApplication::clipboard()->setMimeData(clipboard.contents());
                } else {
                    QGuiApplication::clipboard()->clear();
                }
                const auto [control, shift] = pasteBothWays(box);
                EXPECT_EQ(control, clipboard.pasted)
                    << box->objectName().toStdString() << ", Ctrl+V of " << clipboard.what;
                EXPECT_EQ(shift, clipboard.pasted)
                    << box->objectName().toStdString() << ", Shift+Insert of " << clipboard.what;
            }
        };
        for (QPlainTextEdit* box : window.findChildren<QPlainTextEdit*>()) check(box);
        for (QTextEdit* box : window.findChildren<QTextEdit*>()) check(box);
    }
    EXPECT_GE(boxes, 1);  // the metadata editor's comment, at least
}

}  // namespace
}  // namespace quillet
