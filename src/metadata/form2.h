#pragma once

#include <QMainWindow>
#include <array>
#include <string>

#include "app/forms.h"
#include "app/settings_store.h"
#include "jobs/job_machine.h"
#include "metadata/metadata_command.h"

class QLabel;
class QWidget;

namespace quillet {

// The metadata editor: up to 23 container tags typed for one video, written by ffmpeg into a copy
// of it whose streams are copied as they are. The entries can be kept as defaults between runs.
class Form2 : public QMainWindow, public FormEvents {
    Q_OBJECT

public:
    static constexpr FormId kId = FormId::Form2;

    explicit Form2(Forms& forms);

    void Form_Unload() override;

    // The command that a write runs, with the tags as the fields stand.
    std::string commandLine() const;
    // The fields' texts, in order.
    MetadataFields fields() const;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    void buildMenus();
    void setField(std::size_t index, const std::string& text);
    void clearFields();

    void mnu_SelVid_Click();
    void GenerateFileName(const std::string& path);
    void mnu_WriteMetaData_Click();
    void WriteMetaData();
    // After the write: the report, then the fields cleared; the source stays chosen.
    void finishWrite();
    void mnu_SaveDefault_Click();
    void askToClearSavedFields();
    void mnu_WriteDefaults_Click();
    void mnu_EnterDate_Click();
    void mnu_ResetAll_Click();

    Forms& forms_;
    std::string source_;
    std::string output_;
    std::string arguments_;

    std::array<QWidget*, kMetadataKeyCount> Text1{};  // the fields; the comment is a taller box
    QLabel* Label2;                                   // the chosen video
    QLabel* Label5;                                   // "No Video Selected"
    JobMachine machine_;
};

}  // namespace quillet
