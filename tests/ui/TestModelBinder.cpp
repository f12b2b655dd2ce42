#include "support/TestRegistry.h"
#include "support/WindowRig.h"

#include "base/ViewModel.h"
#include "ui/ControlTesterDialog.h"
#include "ui/GraphSettingsDialog.h"
#include "ui/MarkerDataWindow.h"
#include "ui/ModelBinder.h"
#include "ui/ProgramParametersDialog.h"
#include "ui/StoredPointsWindow.h"
#include "ui/TempBarSettingsDialog.h"
#include "ui/TempBarWindow.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {
struct TwoLabels : ViewModel {
    Control reading { this, QStringLiteral("lblReading"), QStringLiteral("0") };
    Control status { this, QStringLiteral("lblStatus"), QStringLiteral("IDLE") };
};

struct View {
    QWidget root;
    QLabel* reading = new QLabel(&root);
    QLabel* status = new QLabel(&root);
    View()
    {
        reading->setObjectName(QStringLiteral("lblReading"));
        status->setObjectName(QStringLiteral("lblStatus"));
    }
};
struct EventCounter : QObject {
    EventCounter(QEvent::Type type, int& count)
        : type_(type)
        , count_(count)
    {
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        count_ += event->type() == type_;
        return false;
    }
    QEvent::Type type_;
    int& count_;
};
} // namespace

class TestModelBinder : public QObject {
    Q_OBJECT
private slots:
    // A change shows the controls that changed and leaves the others alone; a change of the
    // model as a whole shows everything again.
    void showsWhatChanged()
    {
        TwoLabels model;
        View view;
        ModelBinder binder(model, view.root);
        QCOMPARE(view.reading->text(), QStringLiteral("0"));
        view.reading->setText(QStringLiteral("scribbled"));

        model.status.setCaption(QStringLiteral("SENSING"));
        QCoreApplication::processEvents();
        QCOMPARE(view.status->text(), QStringLiteral("SENSING"));
        QCOMPARE(view.reading->text(), QStringLiteral("scribbled"));

        model.markDirty();
        QCoreApplication::processEvents();
        QCOMPARE(view.reading->text(), QStringLiteral("0"));
    }

    // Changes made under a hold are shown once, as soon as the outermost hold ends, and leave
    // nothing for the event loop to do.
    void heldChangesShowWhenTheHoldEnds()
    {
        TwoLabels model;
        View view;
        ModelBinder binder(model, view.root);
        QSignalSpy changes(&model, &ViewModel::changed);
        {
            const ViewModel::Hold outer(model);
            {
                const ViewModel::Hold inner(model);
                model.status.setCaption(QStringLiteral("SENSING"));
            }
            model.reading.setCaption(QStringLiteral("75"));
            QCOMPARE(changes.count(), 0);
            QCOMPARE(view.status->text(), QStringLiteral("IDLE"));
        }
        QCOMPARE(changes.count(), 1);
        QCOMPARE(view.status->text(), QStringLiteral("SENSING"));
        QCOMPARE(view.reading->text(), QStringLiteral("75"));
        QCoreApplication::processEvents();
        QCOMPARE(changes.count(), 1);
    }

    // A label's colours come from the model through its palette, over the palette it had when
    // bound, and back to that palette when the model drops them; the window is not laid out
    // again for a colour.
    void labelColours_data()
    {
        QTest::addColumn<qint64>("fore");
        QTest::addColumn<qint64>("back");
        QTest::addColumn<QColor>("text");
        QTest::addColumn<QColor>("fill");
        QTest::addColumn<bool>("filled");
        const QColor grey(0x80, 0x80, 0x80);
        const QColor dark(0x20, 0x20, 0x20);
        QTest::newRow("text red") << qint64(0xFF0000) << Colors::Default << QColor(Qt::red) << dark
                                  << false;
        QTest::newRow("text and fill") << qint64(0x00FF00) << qint64(0x0000FF) << QColor(Qt::green)
                                       << QColor(Qt::blue) << true;
        QTest::newRow("back to base")
            << Colors::Default << Colors::Default << grey << dark << false;
    }
    void labelColours()
    {
        QFETCH(qint64, fore);
        QFETCH(qint64, back);
        QFETCH(QColor, text);
        QFETCH(QColor, fill);
        QFETCH(bool, filled);
        TwoLabels model;
        View view;
        auto* layout = new QVBoxLayout(&view.root);
        layout->addWidget(view.reading);
        layout->addWidget(view.status);
        QPalette base = view.status->palette();
        base.setColor(QPalette::WindowText, QColor(0x80, 0x80, 0x80));
        base.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
        view.status->setPalette(base);
        ModelBinder binder(model, view.root);
        view.root.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view.root));

        // Another colour first, so each row is a change.
        model.status.setForeColor(0x123456);
        model.status.setBackColor(0x654321);
        QCoreApplication::processEvents();
        int layouts = 0;
        EventCounter counter(QEvent::LayoutRequest, layouts);
        view.root.installEventFilter(&counter);
        model.status.setForeColor(fore);
        model.status.setBackColor(back);
        QCoreApplication::processEvents();
        QCOMPARE(view.status->palette().color(QPalette::WindowText), text);
        QCOMPARE(view.status->palette().color(QPalette::Window), fill);
        QCOMPARE(view.status->autoFillBackground(), filled);
        QVERIFY(view.status->styleSheet().isEmpty());
        QCOMPARE(layouts, 0);
    }

    // A throttled read-out shows the first change at once and the newest of a quick series
    // when its time is up; the other controls are not held back.
    void throttledReadout()
    {
        TwoLabels model;
        View view;
        ModelBinder binder(model, view.root);
        binder.throttle({ QStringLiteral("lblReading") }, 300);

        model.reading.setCaption(QStringLiteral("71"));
        QCoreApplication::processEvents();
        QCOMPARE(view.reading->text(), QStringLiteral("71"));

        model.reading.setCaption(QStringLiteral("72"));
        QCoreApplication::processEvents();
        model.reading.setCaption(QStringLiteral("73"));
        model.status.setCaption(QStringLiteral("SENSING"));
        QCoreApplication::processEvents();
        QCOMPARE(view.reading->text(), QStringLiteral("71"));
        QCOMPARE(view.status->text(), QStringLiteral("SENSING"));
        QTRY_COMPARE(view.reading->text(), QStringLiteral("73"));
    }

    // A name that matches nothing fails the binding, named: a control with no widget, a handler
    // with no widget, a command with no handler, and a caption both the model and the form give.
    void misnamedBindingFails_data()
    {
        QTest::addColumn<QString>("control");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("handler");
        QTest::addColumn<QString>("named");
        const QString sense = QStringLiteral("mnuSenseTemperature");
        const QString misspelt = QStringLiteral("mnuSenseTemprature");
        QTest::newRow("control") << misspelt << QString() << sense << misspelt;
        QTest::newRow("handler") << QStringLiteral("lblCurrentTemp") << QString() << misspelt
                                 << misspelt;
        QTest::newRow("no handler") << sense << QString() << QString() << sense;
        QTest::newRow("caption twice") << sense << QStringLiteral("SENSE") << sense << sense;
    }
    void misnamedBindingFails()
    {
        QFETCH(QString, control);
        QFETCH(QString, caption);
        QFETCH(QString, handler);
        QFETCH(QString, named);
        WindowRig f;
        ViewModel model;
        const auto c = caption.isNull() ? std::make_unique<Control>(&model, control)
                                        : std::make_unique<Control>(&model, control, caption);
        ModelBinder binder(model, f.window);
        if (!handler.isEmpty())
            binder.onTriggered(handler, [] {});
        QCOMPARE(binder.problems().size(), 1);
        try {
            binder.check();
        } catch (const std::logic_error& e) {
            QVERIFY2(QString::fromUtf8(e.what()).contains(named + ':'), e.what());
            return;
        }
        QFAIL("no failure");
    }

    // Every window of the program binds with nothing amiss (the tests check strictly).
    void everyWindowBinds()
    {
        QVERIFY_THROWS_NO_EXCEPTION([] {
            WindowRig f;
            Application& a = f.app();
            StoredPointsWindow stored(a.storedPointsModel, a.storedPoints, a.store);
            ProgramParametersDialog parameters(a.programParametersModel, a.programParameters);
            GraphSettingsDialog graph(a.graphSettingsModel, a.graphSettings);
            TempBarWindow bar(a.bar, a.tempBarWindowModel, a.tempBarWindow);
            TempBarSettingsDialog barSettings(a.tempBarSettingsModel, a.tempBarSettings);
            ControlTesterDialog tester(a.controlTesterModel, a.controlTester);
            MarkerDataWindow cursorData(a.markerDataModel, a.cursor, nullptr);
        }());
    }

    // A steady stream, a change every 10 ms for 1.5 s: the showings stay 100 ms apart.
    void throttledStream()
    {
        TwoLabels model;
        View view;
        ModelBinder binder(model, view.root);
        binder.throttle({ QStringLiteral("lblReading") }, 100);
        QElapsedTimer clock;
        clock.start();
        std::vector<qint64> shownAt;
        QString last = view.reading->text();
        QTimer feed;
        int value = 100;
        connect(&feed, &QTimer::timeout, this, [&] {
            if (view.reading->text() != last) {
                last = view.reading->text();
                shownAt.push_back(clock.elapsed());
            }
            model.reading.setCaption(QString::number(++value));
        });
        feed.start(10);
        QTest::qWait(1500);
        feed.stop();
        QVERIFY2(shownAt.size() >= 5, qPrintable(QString::number(shownAt.size())));
        for (std::size_t i = 1; i < shownAt.size(); ++i)
            QVERIFY2(shownAt[i] - shownAt[i - 1] >= 70,
                qPrintable(
                    QStringLiteral("%1 ms after the one before").arg(shownAt[i] - shownAt[i - 1])));
    }
};

TALAVEX_TEST(TestModelBinder)
#include "TestModelBinder.moc"
