#pragma once

#include <QString>
#include <QStringList>

// The string routines the line parsers and the parameter loader share.
namespace StringUtils {

constexpr QChar Bel { 7 };
constexpr QChar Tab { 9 };
constexpr QChar Lf { 10 };
constexpr QChar Vt { 11 };
constexpr QChar Cr { 13 };
inline const QString CrLf = QStringLiteral("\r\n");

// The string as one-character strings; the count is the list's size.
QStringList SplitIntoCharacters(const QString& text);
// The first `count` elements joined back into a string.
QString JoinCharacters(const QStringList& characters, int count);
// Keeps only the characters whose code is above 31.
QString StripControlCharacters(const QString& text);
// Turns the first space of each run of spaces into a tab, keeping leading spaces; the
// character after each converted space is skipped, so "A B C" gives "A<tab>B C".
QString SpacesToTabs(const QString& text);

} // namespace StringUtils
