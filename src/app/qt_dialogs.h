#pragma once

#include "app/dialogs.h"

class QWidget;

namespace quillet {

// The dialogs a person sees: Qt message boxes and the platform's open-file dialog.
class QtDialogs : public Dialogs {
public:
    MessageBoxButton messageBox(const std::string& text, const std::string& title,
                                int flags) override;
    std::string openFile(const std::string& title, const std::string& folder,
                         const std::string& filter) override;
    bool openExternally(const std::string& pathOrAddress) override;
};

}  // namespace quillet
