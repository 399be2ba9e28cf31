#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quillet::cli {

// The length of the valid UTF-8 sequence that starts `text`, or 0 when its first byte starts none:
// a stray continuation byte, a sequence cut short, an overlong form, a surrogate or a code point
// above U+10FFFF.
std::size_t utf8Length(std::string_view text);

// The columns a terminal gives one code point: 2 for the wide and fullwidth ones (CJK ideographs,
// kana, Hangul, fullwidth forms, most emoji), 0 for combining marks and the invisible ones, 1 for
// the rest.
int codePointColumns(char32_t code);

// The columns `text` takes on a terminal; each byte that is not part of valid UTF-8 counts as one.
int displayColumns(std::string_view text);

// `text` fit for one line of a terminal: control characters, which would move the cursor, and
// bytes outside valid UTF-8 each become "?".
std::string printableText(std::string_view text);

// `text` in at most `columns`: as it is when it fits, otherwise its start and its end with "..."
// between, never cut inside a UTF-8 sequence nor between a character and its combining marks.
std::string shortenedToColumns(std::string_view text, int columns);

}  // namespace quillet::cli
