#pragma once

#include <QLockFile>
#include <QString>

namespace quillet {

// Tells a second copy of the program, before it builds any window, that a first one runs. The
// lock lives in the user's runtime (or temp) folder and is held until the first copy ends; a lock
// left behind by a copy that crashed is recovered.
class SingleInstance {
public:
    explicit SingleInstance(const QString& name);
    bool isFirst() const { return first_; }

private:
    QLockFile lock_;
    bool first_;
};

}  // namespace quillet
