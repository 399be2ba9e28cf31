#pragma once

#include <string>
#include <vector>

namespace quillet {

// Turns a "Description|pattern|Description|pattern" filter into one entry per pair in the form
// "Description (pattern)". A description that already ends with its pattern in brackets is kept
// as it is; blanks around a pattern are dropped, since they never belong to a file name.
std::vector<std::string> fileDialogFilters(const std::string& filter);

}  // namespace quillet
