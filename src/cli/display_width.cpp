#include "cli/display_width.h"

#include <algorithm>
#include <iterator>
#include <vector>

namespace quillet::cli {

namespace {

struct Range {
    char32_t first;
    char32_t last;
};

// Combining marks of the common scripts, the conjoining Hangul vowels and finals, and the
// invisible formatting characters: joiners, direction marks, variation selectors, tags.
constexpr Range kZeroWidth[] = {
    {0x0300, 0x036F}, {0x0483, 0x0489},   {0x0591, 0x05BD}, {0x05BF, 0x05BF}, {0x05C1, 0x05C2},
    {0x05C4, 0x05C5}, {0x05C7, 0x05C7},   {0x0610, 0x061A}, {0x064B, 0x065F}, {0x0670, 0x0670},
    {0x06D6, 0x06DC}, {0x06DF, 0x06E4},   {0x06E7, 0x06E8}, {0x06EA, 0x06ED}, {0x0900, 0x0902},
    {0x093A, 0x093A}, {0x093C, 0x093C},   {0x0941, 0x0948}, {0x094D, 0x094D}, {0x0951, 0x0957},
    {0x0962, 0x0963}, {0x0E31, 0x0E31},   {0x0E34, 0x0E3A}, {0x0E47, 0x0E4E}, {0x1160, 0x11FF},
    {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF},   {0x200B, 0x200F}, {0x202A, 0x202E}, {0x2060, 0x2064},
    {0x20D0, 0x20FF}, {0x302A, 0x302D},   {0x3099, 0x309A}, {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F},
    {0xFEFF, 0xFEFF}, {0xE0000, 0xE0FFF},
};

// East Asian Wide and Fullwidth: Hangul initials and syllables, the CJK radicals, punctuation,
// kana and ideographs, Yi, the fullwidth forms, and the emoji shown wide by default.
constexpr Range kWide[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x23E9, 0x23EC},
    {0x23F0, 0x23F0},   {0x23F3, 0x23F3},   {0x25FD, 0x25FE},   {0x2614, 0x2615},
    {0x2648, 0x2653},   {0x267F, 0x267F},   {0x2693, 0x2693},   {0x26A1, 0x26A1},
    {0x26AA, 0x26AB},   {0x26BD, 0x26BE},   {0x26C4, 0x26C5},   {0x26CE, 0x26CE},
    {0x26D4, 0x26D4},   {0x26EA, 0x26EA},   {0x26F2, 0x26F3},   {0x26F5, 0x26F5},
    {0x26FA, 0x26FA},   {0x26FD, 0x26FD},   {0x2705, 0x2705},   {0x270A, 0x270B},
    {0x2728, 0x2728},   {0x274C, 0x274C},   {0x274E, 0x274E},   {0x2753, 0x2755},
    {0x2757, 0x2757},   {0x2795, 0x2797},   {0x27B0, 0x27B0},   {0x27BF, 0x27BF},
    {0x2B1B, 0x2B1C},   {0x2B50, 0x2B50},   {0x2B55, 0x2B55},   {0x2E80, 0x303E},
    {0x3041, 0x4DBF},   {0x4E00, 0xA4CF},   {0xA960, 0xA97F},   {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF},   {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6},   {0x16FE0, 0x16FE4}, {0x17000, 0x18CFF}, {0x1B000, 0x1B2FF},
    {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF}, {0x1F18E, 0x1F18E}, {0x1F191, 0x1F19A},
    {0x1F200, 0x1F202}, {0x1F210, 0x1F23B}, {0x1F240, 0x1F248}, {0x1F250, 0x1F251},
    {0x1F260, 0x1F265}, {0x1F300, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F7E0, 0x1F7EB},
    {0x1F90C, 0x1F9FF}, {0x1FA70, 0x1FAFF}, {0x20000, 0x2FFFD}, {0x30000, 0x3FFFD},
};

template <std::size_t N>
bool within(const Range (&ranges)[N], char32_t code) {
    const Range* after =
        std::upper_bound(std::begin(ranges), std::end(ranges), code,
                         [](char32_t c, const Range& range) { return c < range.first; });
    return after != std::begin(ranges) && code <= std::prev(after)->last;
}

// One character of a text, or one byte that is not part of valid UTF-8.
struct Unit {
    std::size_t length;
    int columns;
    bool valid;
    char32_t code;
};

Unit unitAt(std::string_view text) {
    const std::size_t length = utf8Length(text);
    if (length == 0) return {1, 1, false, 0};
    // The lead byte's bits after its length marker, then six bits from each following byte.
    constexpr unsigned char kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t code = static_cast<unsigned char>(text[0]) & kLeadBits[length];
    for (std::size_t i = 1; i < length; ++i) {
        code = code << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
    }
    return {length, codePointColumns(code), true, code};
}

std::vector<Unit> unitsOf(std::string_view text) {
    std::vector<Unit> units;
    for (std::size_t at = 0; at < text.size();) {
        units.push_back(unitAt(text.substr(at)));
        at += units.back().length;
    }
    return units;
}

}  // namespace

std::size_t utf8Length(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    std::size_t length = 0;
    // The second byte's range depends on the lead; the bytes after it are always 80..BF.
    unsigned char low = 0x80;
    unsigned char high = 0xBF;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        if (lead == 0xE0) low = 0xA0;   // below: overlong
        if (lead == 0xED) high = 0x9F;  // above: the surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        if (lead == 0xF0) low = 0x90;   // below: overlong
        if (lead == 0xF4) high = 0x8F;  // above: past U+10FFFF
    } else {
        return 0;
    }
    if (text.size() < length || byte(1) < low || byte(1) > high) return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF) return 0;
    }
    return length;
}

int codePointColumns(char32_t code) {
    if (within(kZeroWidth, code)) return 0;
    return within(kWide, code) ? 2 : 1;
}

int displayColumns(std::string_view text) {
    int columns = 0;
    for (const Unit& unit : unitsOf(text)) columns += unit.columns;
    return columns;
}

std::string printableText(std::string_view text) {
    std::string printable;
    for (const Unit& unit : unitsOf(text)) {
        // C0, DEL and C1 controls.
        const bool control = unit.code < 0x20 || (unit.code >= 0x7F && unit.code < 0xA0);
        if (unit.valid && !control) {
            printable.append(text.substr(0, unit.length));
        } else {
            printable += '?';
        }
        text.remove_prefix(unit.length);
    }
    return printable;
}

std::string shortenedToColumns(std::string_view text, int columns) {
    const std::vector<Unit> units = unitsOf(text);
    int whole = 0;
    for (const Unit& unit : units) whole += unit.columns;
    if (whole <= columns) return std::string(text);
    const std::string_view marker = "...";
    const int markerColumns = static_cast<int>(marker.size());
    // Too narrow for a start and an end around the marker: the start alone.
    const bool marked = columns >= markerColumns + 2;
    const int startRoom = marked ? (columns - markerColumns + 1) / 2 : std::max(columns, 0);
    const int endRoom = marked ? columns - markerColumns - startRoom : 0;
    // The start: characters while they fit, with the marks that follow the last one.
    std::size_t startBytes = 0;
    int used = 0;
    for (const Unit& unit : units) {
        if (used + unit.columns > startRoom) break;
        used += unit.columns;
        startBytes += unit.length;
    }
    if (!marked) return std::string(text.substr(0, startBytes));
    // The end: characters from the last back while they fit; a mark counts only with the
    // character it follows, so none is left at the start of the end with nothing to sit on.
    std::size_t endStart = text.size();
    std::size_t at = text.size();
    used = 0;
    for (auto unit = units.rbegin(); unit != units.rend(); ++unit) {
        if (unit->columns > 0 && used + unit->columns > endRoom) break;
        at -= unit->length;
        used += unit->columns;
        if (unit->columns > 0) endStart = at;
    }
    return std::string(text.substr(0, startBytes)).append(marker).append(text.substr(endStart));
}

}  // namespace quillet::cli
