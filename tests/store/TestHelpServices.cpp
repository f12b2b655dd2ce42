#include "base/AppState.h"
#include "store/HelpServices.h"
#include "support/FakeLauncher.h"
#include "support/FakePrompter.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

// The manual and the system information viewer, from a program folder of the test's making.
class TestHelpServices : public QObject {
    Q_OBJECT
private slots:
    void helpMenu_data()
    {
        QTest::addColumn<QString>("row"); // files (bin/ holds programs) = command = what happened
        for (const char* row :
            { "@=manual=opened @", "@=manual, no viewer=opened @;No association for file extension",
                "Web Manual/other.html=manual=File not found", "=manual=Path not found",
                "I/@=manual=opened I/@", "I/@;@=manual=opened @",
                "bin/x=sysinfo=System Information Is Unavailable At This Time",
                "bin/kinfocenter;bin/hardinfo=sysinfo=started bin/hardinfo" })
            QTest::newRow(row) << QString(row).replace("@", "Web Manual/Index.html");
    }
    void helpMenu()
    {
        QFETCH(QString, row);
        QTemporaryDir dir;
        AppState state;
        state.ProgramDirectory = dir.path();
        FakeLauncher launcher;
        launcher.openResult = !row.contains("no viewer");
        FakePrompter prompter;
        HelpServices help(state, launcher, prompter);
        for (const QString& file : row.section('=', 0, 0).split(';', Qt::SkipEmptyParts)) {
            QDir().mkpath(QFileInfo(dir.filePath(file)).path());
            testfiles::writeAll(dir.filePath(file), "");
            QFile::setPermissions(dir.filePath(file), QFileDevice::Permissions(0x7700));
        }
        help.setInstalledManual(dir.filePath("I/Web Manual/Index.html"));
        help.setSearchPath({ dir.filePath("bin") });
        row.contains("=sysinfo=") ? help.StartSysInfo() : help.OpenOnlineManual();
        QStringList done;
        for (const QString& document : launcher.documents)
            done << "opened " + document;
        for (const auto& start : launcher.starts)
            done << "started " + start.program;
        for (const auto& box : prompter.messages())
            done << box.title + ": " + box.text;
        QCOMPARE(done.join(';').remove(dir.path() + '/').remove("TALAVEX: "), row.section('=', 2));
    }
};
TALAVEX_TEST(TestHelpServices)
#include "TestHelpServices.moc"
