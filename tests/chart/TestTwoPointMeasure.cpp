#include "support/TestRegistry.h"

#include "chart/TwoPointMeasure.h"

#include <QTest>

namespace {
using Kind = CursorPoint::Kind;
}

class TestTwoPointMeasure : public QObject {
    Q_OBJECT
private slots:
    void minutesPerUnit_data()
    {
        QTest::addColumn<QString>("title");
        QTest::addColumn<double>("minutes");
        QTest::newRow("seconds") << "SECONDS" << 1.0 / 60;
        QTest::newRow("minutes") << "MINUTES" << 1.0;
        QTest::newRow("hours") << "HOURS" << 60.0;
        QTest::newRow("days") << "DAYS" << 1440.0;
        QTest::newRow("a title of the operator's, as seconds") << "ELAPSED" << 1.0 / 60;
        QTest::newRow("lower case is not a unit") << "hours" << 1.0 / 60;
    }
    void minutesPerUnit()
    {
        QFETCH(QString, title);
        QFETCH(double, minutes);
        QCOMPARE(MinutesPerTimeUnit(title), minutes);
    }

    void measure_data()
    {
        QTest::addColumn<QPointF>("pinned");
        QTest::addColumn<double>("x");
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("y");
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("deltaTime");
        QTest::addColumn<QString>("deltaTemp");
        QTest::addColumn<QString>("rate");
        const int data = int(Kind::Data);
        // From 30 to 90 degrees in 120 seconds: 30 degrees a minute.
        QTest::newRow("heating, seconds") << QPointF(10, 30) << 130.0 << data << 90.0 << "SECONDS"
                                          << "120.00"
                                          << "60.00"
                                          << "30.00";
        QTest::newRow("heating, minutes") << QPointF(1, 30) << 3.0 << data << 90.0 << "MINUTES"
                                          << "2.00"
                                          << "60.00"
                                          << "30.00";
        QTest::newRow("heating, hours") << QPointF(0, 30) << 0.5 << data << 90.0 << "HOURS"
                                        << "0.50"
                                        << "60.00"
                                        << "2.00";
        QTest::newRow("heating, days") << QPointF(0, 0) << 1.0 << data << 1440.0 << "DAYS"
                                       << "1.00"
                                       << "1440.00"
                                       << "1.00";
        QTest::newRow("cooling: negative rate")
            << QPointF(0, 200) << 30.0 << data << 150.0 << "SECONDS"
            << "30.00"
            << "-50.00"
            << "-100.00";
        QTest::newRow("cursor left of the pin: negative time, rising rate")
            << QPointF(60, 100) << 0.0 << data << 40.0 << "SECONDS"
            << "-60.00"
            << "-60.00"
            << "60.00";
        QTest::newRow("below zero") << QPointF(0, -20) << 60.0 << data << -35.5 << "SECONDS"
                                    << "60.00"
                                    << "-15.50"
                                    << "-15.50";
        QTest::newRow("same time: no division")
            << QPointF(5, 100) << 5.0 << data << 100.0 << "SECONDS"
            << "0.00"
            << "0.00"
            << "SAME TIME";
        QTest::newRow("too close to divide") << QPointF(0, 0) << 1e-320 << data << 1e10 << "SECONDS"
                                             << "0.00"
                                             << "10000000000.00"
                                             << "SAME TIME";
        QTest::newRow("cursor off the chart")
            << QPointF(5, 100) << 99.0 << int(Kind::OffChart) << 0.0 << "SECONDS"
            << "NO DATA"
            << "OFF CHART"
            << "NO DATA";
        QTest::newRow("no data under the cursor")
            << QPointF(5, 100) << 20.0 << int(Kind::NoData) << 0.0 << "SECONDS"
            << "NO DATA"
            << "NO DATA"
            << "NO DATA";
    }
    void measure()
    {
        QFETCH(QPointF, pinned);
        QFETCH(double, x);
        QFETCH(int, kind);
        QFETCH(double, y);
        QFETCH(QString, unit);
        QFETCH(QString, deltaTime);
        QFETCH(QString, deltaTemp);
        QFETCH(QString, rate);
        const TwoPointTexts texts
            = TwoPointMeasure(pinned, x, CursorPoint { Kind(kind), y }, MinutesPerTimeUnit(unit));
        QCOMPARE(texts.deltaTime, deltaTime);
        QCOMPARE(texts.deltaTemp, deltaTemp);
        QCOMPARE(texts.rate, rate);
    }

    void pinnedText()
    {
        QCOMPARE(PinnedPointText(QPointF(2.5, 125)), QStringLiteral("FROM 2.50 AT 125.00"));
        QCOMPARE(PinnedPointText(QPointF(0, -3.456)), QStringLiteral("FROM 0.00 AT -3.46"));
    }
};
TALAVEX_TEST(TestTwoPointMeasure)
#include "TestTwoPointMeasure.moc"
