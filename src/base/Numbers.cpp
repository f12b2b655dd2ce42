#include "Numbers.h"

#include <cmath>
#include <limits>

namespace Numbers {

namespace {
    bool isBlank(QChar c)
    {
        return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n');
    }
    bool isDigit(QChar c) { return c >= QLatin1Char('0') && c <= QLatin1Char('9'); }
} // namespace

double Val(const QString& text)
{
    const double value = ValUnbounded(text);
    return std::isfinite(value) ? value : 0.0;
}

double ValUnbounded(const QString& text)
{
    // Collect the numeric prefix with blanks removed, then let the C library convert it.
    QByteArray digits;
    digits.reserve(32);
    qsizetype i = 0;
    const qsizetype n = text.size();
    auto skipBlanks = [&] {
        while (i < n && isBlank(text.at(i)))
            ++i;
    };
    skipBlanks();
    if (i < n && (text.at(i) == QLatin1Char('+') || text.at(i) == QLatin1Char('-'))) {
        digits.append(char(text.at(i).unicode()));
        ++i;
    }
    bool anyDigit = false;
    bool seenPoint = false;
    // A whole number of up to 15 digits, what readings are, is exact in a double and needs no
    // conversion by the C library.
    qint64 whole = 0;
    int wholeDigits = 0;
    for (skipBlanks(); i < n; skipBlanks()) {
        const QChar c = text.at(i);
        if (isDigit(c)) {
            digits.append(char(c.unicode()));
            anyDigit = true;
            if (!seenPoint && ++wholeDigits <= 15)
                whole = whole * 10 + (c.unicode() - u'0');
        } else if (c == QLatin1Char('.') && !seenPoint) {
            digits.append('.');
            seenPoint = true;
        } else {
            break;
        }
        ++i;
    }
    if (!anyDigit)
        return 0.0;
    if (i < n
        && (text.at(i) == QLatin1Char('e') || text.at(i) == QLatin1Char('E')
            || text.at(i) == QLatin1Char('d') || text.at(i) == QLatin1Char('D'))) {
        qsizetype j = i + 1;
        QByteArray exponent("e");
        while (j < n && isBlank(text.at(j)))
            ++j;
        if (j < n && (text.at(j) == QLatin1Char('+') || text.at(j) == QLatin1Char('-'))) {
            exponent.append(char(text.at(j).unicode()));
            ++j;
        }
        bool expDigit = false;
        for (; j < n; ++j) {
            if (isBlank(text.at(j)))
                continue;
            if (!isDigit(text.at(j)))
                break;
            exponent.append(char(text.at(j).unicode()));
            expDigit = true;
        }
        if (expDigit)
            digits.append(exponent);
    }
    if (!seenPoint && wholeDigits <= 15 && !digits.contains('e'))
        return digits.startsWith('-') ? -double(whole) : double(whole);
    return std::strtod(digits.constData(), nullptr);
}

bool IsNumeric(const QString& text)
{
    qsizetype i = 0;
    qsizetype n = text.size();
    while (i < n && text.at(i) == QLatin1Char(' '))
        ++i;
    while (n > i && text.at(n - 1) == QLatin1Char(' '))
        --n;
    if (i < n && (text.at(i) == QLatin1Char('+') || text.at(i) == QLatin1Char('-')))
        ++i;
    bool anyDigit = false;
    bool seenPoint = false;
    for (; i < n; ++i) {
        const QChar c = text.at(i);
        if (isDigit(c))
            anyDigit = true;
        else if (c == QLatin1Char('.') && !seenPoint)
            seenPoint = true;
        else
            break;
    }
    if (!anyDigit)
        return false;
    if (i < n && (text.at(i) == QLatin1Char('e') || text.at(i) == QLatin1Char('E'))) {
        ++i;
        if (i < n && (text.at(i) == QLatin1Char('+') || text.at(i) == QLatin1Char('-')))
            ++i;
        bool expDigit = false;
        for (; i < n && isDigit(text.at(i)); ++i)
            expDigit = true;
        if (!expDigit)
            return false;
    }
    return i == n;
}

double RoundHalfEven(double value)
{
    if (!std::isfinite(value))
        return value;
    const double floor = std::floor(value);
    const double diff = value - floor;
    if (diff > 0.5)
        return floor + 1.0;
    if (diff < 0.5)
        return floor;
    return std::fmod(floor, 2.0) == 0.0 ? floor : floor + 1.0;
}

std::optional<qint16> ToInt16(double value)
{
    if (!std::isfinite(value))
        return std::nullopt;
    const double rounded = RoundHalfEven(value);
    if (rounded < std::numeric_limits<qint16>::min()
        || rounded > std::numeric_limits<qint16>::max())
        return std::nullopt;
    return static_cast<qint16>(rounded);
}

std::optional<qint16> TextToInt16(const QString& text)
{
    if (!IsNumeric(text))
        return std::nullopt;
    // A number beyond the range of a double is out of range, not 0.
    return ToInt16(ValUnbounded(text));
}

QString Format(double value, const QString& pattern)
{
    const qsizetype point = pattern.indexOf(QLatin1Char('.'));
    const QString integerPart = point < 0 ? pattern : pattern.left(point);
    const QString fractionPart = point < 0 ? QString() : pattern.mid(point + 1);
    const int mandatoryDecimals = int(fractionPart.count(QLatin1Char('0')));
    const int decimals = int(fractionPart.size());
    const bool leadingZero = integerPart.contains(QLatin1Char('0'));

    const double scale = std::pow(10.0, decimals);
    // Half to even; a product off a whole number by representation error rounds to it as well.
    const double scaled = RoundHalfEven(value * scale);
    const bool negative = scaled < 0;
    QString digits = QString::number(std::fabs(scaled), 'f', 0);
    while (digits.size() <= decimals)
        digits.prepend(QLatin1Char('0'));
    QString whole = digits.left(digits.size() - decimals);
    QString fraction = digits.right(decimals);
    while (fraction.size() > mandatoryDecimals && fraction.endsWith(QLatin1Char('0')))
        fraction.chop(1);
    if (whole == QLatin1String("0") && !leadingZero && !fraction.isEmpty())
        whole.clear();
    QString text = whole;
    if (!fraction.isEmpty())
        text += QLatin1Char('.') + fraction;
    if (text.isEmpty())
        text = QStringLiteral("0");
    const bool allZero = std::fabs(scaled) == 0.0;
    return (negative && !allZero) ? QLatin1Char('-') + text : text;
}

QString NumberText(double value)
{
    if (value == 0.0)
        return QStringLiteral("0");
    // Whole numbers and tenths, most of what a recording writes, come out the same without the
    // general conversion, at a fraction of its cost. A value is a tenth when it is the double
    // nearest to one; with at most 14 digits, 15 significant digits then show it exactly.
    if (std::fabs(value) < 1e13) {
        const double tenths = std::nearbyint(value * 10.0);
        if (tenths / 10.0 == value) {
            const qint64 n = qint64(tenths);
            const qint64 magnitude = n < 0 ? -n : n;
            QString text = QString::number(magnitude / 10);
            if (magnitude % 10 != 0)
                text += QLatin1Char('.') + QChar(char16_t(u'0' + magnitude % 10));
            return n < 0 ? QLatin1Char('-') + text : text;
        }
    }
    QString text = QString::number(value, 'g', 15);
    text.replace(QLatin1String("e+"), QLatin1String("E+"));
    text.replace(QLatin1String("e-"), QLatin1String("E-"));
    return text;
}

} // namespace Numbers
