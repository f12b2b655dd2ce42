#include "support/FakeLauncher.h"
#include "support/FakePrompter.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "store/HelpServices.h"
#include "ui/AboutDialog.h"

#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

class TestAboutDialog : public QObject {
    Q_OBJECT
private slots:
    void logoAndButtons()
    {
        AppState state;
        FakeLauncher launcher;
        FakePrompter prompter;
        HelpServices help(state, launcher, prompter);
        QTemporaryDir emptyPath;
        help.setSearchPath({ emptyPath.path() });
        AboutDialog about(help);
        QCOMPARE(about.objectName(), QStringLiteral("frmAbout"));
        auto* logo = about.findChild<QLabel*>(QStringLiteral("Picture1"));
        QVERIFY(logo && !logo->pixmap().isNull());
        // The logo is drawn, not an empty square.
        const QImage picture = logo->pixmap().toImage();
        QVERIFY(picture.pixelColor(picture.width() / 2, picture.height() / 2).alpha() > 0);

        auto* sysInfo = about.findChild<QPushButton*>(QStringLiteral("cmdSysInfo"));
        QVERIFY(sysInfo);
        QCOMPARE(sysInfo->text(), QStringLiteral("&System Info..."));
        sysInfo->click();
        QCOMPARE(prompter.messages().size(), size_t(1));
        QCOMPARE(prompter.messages().front().text,
            QStringLiteral("System Information Is Unavailable At This Time"));

        auto* ok = about.findChild<QPushButton*>(QStringLiteral("cmdOK"));
        QVERIFY(ok);
        QCOMPARE(ok->text(), QStringLiteral("OK"));
        about.show();
        ok->click();
        QVERIFY(!about.isVisible());
        QCOMPARE(about.result(), int(QDialog::Accepted));
    }
};

TALAVEX_TEST(TestAboutDialog)
#include "TestAboutDialog.moc"
