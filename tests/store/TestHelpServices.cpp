#include "support/FakeLauncher.h"
#include "support/FakePrompter.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "base/AppState.h"
#include "store/HelpServices.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

// The help menu's manual and system information, in a program folder of the test's making.
class TestHelpServices : public QObject {
    Q_OBJECT
private slots:
    void helpMenu_data()
    {
        QTest::addColumn<QString>("files"); // "|" between them; "bin/" holds programs
        QTest::addColumn<QString>("command");
        QTest::addColumn<QString>("done"); // "opened" or "started" with the file, or the box text
        const char* rows[][3] = { { "Web Manual/Index.html", "manual", "opened M" },
            { "Web Manual/Index.html", "manual, no viewer",
                "opened M;No association for file extension" },
            { "Web Manual/other.html", "manual", "File not found" },
            { "", "manual", "Path not found" },
            { "I/Web Manual/Index.html", "manual", "opened I/M" },
            { "I/Web Manual/Index.html|Web Manual/Index.html", "manual", "opened M" },
            { "bin/sysinfo-tool", "sysinfo", "System Information Is Unavailable At This Time" },
            { "bin/kinfocenter|bin/hardinfo|bin/xfce4-taskmanager", "sysinfo",
                "started bin/hardinfo" } };
        for (const auto& row : rows)
            QTest::addRow("%s %s", row[1], row[0])
                << row[0] << row[1] << QString(row[2]).replace("M", "Web Manual/Index.html");
    }
    void helpMenu()
    {
        QFETCH(QString, files);
        QFETCH(QString, command);
        QTemporaryDir dir;
        AppState state;
        state.ProgramDirectory = dir.path();
        FakeLauncher launcher;
        launcher.openResult = !command.endsWith(QLatin1String("no viewer"));
        FakePrompter prompter;
        HelpServices help(state, launcher, prompter);
        for (const QString& file : files.split('|', Qt::SkipEmptyParts)) {
            QDir().mkpath(QFileInfo(dir.filePath(file)).path());
            testfiles::writeAll(dir.filePath(file), "");
            QFile::setPermissions(dir.filePath(file), QFileDevice::Permissions(0x7700));
        }
        help.setInstalledManual(dir.filePath("I/Web Manual/Index.html"));
        help.setSearchPath({ dir.filePath("bin") });
        command == "sysinfo" ? help.StartSysInfo() : help.OpenOnlineManual();
        QStringList done;
        for (const QString& document : launcher.documents)
            done << "opened " + document;
        for (const auto& start : launcher.starts)
            done << "started " + start.program + start.arguments.join(' ');
        for (const auto& box : prompter.messages())
            done << box.title + ": " + box.text;
        QTEST(done.join(';').remove(dir.path() + '/').remove("TALAVEX: "), "done");
    }
};
TALAVEX_TEST(TestHelpServices)
#include "TestHelpServices.moc"
