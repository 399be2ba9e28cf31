#pragma once

#include <string>

#include "app/message_box.h"

namespace quillet {

// The program's title where a box has none of its own.
inline constexpr const char* kApplicationTitle = "Quillet 2.0";

// Every message box and file dialog of the program goes through this, and so does every hand-over
// of a file or web page to the program the system associates with it, so that tests can answer
// and watch them without a person.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    // flags: the sum of MessageBoxFlags values; an empty title stands for kApplicationTitle.
    virtual MessageBoxButton messageBox(const std::string& text, const std::string& title,
                                        int flags) = 0;

    // filter: "Name (*.a)|*.a|Other (*.b)|*.b" pairs. Returns the chosen path, or "" on cancel.
    virtual std::string openFile(const std::string& title, const std::string& folder,
                                 const std::string& filter) = 0;

    // Opens a file (a full path) or a web address ("https://...") with the program the system
    // associates with it, without waiting for that program. False when the system has no way to
    // open it (no program set up for its kind).
    virtual bool openExternally(const std::string& pathOrAddress) = 0;
};

}  // namespace quillet
