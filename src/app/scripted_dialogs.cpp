#include "app/scripted_dialogs.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace quillet {

namespace {

// The buttons by the names a script gives them and the log shows.
constexpr std::pair<MessageBoxButton, std::string_view> kButtonNames[] = {
    {MessageBoxButton::Ok, "OK"},
    {MessageBoxButton::Cancel, "Cancel"},
    {MessageBoxButton::Retry, "Retry"},
    {MessageBoxButton::Yes, "Yes"},
    {MessageBoxButton::No, "No"}};

std::string_view buttonName(MessageBoxButton button) {
    for (const auto& [known, name] : kButtonNames) {
        if (known == button) return name;
    }
    return "OK";
}

}  // namespace

ScriptedDialogs::ScriptedDialogs(const std::string& script, std::ostream* log) : log_(log) {
    std::size_t start = 0;
    while (start <= script.size() && !script.empty()) {
        const std::size_t end = std::min(script.find(',', start), script.size());
        const std::string word = script.substr(start, end - start);
        if (word.rfind("file:", 0) == 0) {
            fileAnswers_.push_back(word.substr(5));
        } else {
            for (const auto& [button, name] : kButtonNames) {
                if (name == word) boxAnswers_.push_back(button);
            }
        }
        start = end + 1;
    }
}

MessageBoxButton ScriptedDialogs::messageBox(const std::string& text, const std::string& title,
                                             int flags) {
    record({"message box", text, title.empty() ? kApplicationTitle : title, flags, {}});
    const MessageBoxStyle style = messageBoxStyle(flags);
    MessageBoxButton answer = escapeButton(style);
    if (!boxAnswers_.empty()) {
        answer = boxAnswers_.front();
        boxAnswers_.pop_front();
    }
    // A scripted answer the box does not offer is treated as closing it.
    if (std::find(style.buttons.begin(), style.buttons.end(), answer) == style.buttons.end()) {
        answer = escapeButton(style);
    }
    if (log_) *log_ << "answered: " << buttonName(answer) << std::endl;
    return answer;
}

std::string ScriptedDialogs::openFile(const std::string& title, const std::string& folder,
                                      const std::string& filter) {
    record({"open file", filter, title, 0, folder});
    std::string answer;
    if (!fileAnswers_.empty()) {
        answer = fileAnswers_.front();
        fileAnswers_.pop_front();
    }
    if (log_) *log_ << "answered: " << (answer.empty() ? "(cancel)" : answer) << std::endl;
    return answer;
}

bool ScriptedDialogs::openExternally(const std::string& pathOrAddress) {
    record({"open externally", pathOrAddress, {}, 0, {}});
    return openingWorks_;
}

void ScriptedDialogs::record(Shown entry) {
    if (log_) {
        *log_ << entry.kind << " [" << entry.flags << "] \"" << entry.title << "\": \""
              << entry.text << "\"" << std::endl;
    }
    shown_.push_back(std::move(entry));
}

}  // namespace quillet
