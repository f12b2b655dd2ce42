#include "support/BarPaint.h"
#include "support/ModalDriver.h"
#include "support/TestRegistry.h"
#include "support/WindowRig.h"

#include "ui/TempBarSettingsDialog.h"
#include "ui/TempBarWidget.h"
#include "ui/TempBarWindow.h"
#include "ui/TempBarWindowHost.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

// The bar window opened from the main window's menu, fed through the receive handler, and
// read back from what it paints.
class TestTempBarWindowGui : public QObject {
    Q_OBJECT

    struct Fixture : WindowRig {
        TempBarWindow* barWindow() { return window.tempBarWindows()->window(); }
    };

private slots:
    void menuOpensTheWindowAndReadingsMoveTheBar()
    {
        Fixture f;
        f.trigger("mnuViewTempBar");
        TempBarWindow* bar = f.barWindow();
        QVERIFY(bar && bar->isVisible());
        TempBarWidget* widget = bar->barWidget();
        QCOMPARE(widget->objectName(), QStringLiteral("TempBar1"));
        QVERIFY(f.action("mnuViewTempBar")->isChecked());

        const double column = TempBar::IndicatorLeft + TempBar::IndicatorWidth / 2.0;
        // The bulb is filled only while the bar has height.
        auto bulbIs = [&](Qt::GlobalColor colour) {
            QCoreApplication::processEvents();
            return barpaint::near(
                barpaint::paintedAt(*widget, column, TempBar::BarBottom + 80), QColor(colour));
        };
        QVERIFY(bulbIs(Qt::black));
        f.trigger("mnuSenseTemperature");
        f.rig.feed(AppRig::parameterBlock("  DEG F", "1", "72") + "  50\x07");
        QVERIFY(bulbIs(Qt::green));
        // 50 of 0..100: green up to the middle, the dark tube above it
        QVERIFY(barpaint::near(barpaint::paintedAt(*widget, column, 3000), QColor(Qt::green)));
        QVERIFY(barpaint::near(barpaint::paintedAt(*widget, column, 1500), QColor(Qt::black)));

        f.rig.feed("  95\x07");
        QCoreApplication::processEvents();
        QVERIFY(barpaint::near(barpaint::paintedAt(*widget, column, 1500), QColor(Qt::red)));
        f.rig.feed("  -5\x07");
        QVERIFY(bulbIs(Qt::black));

        // Closing by the title bar unticks the menu and stops the feed.
        bar->close();
        QCoreApplication::processEvents();
        QVERIFY(!f.rig.app().state.TempBarVisible);
        QVERIFY(!f.action("mnuViewTempBar")->isChecked());
        f.rig.feed("  20\x07");
        QCOMPARE(f.rig.app().bar.indicatorTop(), 4140 - 3420);
    }

    void menuClosesTheWindowAgain()
    {
        Fixture f;
        f.trigger("mnuViewTempBar");
        QVERIFY(f.barWindow()->isVisible());
        f.trigger("mnuViewTempBar");
        QVERIFY(!f.barWindow()->isVisible());
        QVERIFY(!f.rig.app().state.TempBarVisible);
        QVERIFY(!f.action("mnuViewTempBar")->isChecked());
    }

    void failedCheckPutsTheFocusBack()
    {
        Fixture f;
        f.trigger("mnuViewTempBar");
        QString focused;
        bool stillOpen = false;
        ModalDriver<TempBarSettingsDialog> driver([&](TempBarSettingsDialog* dialog) {
            auto* low = dialog->findChild<QLineEdit*>("txtLowLimit");
            low->setText(QStringLiteral("cold"));
            emit low->textEdited(low->text());
            dialog->findChild<QPushButton*>("cmdAccept")->click();
            focused = dialog->focusWidget() ? dialog->focusWidget()->objectName() : QString();
            stillOpen = dialog->isVisible();
            dialog->findChild<QPushButton*>("cmdCancel")->click();
        });
        f.trigger("mnuConfigure", f.barWindow());
        QCOMPARE(f.rig.prompter.titles(), QStringList({ "HIGH ALARM LIMIT ERROR" }));
        QCOMPARE(focused, QStringLiteral("txtLowLimit"));
        QVERIFY(stillOpen);
        QCOMPARE(f.rig.app().bar.GetLowLimit(), qint16(25));
        QCOMPARE(f.rig.app().state.SettingsValues.lowAlarmLimit.text, QStringLiteral("25"));
    }

    void paintsAtAnySize_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::newRow("small") << QSize(90, 200);
        QTest::newRow("wide") << QSize(600, 300);
        QTest::newRow("tall") << QSize(200, 900);
    }

    void paintsAtAnySize()
    {
        QFETCH(QSize, size);
        TempBar model;
        qint16 reading = 100;
        model.SetTemp(reading);
        TempBarWidget widget;
        widget.setModel(&model);
        widget.resize(size);
        // The whole scale fits and keeps its proportions: a full bar reaches the top tick.
        const QPointF top = widget.toPixels(QPointF(0, TempBar::BarBottom - TempBar::FullHeight));
        const QPointF bottom = widget.toPixels(QPointF(0, TempBar::BarBottom));
        const QPointF left = widget.toPixels(QPointF(TempBar::LabelLeft, 0));
        const QPointF right
            = widget.toPixels(QPointF(TempBar::MarkerLeft + TempBar::MarkerWidth, 0));
        QVERIFY(top.y() >= 0 && bottom.y() <= size.height());
        QVERIFY(left.x() >= 0 && right.x() <= size.width());
        QCOMPARE(qRound((bottom.y() - top.y()) * 1000 / (right.x() - left.x())),
            qRound(
                3600.0 * 1000 / (TempBar::MarkerLeft + TempBar::MarkerWidth - TempBar::LabelLeft)));
        const double column = TempBar::IndicatorLeft + TempBar::IndicatorWidth / 2.0;
        QVERIFY(barpaint::near(barpaint::paintedAt(widget, column, 600), QColor(Qt::red)));
    }

    void configureRunsTheModalDialog()
    {
        Fixture f;
        f.trigger("mnuViewTempBar");
        TempBarWindow* bar = f.barWindow();
        QStringList seen;
        ModalDriver<TempBarSettingsDialog> driver([&](TempBarSettingsDialog* dialog) {
            seen << dialog->findChild<QLineEdit*>("txtMaxTemp")->text();
            seen << (dialog->focusWidget() ? dialog->focusWidget()->objectName() : QString());
            auto* max = dialog->findChild<QLineEdit*>("txtMaxTemp");
            max->setText(QStringLiteral("250"));
            emit max->textEdited(max->text());
            dialog->findChild<QCheckBox*>("chkAudibleAlarms")->click();
            // Enter in the box accepts.
            QTest::keyClick(max, Qt::Key_Return);
        });
        f.trigger("mnuConfigure", bar);
        QCOMPARE(seen, QStringList({ "100", "txtMaxTemp" }));
        QCOMPARE(f.rig.app().bar.GetMaxTemp(), qint16(250));
        QCOMPARE(f.rig.app().state.SettingsValues.tempBarMax.text, QStringLiteral("250"));
        QCOMPARE(f.rig.app().state.SettingsValues.audibleAlarms.text, QStringLiteral("0"));
        QVERIFY(f.rig.prompter.messages().empty());
    }
};

TALAVEX_TEST(TestTempBarWindowGui)
#include "TestTempBarWindowGui.moc"
