#pragma once

#include <deque>
#include <ostream>
#include <string>
#include <vector>

#include "app/dialogs.h"

namespace quillet {

// Answers dialogs from a prepared list instead of asking a person, and keeps a record of what
// was shown. Used by the tests, and by the program when QUILLET_SCRIPTED_DIALOGS is set so that
// whole-program tests can drive it.
class ScriptedDialogs : public Dialogs {
public:
    struct Shown {
        std::string kind;  // "message box", "open file" or "open externally"
        std::string text;  // message text, the filter of a file dialog, or what was opened
        std::string title;
        int flags = 0;
        std::string folder;
    };

    // script: answers separated by ",": a button name ("OK", "Cancel", "Retry", "Yes", "No") for
    // the next message box, "file:PATH" for the next file dialog. A box with no answer left gets
    // the answer of closing it; a file dialog with none left is cancelled.
    explicit ScriptedDialogs(const std::string& script = {}, std::ostream* log = nullptr);

    void answerBox(MessageBoxButton button) { boxAnswers_.push_back(button); }
    void answerFile(const std::string& path) { fileAnswers_.push_back(path); }
    const std::vector<Shown>& shown() const { return shown_; }

    MessageBoxButton messageBox(const std::string& text, const std::string& title,
                                int flags) override;
    std::string openFile(const std::string& title, const std::string& folder,
                         const std::string& filter) override;
    // Whether the system has a program for what is opened: yes, unless told otherwise.
    void setOpeningWorks(bool works) { openingWorks_ = works; }
    bool openExternally(const std::string& pathOrAddress) override;

private:
    void record(Shown entry);

    std::deque<MessageBoxButton> boxAnswers_;
    std::deque<std::string> fileAnswers_;
    std::vector<Shown> shown_;
    std::ostream* log_;
    bool openingWorks_ = true;
};

}  // namespace quillet
