#include "base/Numbers.h"
#include "base/StringUtils.h"
#include "support/TestRegistry.h"
#include <QRandomGenerator>
#include <QTest>
#include <cmath>
#include <vector>

// The number and text rules every layer reads and writes with.
class TestTextRules : public QObject {
    Q_OBJECT
private slots:
    void textLines_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("tabs"); // SpacesToTabs
        QTest::addColumn<QString>("stripped"); // StripControlCharacters
        for (const char* row : { "|||", "A B C|A\tB C|A B C", "12  X|12\t X|12  X",
                 "  1234   DEG F|  1234\t  DEG\tF|  1234   DEG F", "A\x07 B|A\x07 B|A B",
                 "AB |AB\t|AB ", "\x0b  DEG F\r|\x0b\t DEG\tF\r|  DEG F", "\x1f\x20|\x1f\t| " })
            QTest::newRow(row) << QString(row).section('|', 0, 0) << QString(row).section('|', 1, 1)
                               << QString(row).section('|', 2, 2);
    }
    void textLines()
    {
        QFETCH(QString, input);
        QTEST(StringUtils::SpacesToTabs(input), "tabs");
        QTEST(StringUtils::StripControlCharacters(input), "stripped");
    }
    void numbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("numeric");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("int16"); // TextToInt16, -99999 for none
        auto row = [](const char* text, bool numeric, double value, int int16) {
            QTest::newRow(text) << QString(text) << numeric << value << int16;
        };
        row("  1234  ", true, 1234, 1234);
        row("-3.5", true, -3.5, -4);
        row("+2.5", true, 2.5, 2);
        row("2.51", true, 2.51, 3);
        row("1.5E+2", true, 150, 150);
        row(".5", true, 0.5, 0);
        row("32767.4", true, 32767.4, 32767);
        row("32767.5", true, 32767.5, -99999);
        row("-32768.5", true, -32768.5, -32768);
        row("-32768.51", true, -32768.51, -99999);
        row(".", false, 0, -99999);
        row("75   DEG F", false, 75, -99999);
        row("1\t2\n3 4", false, 1234, -99999); // Val skips blanks anywhere
        row("1.2.3", false, 1.2, -99999);
        row("COM2", false, 0, -99999);
        row("5E", false, 5, -99999);
        row("5D2", false, 500, -99999);
        row("1E999", true, 0, -99999); // beyond a double: out of range, not 0
    }
    void numbers()
    {
        QFETCH(QString, text);
        QTEST(Numbers::IsNumeric(text), "numeric");
        QTEST(Numbers::Val(text), "value");
        const auto int16 = Numbers::TextToInt16(text);
        QTEST(int16 ? int(*int16) : -99999, "int16");
    }
    // Val against the C library: whole numbers, decimals, exponents, signs, blanks anywhere.
    void valMatchesTheGeneralConversion()
    {
        QRandomGenerator random(7);
        auto digits = [&](int most, QString& text, QByteArray& compact) {
            for (int d = 0, n = 1 + random.bounded(most); d < n; ++d) {
                compact += char('0' + random.bounded(10));
                text += QLatin1Char(compact.back()) + QString(" \t\t ").mid(random.bounded(8), 1);
            }
        };
        const char* signs[] = { "", "+", "-" };
        for (int i = 0; i < 40000; ++i) {
            QByteArray compact = signs[random.bounded(3)];
            QString text = QString::fromLatin1(compact);
            digits(19, text, compact);
            if (i % 3 == 1) {
                text += QLatin1Char('.');
                compact += '.';
                digits(8, text, compact);
            }
            if (i % 5 == 2) { // E, e, D or d, with or without a sign
                const char* sign = signs[random.bounded(3)];
                text += QString("EeDd").mid(random.bounded(4), 1) + sign;
                compact += QByteArray("e") + sign;
                digits(2, text, compact);
            }
            text += QString(" DEG F").left(random.bounded(2) * 6);
            const double expected = std::strtod(compact.constData(), nullptr);
            const double value = Numbers::Val(text);
            QVERIFY2(value == expected && std::signbit(value) == std::signbit(expected),
                qPrintable(text));
        }
        // Beyond the range of a double: 0, or an infinity where that is asked for.
        QCOMPARE(Numbers::Val(QStringLiteral("-1E309")), 0.0);
        QCOMPARE(Numbers::ValUnbounded(QStringLiteral("-1E309")), -HUGE_VAL);
    }
    void format_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        for (const char* row : { "0 2.5 2", "0 3.5 4", "0.# 1.25 1.2", "0.# 1.35 1.4", "0.# 3 3",
                 "#.## 12.5 12.5", "#.## 0.25 .25", ".0 64 64.0", "0.00 0.5 0.50",
                 "0.## -3.14159 -3.14", "0 -0.4 0", "0 566666666.5 566666666" }) {
            const QStringList p = QString(row).split(' ');
            QTest::newRow(row) << p[0] << p[1].toDouble() << p[2];
        }
    }
    void format()
    {
        QFETCH(double, value);
        QFETCH(QString, pattern);
        QTEST(Numbers::Format(value, pattern), "expected");
    }
    // Whole numbers and tenths take a shorter road: every value as the general conversion.
    void numberTextMatchesTheGeneralConversion()
    {
        QRandomGenerator random(20261122);
        std::vector<double> values { 0.0, -0.0, 0.1, -0.1, 0.3, 2.675, 1e13 - 0.1, 1e13, 1e13 + 0.5,
            9999999999999.9, 123456789012.3, -32768, 0.05, 0.95, 1e-5, 1e20, 1.5e-7, 1.0 / 3.0 };
        for (int i = 0; i < 100000; ++i) {
            const qint64 whole = random.bounded(qint64(2000000)) - 1000000;
            values.insert(values.end(),
                { double(whole) / 10.0, double(whole) / 100.0,
                    double(random.bounded(qint64(1) << 50)) / 10.0,
                    (random.generateDouble() - 0.5) * 1e6,
                    std::ldexp(random.generateDouble(), random.bounded(-60, 80)) });
        }
        for (double v : values) {
            const QString general = v == 0.0 ? QStringLiteral("0") : QString::number(v, 'g', 15);
            QCOMPARE(
                Numbers::NumberText(v), QString(general).replace("e+", "E+").replace("e-", "E-"));
        }
    }
};
TALAVEX_TEST(TestTextRules)
#include "TestTextRules.moc"
