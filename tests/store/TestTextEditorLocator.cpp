#include "support/TestRegistry.h"

#include "store/TextEditorLocator.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
void writeFile(const QString& path, const QByteArray& bytes, bool executable = false)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
    f.close();
    if (executable)
        f.setPermissions(f.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser);
}

// A desktop of its own: configuration, data and PATH folders in a temporary directory.
struct Desktop {
    Desktop()
    {
        search.configDirs = { dir.filePath("config") };
        search.dataDirs = { dir.filePath("local"), dir.filePath("share") };
        search.pathDirs = { dir.filePath("bin") };
        search.desktops = { "xfce" };
        QDir().mkpath(dir.filePath("bin"));
    }
    QString program(const char* name)
    {
        const QString path = dir.filePath(QStringLiteral("bin/") + QLatin1String(name));
        writeFile(path, "#!/bin/sh\n", true);
        return path;
    }
    void entry(const char* id, const QByteArray& body, const char* data = "share")
    {
        writeFile(dir.filePath(QStringLiteral("%1/applications/%2").arg(data, id)),
            "[Desktop Entry]\nType=Application\n" + body);
    }
    void defaultFor(const QByteArray& ids, const char* list = "config/mimeapps.list")
    {
        writeFile(dir.filePath(list),
            "[Added Associations]\nimage/png=viewer.desktop\n\n"
            "[Default Applications]\ntext/html=browser.desktop\n"
            "text/plain="
                + ids + "\n");
    }

    QTemporaryDir dir;
    EditorSearch search;
};
} // namespace

class TestTextEditorLocator : public QObject {
    Q_OBJECT
private slots:
    void parseExec_data()
    {
        QTest::addColumn<QString>("exec");
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        auto row = [](const char* name, const char* exec, const char* program,
                       const QStringList& arguments) {
            QTest::newRow(name) << QString(exec) << QString(program) << arguments;
        };
        row("field code dropped", "gedit %U", "gedit", {});
        row("options kept", "kate -b %U", "kate", { "-b" });
        row("quoted program", "\"/opt/my editor/edit\" --new %f", "/opt/my editor/edit",
            { "--new" });
        row("escaped quote", "\"/opt/a\\\"b/ed\"", "/opt/a\"b/ed", {});
        row("env assignments skipped", "env GDK_BACKEND=x11 LANG=C mousepad %F", "mousepad", {});
        row("forwarding markers dropped", "flatpak run org.x.Ed @@u %U @@", "flatpak",
            { "run", "org.x.Ed" });
        row("empty", "", "", {});
        row("only env", "env A=1", "", {});
    }
    void parseExec()
    {
        QFETCH(QString, exec);
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        const EditorCommand command = TextEditorLocator::ParseExec(exec);
        QCOMPARE(command.program, program);
        QCOMPARE(command.arguments, arguments);
    }

    void registeredEditorFirst()
    {
        Desktop d;
        const QString mine = d.program("myedit");
        d.program("gedit");
        d.entry("my.desktop", "Exec=myedit --tab %F\n");
        d.defaultFor("my.desktop;");
        TextEditorLocator locator(d.search);
        QString path;
        QVERIFY(locator.FindNotepad(path));
        QCOMPARE(path, mine);
        QCOMPARE(locator.argumentsFor(mine), QStringList { "--tab" });
        QCOMPARE(locator.argumentsFor(QStringLiteral("/usr/bin/other")), QStringList());
    }

    void desktopListAndDataListsAreRead_data()
    {
        QTest::addColumn<QString>("list");
        QTest::newRow("desktop's own list") << "config/xfce-mimeapps.list";
        QTest::newRow("applications list") << "local/applications/mimeapps.list";
    }
    void desktopListAndDataListsAreRead()
    {
        QFETCH(QString, list);
        Desktop d;
        const QString mine = d.program("myedit");
        d.entry("my.desktop", "Exec=myedit %f\n");
        d.defaultFor("my.desktop", list.toLatin1().constData());
        TextEditorLocator locator(d.search);
        QString path;
        QVERIFY(locator.FindNotepad(path));
        QCOMPARE(path, mine);
    }

    void unusableEntriesArePassedOver_data()
    {
        QTest::addColumn<QByteArray>("entry");
        QTest::newRow("needs a terminal") << QByteArray("Exec=myedit %f\nTerminal=true\n");
        QTest::newRow("hidden") << QByteArray("Exec=myedit %f\nHidden=true\n");
        QTest::newRow("program missing") << QByteArray("Exec=nothere %f\n");
        QTest::newRow("no Exec line") << QByteArray("Name=Editor\n");
    }
    void unusableEntriesArePassedOver()
    {
        QFETCH(QByteArray, entry);
        Desktop d;
        d.program("myedit");
        const QString common = d.program("mousepad");
        d.entry("my.desktop", entry);
        d.defaultFor("my.desktop");
        TextEditorLocator locator(d.search);
        QString path;
        QVERIFY(locator.FindNotepad(path));
        QCOMPARE(path, common);
        QVERIFY(locator.argumentsFor(common).isEmpty());
    }

    void firstUsableOfSeveral()
    {
        Desktop d;
        const QString second = d.program("second");
        d.entry("vim.desktop", "Exec=vim %F\nTerminal=true\n");
        d.entry("second.desktop", "Exec=second %F\n");
        writeFile(d.dir.filePath("share/applications/mimeinfo.cache"),
            "[MIME Cache]\ntext/plain=vim.desktop;second.desktop;\n");
        TextEditorLocator locator(d.search);
        QString path;
        QVERIFY(locator.FindNotepad(path));
        QCOMPARE(path, second);
    }

    // Without a registered editor: the remembered path if it is a program, else the common
    // editors on the PATH in their order.
    void pathWithoutRegistration_data()
    {
        QTest::addColumn<QStringList>("programs"); // on the PATH
        QTest::addColumn<QString>("remembered"); // relative to the desktop's folder
        QTest::addColumn<QString>("found");
        QTest::newRow("remembered path first") << QStringList { "chosen", "gedit" } << "bin/chosen"
                                               << "bin/chosen";
        QTest::newRow("remembered path that is no program")
            << QStringList { "gedit" } << "notes.txt"
            << "bin/gedit";
        QTest::newRow("common editors in order") << QStringList { "geany", "kate" } << ""
                                                 << "bin/kate";
    }
    void pathWithoutRegistration()
    {
        QFETCH(QStringList, programs);
        QFETCH(QString, remembered);
        QFETCH(QString, found);
        Desktop d;
        for (const QString& name : programs)
            d.program(name.toLatin1().constData());
        writeFile(d.dir.filePath("notes.txt"), "text");
        TextEditorLocator locator(d.search);
        QString path = remembered.isEmpty() ? QString() : d.dir.filePath(remembered);
        QVERIFY(locator.FindNotepad(path));
        QCOMPARE(path, d.dir.filePath(found));
    }

    void noneFound()
    {
        Desktop d;
        writeFile(d.dir.filePath("bin/gedit"), "not executable");
        TextEditorLocator locator(d.search);
        QString path = QStringLiteral("/nonexistent/NOTEPAD.EXE");
        QVERIFY(!locator.FindNotepad(path));
        QVERIFY(path.isEmpty());
    }
};
TALAVEX_TEST(TestTextEditorLocator)
#include "TestTextEditorLocator.moc"
