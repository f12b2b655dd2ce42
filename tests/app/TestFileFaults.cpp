#include "store/DataPointFiles.h"
#include "support/AppRig.h"
#include "support/ReadOnlyDir.h"
#include "support/TestFiles.h"
#include "support/TestRegistry.h"
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
            why = QStringLiteral("no tmpfs could be mounted: ") + std::strerror(errno);
    }
    ~SmallDisk()
    {
        if (why.isEmpty())
            ::umount2(path.constData(), MNT_DETACH);
    }
    // Takes every byte left.
    void fill()
    {
        QFile filler(QFile::decodeName(path) + QStringLiteral("/filler"));
        QVERIFY(filler.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        while (filler.write(QByteArray(4096, 'x')) > 0) { }
    }
    QByteArray path;
    QString why;
};

enum Writer { Exit, Binding, Plot, Kept, KeptMore, Saved, SavedMore, Image, Book, Run };
} // namespace

class TestFileFaults : public QObject {
    Q_OBJECT
private slots:
    // A full disk or a read-only folder: every file keeps its old bytes and the operator is told.
    void everyWriterKeepsTheOldFile_data()
    {
        QTest::addColumn<int>("writer");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("title"); // of the box that tells
        QTest::addColumn<bool>("fullDisk");
        const char* rows[][2] = { { "Settings.dat", "SETTINGS NOT SAVED" },
            { "Ports.dat", "SERIAL PORTS NOT SAVED" }, { "plot.rec", "PLOT NOT SAVED" },
            { "DPStorage.dat", "DOWNLOADED DATA NOT SAVED" }, { "DPStorage.dat", "" },
            { "export.txt", "FILE NOT SAVED" }, { "export.txt", "FILE NOT SAVED" },
            { "chart.png", "UNABLE TO EXPORT CHART" }, { "book.xlsx", "EXCEL FILE NOT CREATED" },
            { "LAST_OBTAINED_DATA_PTS.dat", "DATA FILE NOT WRITTEN" },
            { "datatemp.dat", "DATA FILE NOT WRITTEN" } };
        for (int row = 0; row < 11; ++row) {
            for (const bool full : { false, true }) {
                if (!full || row < Run)
                    QTest::addRow("%d %s, %s", row, rows[row][0], full ? "full" : "read-only")
                        << std::min(row, int(Run)) << rows[row][0] << rows[row][1] << full;
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
        testfiles::writeAll(path, "75\r\n");
        // Writable, so that a read-only folder alone must keep it, as root or not.
        QFile::setPermissions(path, QFileDevice::Permissions(0x6666));
        if (disk)
            disk->fill();
        const QString storedPoint = QStringLiteral("\r\n\t#001\t75\tDEG F\r\n");
        QString reason;
        {
            std::optional<ReadOnlyDir> readOnly;
            if (!fullDisk)
                readOnly.emplace(rig.dir.path());
            switch (Writer(writer)) {
            case Exit:
                a.controller.Shutdown();
                break;
            case Binding:
                a.programParameters.Form_Load();
                a.programParametersModel.comDevice.setCaption(QStringLiteral("/dev/ttyUSB0"));
                a.programParameters.comDevice_Click();
                QCOMPARE(rig.portMap.device(1), QStringLiteral("/dev/ttyUSB0")); // for this run
                break;
            case Plot:
                a.chartCommands.SavePlot(path);
                break;
            case Kept:
                a.acquisition.mnuDownloadData_Click();
                a.store.setText(storedPoint);
                a.acquisition.mnuDownloadData_Click();
                break;
            case KeptMore:
                a.store.setText(storedPoint);
                reason = SaveDataPointStorage(a.state, a.store, true).reason;
                break;
            case Saved:
            case SavedMore:
                a.store.setText(QStringLiteral("76"));
                rig.prompter.files.push_back(path);
                rig.prompter.answers.push_back(
                    writer == SavedMore ? Prompter::Answer::Yes : Prompter::Answer::No);
                a.textExport.SaveFile();
                break;
            case Image:
                a.chartExport.ExportChart(path);
                break;
            case Book:
                a.store.setText(storedPoint);
                rig.prompter.files.push_back(path);
                rig.prompter.answers.push_back(Prompter::Answer::Yes);
                a.spreadsheet.CreateExcelFileForDownLoadedData();
                break;
            case Run: // told once a file: Yes on the first stops the run, No goes on
                rig.prompter.answers.push_back(
                    file.startsWith('L') ? Prompter::Answer::Yes : Prompter::Answer::No);
                rig.startSensing();
                QCoreApplication::processEvents();
                QVERIFY(!a.acquisition.lastObtainedFile().isOpen()
                    && !a.acquisition.liveLog().isOpen());
                QCOMPARE(rig.prompter.titles().size(), file.startsWith('L') ? 1 : 2);
                QCOMPARE(a.main.mnuSenseTemperature.checked(), !file.startsWith('L'));
                break;
            }
        }
        QCOMPARE(testfiles::readAll(path), QByteArray("75\r\n"));
        QStringList files = QDir(rig.dir.path()).entryList(QDir::Files | QDir::Hidden);
        files.removeOne(QStringLiteral("filler"));
        QCOMPARE(files, QStringList { file });
        const QString why = fullDisk ? "No space left on device" : "Permission denied";
        if (writer == KeptMore)
            QCOMPARE(reason, why);
        if (title.isEmpty())
            return;
        QVERIFY(!rig.prompter.messages().empty());
        const Prompter::Message box = rig.prompter.messages().back();
        QCOMPARE(box.title, title);
        const QStringList lines = box.text.split(QStringLiteral("\r\n"));
        QVERIFY2(lines.contains(path) && box.text.contains(why), qPrintable(box.text));
    }
    // The disk fills in the middle of a run: each file is told once, with the system's reason,
    // readings go on being plotted while a box is open, and No goes on with the chart only.
    void diskFillingMidRunIsTold()
    {
        AppRig rig;
        Application& a = rig.app();
        SmallDisk disk(rig.dir.path());
        if (!disk.why.isEmpty())
            QSKIP(qPrintable(disk.why));
        a.state.Instrument.interval = SamplingInterval(QStringLiteral("1"));
        rig.prompter.answers = { Prompter::Answer::No, Prompter::Answer::No };
        int plottedUnderBoxes = 0;
        rig.prompter.onShow = [&](const Prompter::Message&) {
            const int before = rig.chart.pointCount(1);
            rig.feed("  83\x07");
            plottedUnderBoxes += rig.chart.pointCount(1) - before;
        };
        rig.startSensing();
        rig.feed("  80\x07");
        disk.fill();
        for (int i = 0; i < 2000; ++i) // more than the slack of the files' last pages
            rig.feed("  81\x07");
        QCoreApplication::processEvents();
        QStringList told;
        for (const Prompter::Message& box : rig.prompter.messages()) {
            const QStringList lines = box.text.split(QStringLiteral("\r\n"));
            QVERIFY2(box.title == "DATA FILE NOT WRITTEN" && lines.size() > 2
                    && lines.at(2) == "No space left on device",
                qPrintable(box.text));
            told << QFileInfo(lines.at(1)).fileName();
        }
        QCOMPARE(told, QStringList({ "LAST_OBTAINED_DATA_PTS.dat", "datatemp.dat" }));
        QCOMPARE(plottedUnderBoxes, 2);
        QVERIFY(a.main.mnuSenseTemperature.checked());
        QCOMPARE(rig.chart.pointCount(1) - 1, 2003);
    }
};
TALAVEX_TEST(TestFileFaults)
#include "TestFileFaults.moc"
