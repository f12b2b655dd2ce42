#include "support/AppRig.h"
#include "support/ReadOnlyDir.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"

#include "store/DataPointFiles.h"
#include "ui/ChartImageExport.h"
#include "xlsx/XlsxWorkbookWriter.h"

#include <QDir>
#include <QTest>
#include <cerrno>
#include <cstring>
#include <optional>
#include <qcustomplot.h>
#include <sys/mount.h>

namespace {
// A tmpfs of 64 KiB mounted on a folder while in scope; `why` says why it could not be.
struct SmallDisk {
    explicit SmallDisk(const QString& folder)
        : path(QFile::encodeName(folder))
    {
        if (::geteuid() != 0)
            why = QStringLiteral("mounting a tmpfs needs root");
        else if (::mount("tmpfs", path.constData(), "tmpfs", 0, "size=64k") != 0)
            why = QStringLiteral("no tmpfs could be mounted: ")
                + QString::fromLocal8Bit(std::strerror(errno));
    }
    ~SmallDisk()
    {
        if (why.isEmpty())
            ::umount2(path.constData(), MNT_DETACH);
    }
    QByteArray path;
    QString why;
};

enum Writer {
    SettingsAtExit,
    PortBindings,
    Plot,
    StoredPoints,
    StoredPointsAppended,
    TextReplaced,
    TextAppended,
    ChartImage,
    Workbook,
    LastObtained,
    LiveLogFile,
};
} // namespace

class TestFileFaults : public QObject {
    Q_OBJECT
private slots:
    // A full disk or a read-only folder: every file the program writes keeps its old bytes, and
    // the operator is told what was not saved and why. The live files of a run only fail to open.
    void everyWriterKeepsTheOldFile_data()
    {
        QTest::addColumn<int>("writer");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("title"); // of the box that tells
        QTest::addColumn<bool>("fullDisk");
        const struct {
            const char* name;
            Writer writer;
            const char* file;
            const char* title;
        } rows[] = {
            { "settings at exit", SettingsAtExit, "Settings.dat", "SETTINGS NOT SAVED" },
            { "port bindings", PortBindings, "Ports.dat", "SERIAL PORTS NOT SAVED" },
            { "plot", Plot, "plot.rec", "PLOT NOT SAVED" },
            { "stored points", StoredPoints, "DPStorage.dat", "DOWNLOADED DATA NOT SAVED" },
            { "stored points appended", StoredPointsAppended, "DPStorage.dat", "" },
            { "text file", TextReplaced, "export.txt", "FILE NOT SAVED" },
            { "text file appended", TextAppended, "export.txt", "FILE NOT SAVED" },
            { "chart image", ChartImage, "chart.png", "UNABLE TO EXPORT CHART" },
            { "workbook", Workbook, "book.xlsx", "EXCEL FILE NOT CREATED" },
            { "last obtained file", LastObtained, "LAST_OBTAINED_DATA_PTS.dat", "" },
            { "live log", LiveLogFile, "datatemp.dat", "" },
        };
        for (const auto& row : rows) {
            for (const bool full : { false, true }) {
                if (full && row.writer >= LastObtained)
                    continue;
                QTest::newRow(qPrintable(QStringLiteral("%1, %2").arg(QLatin1String(row.name),
                    full ? QStringLiteral("full disk") : QStringLiteral("read-only folder"))))
                    << int(row.writer) << row.file << row.title << full;
            }
        }
    }
    void everyWriterKeepsTheOldFile()
    {
        QFETCH(int, writer);
        QFETCH(QString, file);
        QFETCH(QString, title);
        QFETCH(bool, fullDisk);
        AppRig rig;
        Application& a = rig.app();
        QCustomPlot plot;
        ChartImageExport image(plot);
        a.chartExport.setWriter(&image);
        XlsxWorkbookWriter workbook;
        a.spreadsheet.setWriter(&workbook);
        std::optional<SmallDisk> disk;
        if (fullDisk) {
            disk.emplace(rig.dir.path());
            if (!disk->why.isEmpty())
                QSKIP(qPrintable(disk->why));
        }
        const QString path = rig.dir.filePath(file);
        const QByteArray before = "75\r\n";
        testfiles::writeAll(path, before);
        // Writable, so that a read-only folder alone must keep it, as root or not.
        QFile::setPermissions(path,
            QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ReadGroup
                | QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther);
        if (disk) { // every byte left taken
            QFile filler(rig.dir.filePath(QStringLiteral("filler")));
            QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
            while (filler.write(QByteArray(4096, 'x')) > 0) { }
        }
        const QString storedPoint = QStringLiteral("\r\n\t#001\t75\tDEG F\r\n");
        QString reason;
        {
            std::optional<ReadOnlyDir> readOnly;
            if (!fullDisk)
                readOnly.emplace(rig.dir.path());
            switch (Writer(writer)) {
            case SettingsAtExit:
                a.controller.Shutdown();
                break;
            case PortBindings:
                a.programParameters.Form_Load();
                a.programParametersModel.comDevice.setCaption(QStringLiteral("/dev/ttyUSB0"));
                a.programParameters.comDevice_Click();
                QCOMPARE(rig.portMap.device(1), QStringLiteral("/dev/ttyUSB0")); // for this run
                break;
            case Plot:
                a.chartCommands.SavePlot(path);
                break;
            case StoredPoints:
                a.acquisition.mnuDownloadData_Click();
                a.store.setText(storedPoint);
                a.acquisition.mnuDownloadData_Click();
                break;
            case StoredPointsAppended:
                a.store.setText(storedPoint);
                reason = SaveDataPointStorage(a.state, a.store, true).reason;
                break;
            case TextReplaced:
            case TextAppended:
                a.store.setText(QStringLiteral("76"));
                rig.prompter.files.push_back(path);
                rig.prompter.answers.push_back(
                    writer == TextAppended ? Prompter::Answer::Yes : Prompter::Answer::No);
                a.textExport.SaveFile();
                break;
            case ChartImage:
                a.chartExport.ExportChart(path);
                break;
            case Workbook:
                a.store.setText(storedPoint);
                rig.prompter.files.push_back(path);
                rig.prompter.answers.push_back(Prompter::Answer::Yes);
                a.spreadsheet.CreateExcelFileForDownLoadedData();
                break;
            case LastObtained:
            case LiveLogFile:
                rig.startSensing();
                QVERIFY(a.main.mnuSenseTemperature.checked());
                QVERIFY(!a.acquisition.lastObtainedFile().isOpen());
                QVERIFY(!a.acquisition.liveLog().isOpen());
                break;
            }
        }
        QCOMPARE(testfiles::readAll(path), before);
        QStringList files = QDir(rig.dir.path()).entryList(QDir::Files | QDir::Hidden);
        files.removeOne(QStringLiteral("filler"));
        QCOMPARE(files, QStringList { file });
        const QString why = fullDisk ? QStringLiteral("No space left on device")
                                     : QStringLiteral("Permission denied");
        if (writer == StoredPointsAppended)
            QCOMPARE(reason, why);
        if (title.isEmpty())
            return;
        QVERIFY(!rig.prompter.messages().empty());
        const Prompter::Message box = rig.prompter.messages().back();
        QCOMPARE(box.title, title);
        const QStringList lines = box.text.split(QStringLiteral("\r\n"));
        QVERIFY2(lines.contains(path) && lines.contains(why), qPrintable(box.text));
    }

    // Files far larger than any the program writes are not read at all, and the operator is
    // told the bound.
    void oversizedFilesAreNotRead_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("title");
        QTest::newRow("plot") << "big.rec"
                              << "UNABLE TO LOAD PLOT FILE";
        QTest::newRow("stored points") << "DPStorage.dat"
                                       << "FILE TOO LARGE";
    }
    void oversizedFilesAreNotRead()
    {
        QFETCH(QString, file);
        QFETCH(QString, title);
        AppRig rig;
        Application& a = rig.app();
        const QString path = rig.dir.filePath(file);
        QFile big(path);
        QVERIFY(big.open(QIODevice::WriteOnly));
        big.write("TALAVEX PLOT 1\r\n\t#001\t75\tDEG F\r\n");
        QVERIFY(big.resize(64 * 1024 * 1024 + 1));
        big.close();
        a.store.setText(QStringLiteral("kept"));
        const PlotData chart = a.chartCommands.TakePlot();
        if (file.endsWith(QLatin1String(".rec")))
            a.chartCommands.LoadPlot(path);
        else
            a.files.mnuDownloadedDataPoints_Click();
        QCOMPARE(a.store.text(), QStringLiteral("kept"));
        QVERIFY(a.chartCommands.TakePlot() == chart);
        const qsizetype at = rig.prompter.titles().indexOf(title);
        QVERIFY(at >= 0);
        const QString text = rig.prompter.messages().at(size_t(at)).text;
        QVERIFY2(text.contains(path) && text.contains(QLatin1String("64 MB")), qPrintable(text));
    }

    // A run whose files cannot be written goes on and says so, once per file: No keeps the
    // chart going, Yes stops the run.
    void liveFilesThatCannotBeWrittenAreTold_data()
    {
        QTest::addColumn<bool>("fullDisk"); // fills mid-run; else a read-only folder
        QTest::addColumn<bool>("stop");
        QTest::newRow("read-only folder, go on") << false << false;
        QTest::newRow("disk fills mid-run, go on") << true << false;
        QTest::newRow("disk fills mid-run, stop") << true << true;
    }
    void liveFilesThatCannotBeWrittenAreTold()
    {
        QFETCH(bool, fullDisk);
        QFETCH(bool, stop);
        AppRig rig;
        Application& a = rig.app();
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        std::optional<SmallDisk> disk;
        std::optional<ReadOnlyDir> readOnly;
        if (fullDisk) {
            disk.emplace(rig.dir.path());
            if (!disk->why.isEmpty())
                QSKIP(qPrintable(disk->why));
        } else {
            readOnly.emplace(rig.dir.path());
        }
        rig.prompter.answers.push_back(stop ? Prompter::Answer::Yes : Prompter::Answer::No);
        // Readings go on being plotted while a box is open.
        int plottedUnderBoxes = 0;
        rig.prompter.onShow = [&](const Prompter::Message& box) {
            if (box.title != QLatin1String("DATA FILE NOT WRITTEN"))
                return;
            const int before = rig.chart.pointCount(1);
            rig.feed("  83\x07");
            plottedUnderBoxes += rig.chart.pointCount(1) - before;
        };
        rig.startSensing();
        rig.feed("  80\x07");
        if (disk) { // every byte left taken
            QFile filler(rig.dir.filePath(QStringLiteral("filler")));
            QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
            while (filler.write(QByteArray(4096, 'x')) > 0) { }
        }
        // More than the slack of the files' last pages, then one reading after the boxes.
        for (int i = 0; i < 2000; ++i)
            rig.feed("  81\x07");
        QCoreApplication::processEvents();
        rig.feed("  82\x07");
        QCoreApplication::processEvents();
        const QString why = fullDisk ? QStringLiteral("No space left on device")
                                     : QStringLiteral("Permission denied");
        QStringList told;
        for (const Prompter::Message& box : rig.prompter.messages()) {
            if (box.title != QLatin1String("DATA FILE NOT WRITTEN"))
                continue;
            const QStringList lines = box.text.split(QStringLiteral("\r\n"));
            QVERIFY2(lines.size() > 2 && lines.at(2) == why, qPrintable(box.text));
            told << QFileInfo(lines.at(1)).fileName();
        }
        // Yes stops the run at the first box; No asks once for each file and goes on.
        const QStringList files
            = { QStringLiteral("LAST_OBTAINED_DATA_PTS.dat"), QStringLiteral("datatemp.dat") };
        QCOMPARE(told, stop ? files.mid(0, 1) : files);
        QCOMPARE(a.main.mnuSenseTemperature.checked(), !stop);
        QCOMPARE(plottedUnderBoxes, told.size());
        QCOMPARE(rig.chart.pointCount(1) - 1, stop ? 2002 : 2004);
    }
};
TALAVEX_TEST(TestFileFaults)
#include "TestFileFaults.moc"
