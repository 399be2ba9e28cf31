#include "metadata/form2.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTimer>

#include "app/program_folder.h"
#include "app/qt_format_locale.h"
#include "base/platform_names.h"
#include "jobs/output_name.h"
#include "widgets/source_video.h"

namespace quillet {

namespace {

using enum JobAction;

// The write: ffmpeg runs, a second passes, then the report and the cleared fields.
constexpr std::array<JobStep, 3> kWriteSteps = {{{RunCommand}, {Wait, 1000}, {WindowEnding}}};

std::string textOf(const QWidget* field) {
    if (const auto* line = qobject_cast<const QLineEdit*>(field)) return line->text().toStdString();
    return static_cast<const QPlainTextEdit*>(field)->toPlainText().toStdString();
}

}  // namespace

Form2::Form2(Forms& forms)
    : QMainWindow(nullptr),
      forms_(forms),
      machine_(forms, *this,
               {.window = FormId::Form2,
                .steps = kWriteSteps,
                .commandLine = [this] { return commandLine(); },
                .followsTime = false,
                .output = [this] { return output_; },
                .ending = [this] { finishWrite(); },
                .readsOutput = false,
                .worksInScratchFolder = true}) {
    setObjectName("Form2");
    setWindowTitle("Video META Data");
    buildControls();
    buildMenus();
}

void Form2::Form_Unload() {
    machine_.abandon();
}

void Form2::closeEvent(QCloseEvent* event) {
    event->ignore();
    forms_.unload(kId);
}

std::string Form2::commandLine() const {
    return metadataCommandLine(programFolder(), source_, arguments_, output_, kThisPlatform);
}

MetadataFields Form2::fields() const {
    MetadataFields texts;
    for (std::size_t index = 0; index < kMetadataKeyCount; ++index) {
        texts[index] = textOf(Text1[index]);
    }
    return texts;
}

void Form2::setField(std::size_t index, const std::string& text) {
    const QString shown = QString::fromStdString(text);
    if (auto* line = qobject_cast<QLineEdit*>(Text1[index])) {
        line->setText(shown);
    } else {
        static_cast<QPlainTextEdit*>(Text1[index])->setPlainText(shown);
    }
}

void Form2::clearFields() {
    for (std::size_t index = 0; index < kMetadataKeyCount; ++index) setField(index, "");
}

void Form2::mnu_SelVid_Click() {
    const std::string chosen = forms_.dialogs().openFile(
        "Select Video", forms_.state().DesktopFolder, kSourceDialogFilter);
    if (chosen.empty()) return;
    source_.clear();
    Label5->hide();
    source_ = trimmedSourcePath(chosen);
    GenerateFileName(source_);
    Label2->setText(QString::fromStdString(source_));
}

void Form2::GenerateFileName(const std::string& path) {
    // A path without a folder leaves the output as it was.
    if (const auto output = compressedFileName(path, kThisPlatform.separator)) output_ = *output;
}

void Form2::mnu_WriteMetaData_Click() {
    // One write at a time: the command of a write under way is already fixed.
    if (source_.empty() || machine_.busy()) return;
    arguments_ = metadataArguments(fields());
    const MessageBoxButton answer =
        forms_.dialogs().messageBox("Do you want to write this into the Video?", "Confirm",
                                    MessageBoxFlags::Exclamation + MessageBoxFlags::YesNo);
    if (answer == MessageBoxButton::Yes) WriteMetaData();
}

void Form2::WriteMetaData() {
    machine_.start();
}

void Form2::finishWrite() {
    // Whatever ffmpeg made of it: its output is not looked at.
    forms_.dialogs().messageBox("Meta Data successfully written into Video", "META Data",
                                MessageBoxFlags::Exclamation);
    clearFields();
    Label2->clear();
    Label5->show();
}

void Form2::mnu_SaveDefault_Click() {
    MetadataFields entries = fields();
    for (std::string& entry : entries) entry = std::string(trimBlanks(entry));
    saveMetadataDefaults(entries);
    QTimer::singleShot(1000, this, &Form2::askToClearSavedFields);
}

void Form2::askToClearSavedFields() {
    const MessageBoxButton answer = forms_.dialogs().messageBox(
        "Successfully saved all entries.\r\nClear the fields now?", "Saved META Data",
        MessageBoxFlags::Exclamation + MessageBoxFlags::YesNo);
    if (answer == MessageBoxButton::Yes) clearFields();
}

void Form2::mnu_WriteDefaults_Click() {
    const MetadataFields entries = readMetadataDefaults();
    for (std::size_t index = 0; index < kMetadataKeyCount; ++index) {
        setField(index, entries[index]);
    }
}

void Form2::mnu_EnterDate_Click() {
    const QDateTime now = QDateTime::currentDateTime();
    setField(kDateField,
             todaysTimeAndDate(timeOfDay(now.time()), calendarDate(now.date()), formatLocale()));
}

void Form2::mnu_ResetAll_Click() {
    source_.clear();
    Label2->clear();
    Label5->show();
    clearFields();
}

}  // namespace quillet
