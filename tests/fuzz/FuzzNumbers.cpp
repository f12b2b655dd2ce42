// The number rules on arbitrary text against plain references: reading (Val, ValUnbounded),
// the strict test (IsNumeric), the 16-bit conversions and the format pictures. Byte 0 picks the
// picture; the rest is the text, and its first 8 bytes are also taken as a raw double.
#include "FuzzCheck.h"
#include "base/Numbers.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>

namespace {
// Blanks removed, the characters of a number taken up to the first other one, an exponent
// letter D read as E, then the C library's conversion.
double referenceValue(const std::string& text)
{
    std::string number;
    for (char c : text) {
        if (c == ' ' || c == '\t' || c == '\n')
            continue;
        if (c == 0 || !std::strchr("0123456789.+-eEdD", c))
            break;
        number += (c == 'd' || c == 'D') ? 'e' : c;
    }
    return std::strtod(number.c_str(), nullptr);
}

// Spaces trimmed; a sign, digits with at most one point; then E, a sign and digits.
bool referenceIsNumeric(std::string s)
{
    auto digits = [](std::string part, bool point) {
        if (!part.empty() && (part[0] == '+' || part[0] == '-'))
            part.erase(0, 1);
        if (point && part.find('.') != std::string::npos)
            part.erase(part.find('.'), 1);
        return !part.empty() && part.find_first_not_of("0123456789") == std::string::npos;
    };
    s.erase(0, s.find_first_not_of(' '));
    s.erase(s.find_last_not_of(' ') + 1);
    const size_t e = s.find_first_of("eE");
    return digits(s.substr(0, e), true)
        && (e == std::string::npos || digits(s.substr(e + 1), false));
}

std::optional<qint16> referenceInt16(double value)
{
    const double rounded = std::nearbyint(value); // ties to even
    if (!std::isfinite(rounded) || rounded < -32768 || rounded > 32767)
        return std::nullopt;
    return qint16(rounded);
}

// printf's rounding of the exact value, then the picture: '0' digits always shown, '#' digits
// only when not trailing zeros, no "0" before the point for a picture without one.
QString referenceFormat(double value, const std::string& picture, int decimals)
{
    const size_t point = std::min(picture.find('.'), picture.size());
    const auto mandatory = size_t(std::count(picture.begin() + long(point), picture.end(), '0'));
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, std::fabs(value));
    std::string text = buffer;
    while (decimals > 0 && text.size() - text.find('.') - 1 > mandatory && text.back() == '0')
        text.pop_back();
    if (text.back() == '.')
        text.pop_back();
    if (text.rfind("0.", 0) == 0 && picture.find('0') >= point)
        text.erase(0, 1);
    if (value < 0 && text.find_first_of("123456789") != std::string::npos)
        text = "-" + text;
    return QString::fromStdString(text);
}

void checkValue(double value, const std::string& picture)
{
    FUZZ_CHECK(Numbers::ToInt16(value) == referenceInt16(value));
    const QString formatted = Numbers::Format(value, QString::fromStdString(picture));
    // In a long double the scaled value is exact; under 2^30 the double product is within 1e-7
    // of it. Where the product lies near a half and is not exact, which way it rounds is
    // representation error: only exact halves are compared there.
    const size_t point = picture.find('.');
    const int decimals = point == std::string::npos ? 0 : int(picture.size() - point - 1);
    const long double exact = (long double)value * std::pow(10.0L, decimals);
    if (!std::isfinite(value) || std::fabs(exact) >= 0x1p30L)
        return;
    const long double half = std::fabs(exact - std::floor(exact) - 0.5L);
    if (half < 1e-6L && (long double)(value * std::pow(10.0, decimals)) != exact)
        return;
    FUZZ_CHECK(formatted == referenceFormat(value, picture, decimals));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    static const char* const pictures[]
        = { "0", "0.0", "0.00", "0.#", "0.##", "#.#", "#.##", ".0" };
    if (size < 1)
        return 0;
    const std::string picture = pictures[data[0] % std::size(pictures)];
    const std::string bytes(reinterpret_cast<const char*>(data + 1), size - 1);
    const QString text = QString::fromLatin1(bytes.data(), qsizetype(bytes.size()));

    const double value = Numbers::ValUnbounded(text);
    const double reference = referenceValue(bytes);
    FUZZ_CHECK(value == reference);
    FUZZ_CHECK(Numbers::Val(text) == (std::isfinite(reference) ? reference : 0.0));
    const bool numeric = referenceIsNumeric(bytes);
    FUZZ_CHECK(Numbers::IsNumeric(text) == numeric);
    FUZZ_CHECK(Numbers::TextToInt16(text) == (numeric ? referenceInt16(reference) : std::nullopt));
    checkValue(value, picture);
    if (bytes.size() >= sizeof(double)) {
        double raw = 0;
        std::memcpy(&raw, bytes.data(), sizeof raw);
        checkValue(raw, picture);
    }
    return 0;
}
