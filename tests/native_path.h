#pragma once

#include <algorithm>
#include <string>

#include "base/platform_names.h"

namespace quillet {

// A path written with "/" in the system's own notation, as its file dialog hands paths over.
inline std::string native(std::string path) {
    std::replace(path.begin(), path.end(), '/', kThisPlatform.separator);
    return path;
}

}  // namespace quillet
