#pragma once

#include <charconv>
#include <optional>
#include <string_view>

namespace quillet {

// `text` as a number in the notation the tools, the kernel and command lines write (never
// localised): empty unless the whole text is that one number.
template <class Number>
std::optional<Number> exactNumber(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return value;
}

}  // namespace quillet
