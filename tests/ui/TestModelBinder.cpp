#include "support/TestRegistry.h"

#include "base/ViewModel.h"
#include "ui/ModelBinder.h"

#include <QLabel>
#include <QTest>
#include <QVBoxLayout>

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
};

TALAVEX_TEST(TestModelBinder)
#include "TestModelBinder.moc"
