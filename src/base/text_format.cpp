#include "base/text_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace quillet {

namespace {

// Numbers are shown and rounded from their 15-significant-digit decimal form, so that a value
// typed as 1.005 rounds like the decimal 1.005 and not like its slightly smaller binary neighbour.
constexpr int kSignificantDigits = 15;

// A finite number as value = 0.digits x 10^pointPos, with the sign aside. Trailing zeros are
// always stripped, so zero has no digits (and is never negative).
struct Decimal {
    bool negative = false;
    std::string digits;
    int pointPos = 0;
};

void normalize(Decimal& d) {
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    if (d.digits.empty()) d = Decimal{};
}

// `value` must be finite.
Decimal toDecimal(double value) {
    char buffer[40];
    const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value,
                                         std::chars_format::scientific, kSignificantDigits - 1);
    Decimal d;
    if (ec != std::errc{}) return d;
    // The text reads [-]d.dddddddddddddde[+-]dd.
    const char* p = buffer;
    if (*p == '-') {
        d.negative = true;
        ++p;
    }
    for (; p != end && *p != 'e'; ++p) {
        if (*p != '.') d.digits.push_back(*p);
    }
    int exponent = 0;
    if (p != end) ++p;
    if (p != end && *p == '+') ++p;
    std::from_chars(p, end, exponent);
    d.pointPos = exponent + 1;
    normalize(d);
    return d;
}

// Keeps the first `keep` digits (those down to the wanted decimal) and rounds away the rest.
void roundDigits(Decimal& d, int keep, bool halvesToEven) {
    const int size = static_cast<int>(d.digits.size());
    if (keep >= size) return;
    if (keep < 0) {
        d = Decimal{};
        return;
    }
    const char next = d.digits[keep];
    bool up = next > '5';
    if (next == '5') {
        const bool exactHalf = keep + 1 == size;  // trailing zeros are stripped
        const bool lastIsOdd = keep > 0 && (d.digits[keep - 1] - '0') % 2 == 1;
        up = !halvesToEven || !exactHalf || lastIsOdd;
    }
    d.digits.resize(keep);
    if (up) {
        int i = keep - 1;
        while (i >= 0 && d.digits[i] == '9') d.digits[i--] = '0';
        if (i >= 0) {
            ++d.digits[i];
        } else {
            d.digits.insert(d.digits.begin(), '1');
            ++d.pointPos;
        }
    }
    normalize(d);
}

double toDouble(const Decimal& d) {
    if (d.digits.empty()) return 0.0;
    const std::string text = "0." + d.digits + "e" + std::to_string(d.pointPos);
    double magnitude = 0.0;
    const auto [ptr, ec] = std::from_chars(text.data(), text.data() + text.size(), magnitude);
    if (ec == std::errc::result_out_of_range) magnitude = std::numeric_limits<double>::infinity();
    return d.negative ? -magnitude : magnitude;
}

char digitAt(const Decimal& d, int index) {
    const bool inside = index >= 0 && index < static_cast<int>(d.digits.size());
    return inside ? d.digits[index] : '0';
}

std::string withGroups(const std::string& integerDigits, const std::string& separator) {
    std::string out;
    const std::size_t count = integerDigits.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0 && (count - i) % 3 == 0) out += separator;
        out += integerDigits[i];
    }
    return out;
}

template <typename Int>
std::optional<Int> toWhole(double value) {
    if (!std::isfinite(value)) return std::nullopt;
    const double rounded = roundHalfEven(value, 0);
    if (rounded < static_cast<double>(std::numeric_limits<Int>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Int>::max())) {
        return std::nullopt;
    }
    return static_cast<Int>(rounded);
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// An empty separator never matches, so a careless locale cannot stall the scan.
bool startsWithSeparator(std::string_view text, std::size_t pos, const std::string& separator) {
    return !separator.empty() && text.substr(pos).starts_with(separator);
}

}  // namespace

std::optional<std::string> formatNumber(double value, NumberPattern pattern,
                                        const FormatLocale& locale) {
    if (!std::isfinite(value)) return std::nullopt;
    const int decimals = std::max(0, pattern.decimals);
    const int minIntegerDigits = std::max(0, pattern.minIntegerDigits);

    Decimal d = toDecimal(value);
    roundDigits(d, d.pointPos + decimals, false);

    std::string integerDigits;
    for (int i = 0; i < d.pointPos; ++i) integerDigits += digitAt(d, i);
    const auto minSize = static_cast<std::size_t>(minIntegerDigits);
    if (integerDigits.size() < minSize)
        integerDigits.insert(0, minSize - integerDigits.size(), '0');

    std::string text = d.negative ? "-" : "";
    text += pattern.grouped ? withGroups(integerDigits, locale.groupSeparator) : integerDigits;
    if (decimals > 0) {
        text += locale.decimalSeparator;
        for (int i = 0; i < decimals; ++i) text += digitAt(d, d.pointPos + i);
    }
    return text;
}

std::optional<std::string> numberText(double value, const FormatLocale& locale) {
    if (!std::isfinite(value)) return std::nullopt;
    const Decimal d = toDecimal(value);
    if (d.digits.empty()) return "0";

    std::string text = d.negative ? "-" : "";
    const int size = static_cast<int>(d.digits.size());
    // Plain notation from 0.00001 up to 15 integer digits, as far as 15 digits can be exact.
    if (d.pointPos >= -4 && d.pointPos <= kSignificantDigits) {
        if (d.pointPos <= 0) {
            text += "0";
        } else {
            for (int i = 0; i < d.pointPos; ++i) text += digitAt(d, i);
        }
        if (size > d.pointPos) {
            text += locale.decimalSeparator;
            for (int i = d.pointPos; i < size; ++i) text += digitAt(d, i);  // 0.00x: leading zeros
        }
        return text;
    }
    text += d.digits.front();
    if (size > 1) text += locale.decimalSeparator + d.digits.substr(1);
    const int exponent = d.pointPos - 1;
    text += exponent < 0 ? "E-" : "E+";
    const std::string exponentDigits = std::to_string(std::abs(exponent));
    if (exponentDigits.size() < 2) text += '0';
    return text + exponentDigits;
}

double roundHalfEven(double value, int decimals) {
    if (!std::isfinite(value)) return value;
    Decimal d = toDecimal(value);
    roundDigits(d, d.pointPos + std::max(0, decimals), true);
    return toDouble(d);
}

std::optional<std::int16_t> toInt16(double value) {
    return toWhole<std::int16_t>(value);
}

std::optional<std::int32_t> toInt32(double value) {
    return toWhole<std::int32_t>(value);
}

std::optional<double> parseNumber(std::string_view text, const FormatLocale& locale) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);

    std::string canonical;  // "[-]digits.digits", which from_chars reads without any locale
    std::size_t pos = 0;
    if (pos < text.size() && (text[pos] == '+' || text[pos] == '-')) {
        if (text[pos] == '-') canonical += '-';
        ++pos;
    }
    std::string integerDigits;
    std::string fractionDigits;
    bool inFraction = false;
    while (pos < text.size()) {
        if (isDigit(text[pos])) {
            (inFraction ? fractionDigits : integerDigits) += text[pos];
            ++pos;
        } else if (!inFraction && startsWithSeparator(text, pos, locale.decimalSeparator)) {
            inFraction = true;
            pos += locale.decimalSeparator.size();
        } else if (!inFraction && !integerDigits.empty() &&
                   startsWithSeparator(text, pos, locale.groupSeparator) &&
                   pos + locale.groupSeparator.size() < text.size() &&
                   isDigit(text[pos + locale.groupSeparator.size()])) {
            pos += locale.groupSeparator.size();
        } else {
            return std::nullopt;
        }
    }
    if (integerDigits.empty() && fractionDigits.empty()) return std::nullopt;

    canonical += integerDigits.empty() ? "0" : integerDigits;
    if (!fractionDigits.empty()) canonical += "." + fractionDigits;
    double value = 0.0;
    const auto [ptr, ec] =
        std::from_chars(canonical.data(), canonical.data() + canonical.size(), value);
    if (ec != std::errc{} || ptr != canonical.data() + canonical.size()) return std::nullopt;
    return value;
}

std::optional<std::int16_t> parseInt16(std::string_view text, const FormatLocale& locale) {
    const std::optional<double> value = parseNumber(text, locale);
    if (!value) return std::nullopt;
    return toInt16(*value);
}

std::string_view trimAny(std::string_view text, std::string_view characters) {
    const auto first = text.find_first_not_of(characters);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

std::string_view trimBlanks(std::string_view text) {
    return trimAny(text, " ");
}

std::optional<std::size_t> findIgnoringCase(std::string_view text, std::string_view key) {
    const auto lower = [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    };
    const auto found = std::search(text.begin(), text.end(), key.begin(), key.end(),
                                   [&](char a, char b) { return lower(a) == lower(b); });
    if (found == text.end()) return std::nullopt;
    return static_cast<std::size_t>(found - text.begin());
}

std::string lowerCaseAscii(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return text;
}

}  // namespace quillet
