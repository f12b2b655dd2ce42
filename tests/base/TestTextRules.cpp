#include "support/TestRegistry.h"

#include "base/Numbers.h"
#include "base/StringUtils.h"

#include <QRandomGenerator>
#include <QTest>
#include <cmath>
#include <cstdlib>
#include <vector>

class TestTextRules : public QObject {
    Q_OBJECT
private slots:
    void spacesToTabs_data()
    {
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("expected");
        auto row = [](const char* name, const char* input, const char* expected) {
            QTest::newRow(name) << QString(input) << QString(expected);
        };
        row("empty", "", "");
        row("single spaces skip the next field", "A B C", "A\tB C");
        row("two spaces after a number", "12  X", "12\t X");
        row("leading spaces kept", "  1234   DEG F", "  1234\t  DEG\tF");
        row("only spaces", "   ", "   ");
        row("stops at BEL", "A\x07 B", "A\x07 B");
        row("trailing space", "AB ", "AB\t");
    }
    void spacesToTabs()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        QCOMPARE(StringUtils::SpacesToTabs(input), expected);
    }

    void stripControlCharacters()
    {
        QCOMPARE(StringUtils::StripControlCharacters(QString("\x0b  DEG F\r")), QString("  DEG F"));
        QCOMPARE(StringUtils::StripControlCharacters(QString("\x1f\x20")), QString(" "));
    }

    void splitAndJoin()
    {
        const QStringList parts = StringUtils::SplitIntoCharacters("abc");
        QCOMPARE(parts, QStringList({ "a", "b", "c" }));
        QCOMPARE(StringUtils::JoinCharacters(parts, 2), QString("ab"));
        QCOMPARE(StringUtils::JoinCharacters(parts, 9), QString("abc"));
    }

    void numbers_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("numeric");
        QTest::addColumn<double>("value");
        QTest::newRow("integer") << "12" << true << 12.0;
        QTest::newRow("spaces around") << "  1234  " << true << 1234.0;
        QTest::newRow("sign and decimals") << "-3.5" << true << -3.5;
        QTest::newRow("exponent") << "1.5E+2" << true << 150.0;
        QTest::newRow("bare point") << "." << false << 0.0;
        QTest::newRow("leading point") << ".5" << true << 0.5;
        QTest::newRow("unit after number") << "75   DEG F" << false << 75.0;
        QTest::newRow("inner blanks are skipped by Val") << "1 2" << false << 12.0;
        QTest::newRow("two points") << "1.2.3" << false << 1.2;
        QTest::newRow("empty") << "" << false << 0.0;
        QTest::newRow("word") << "NO-INT" << false << 0.0;
        QTest::newRow("dangling exponent") << "5E" << false << 5.0;
        QTest::newRow("tab inside") << "1\t2" << false << 12.0;
    }
    void numbers()
    {
        QFETCH(QString, text);
        QFETCH(bool, numeric);
        QFETCH(double, value);
        QCOMPARE(Numbers::IsNumeric(text), numeric);
        QCOMPARE(Numbers::Val(text), value);
    }

    // Whole numbers take a shorter road than the C library; they must come out the same,
    // blanks, signs, long digit strings and a negative zero included.
    void valOfWholeNumbers()
    {
        QRandomGenerator random(7);
        for (int i = 0; i < 20000; ++i) {
            const int length = 1 + random.bounded(19);
            QString text = random.bounded(3) == 0
                ? QStringLiteral("-")
                : (random.bounded(2) ? QStringLiteral("+") : QString());
            QByteArray compact = text.toLatin1();
            for (int d = 0; d < length; ++d) {
                const char digit = char('0' + random.bounded(10));
                text += QLatin1Char(digit);
                compact += digit;
                if (random.bounded(6) == 0)
                    text += QLatin1Char(' ');
            }
            if (random.bounded(4) == 0)
                text += QStringLiteral(" DEG F");
            const double expected = std::strtod(compact.constData(), nullptr);
            const double value = Numbers::Val(text);
            QVERIFY2(value == expected && std::signbit(value) == std::signbit(expected),
                qPrintable(text));
        }
    }

    void rounding_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("expected");
        QTest::addColumn<bool>("fits");
        QTest::newRow("half down to even") << 12.5 << 12 << true;
        QTest::newRow("half up to even") << 13.5 << 14 << true;
        QTest::newRow("negative half") << -2.5 << -2 << true;
        QTest::newRow("above half") << 2.51 << 3 << true;
        QTest::newRow("upper bound") << 32767.4 << 32767 << true;
        QTest::newRow("overflow") << 32767.5 << 0 << false;
        QTest::newRow("lower bound") << -32768.0 << -32768 << true;
        QTest::newRow("underflow") << -32769.0 << 0 << false;
    }
    void rounding()
    {
        QFETCH(double, value);
        QFETCH(int, expected);
        QFETCH(bool, fits);
        const auto converted = Numbers::ToInt16(value);
        QCOMPARE(converted.has_value(), fits);
        if (fits)
            QCOMPARE(int(*converted), expected);
    }

    void strictText()
    {
        QCOMPARE(Numbers::TextToInt16(" 2 ").value_or(-1), qint16(2));
        QVERIFY(!Numbers::TextToInt16("COM2").has_value());
        QVERIFY(!Numbers::TextToInt16("").has_value());
        QVERIFY(!Numbers::TextToInt16("40000").has_value());
        QVERIFY(!Numbers::TextToInt16("1E999").has_value());
    }

    void format_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("0 rounds half even") << "0" << 2.5 << "2";
        QTest::newRow("0 rounds half even above 5E8") << "0" << 566666666.5 << "566666666";
        QTest::newRow("0.# one decimal") << "0.#" << 1.25 << "1.2";
        QTest::newRow("0.# whole") << "0.#" << 3.0 << "3";
        QTest::newRow("#.## trims zeros") << "#.##" << 12.5 << "12.5";
        QTest::newRow("#.## whole") << "#.##" << 12.0 << "12";
        QTest::newRow("#.## below one") << "#.##" << 0.25 << ".25";
        QTest::newRow(".0 keeps a decimal") << ".0" << 64.0 << "64.0";
        QTest::newRow("negative") << "0.##" << -3.14159 << "-3.14";
        QTest::newRow("negative rounding to zero") << "0" << -0.4 << "0";
    }
    void format()
    {
        QFETCH(double, value);
        QFETCH(QString, pattern);
        QFETCH(QString, expected);
        QCOMPARE(Numbers::Format(value, pattern), expected);
    }

    void numberText()
    {
        QCOMPARE(Numbers::NumberText(150.0), QString("150"));
        QCOMPARE(Numbers::NumberText(0.5), QString("0.5"));
        QCOMPARE(Numbers::NumberText(-12.25), QString("-12.25"));
        QCOMPARE(Numbers::NumberText(1.0 / 3.0), QString("0.333333333333333"));
        QCOMPARE(Numbers::NumberText(-0.5), QString("-0.5"));
        QCOMPARE(Numbers::NumberText(1e20), QString("1E+20"));
        QCOMPARE(Numbers::NumberText(1.5e-7), QString("1.5E-07"));
    }

    // Whole numbers and tenths take a shorter road; every value must come out as the general
    // 15-digit conversion writes it, near the edges of that road too.
    void numberTextMatchesTheGeneralConversion()
    {
        auto general = [](double v) {
            return QString::number(v, 'g', 15)
                .replace(QLatin1String("e+"), QLatin1String("E+"))
                .replace(QLatin1String("e-"), QLatin1String("E-"));
        };
        QRandomGenerator random(20261122);
        std::vector<double> values { 0.1, -0.1, 0.3, 2.675, 1e13 - 0.1, 1e13, 1e13 + 0.5,
            9999999999999.9, 123456789012.3, -32768, 32767, 0.05, 0.95, 1e-5, 3.14159 };
        for (int i = 0; i < 100000; ++i) {
            const qint64 whole = random.bounded(qint64(2000000)) - 1000000;
            values.push_back(double(whole) / 10.0);
            values.push_back(double(whole) / 100.0);
            values.push_back(double(random.bounded(qint64(1) << 50)) / 10.0);
            values.push_back((random.generateDouble() - 0.5) * 1e6);
        }
        for (double v : values) {
            if (v != 0.0)
                QCOMPARE(Numbers::NumberText(v), general(v));
        }
    }
};
TALAVEX_TEST(TestTextRules)
#include "TestTextRules.moc"
