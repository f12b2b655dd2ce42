#pragma once

#include <QString>
#include <optional>

// Number reading and formatting rules shared by every layer.
namespace Numbers {

// Lenient reading: the longest numeric prefix, blanks, tabs and line feeds skipped anywhere;
// 0 when there is none.
double Val(const QString& text);
// As Val, but a number beyond the range of a double ("1E309", 400 digits) gives an infinity of
// its sign instead of 0.
double ValUnbounded(const QString& text);
// Strict test: optional sign, digits with at most one decimal point, optional exponent,
// leading and trailing spaces allowed; at least one digit.
bool IsNumeric(const QString& text);
// Round to the nearest whole number, ties to even.
double RoundHalfEven(double value);
// A 16-bit conversion with rounding half to even; empty when out of range or not a number.
std::optional<qint16> ToInt16(double value);
// A strict 16-bit conversion of text: empty when the text is not numeric or out of range.
std::optional<qint16> TextToInt16(const QString& text);
// Formats with a picture of '0' (digit always shown) and '#' (digit when significant), an
// optional '.' and decimals: "0", "0.#", "#.##", ".0", "0.00". Rounds half to even.
QString Format(double value, const QString& pattern);
// The shortest general form: 150, 0.5, 12.25, -3; up to 15 significant digits.
QString NumberText(double value);

} // namespace Numbers
