#include "MainWindow.h"

#include "AboutDialog.h"
#include "ChartImageExport.h"
#include "ChartMouse.h"
#include "DemoWindowHost.h"
#include "MarkerDataWindow.h"
#include "ModelBinder.h"
#include "ProgramParametersDialog.h"
#include "QCustomPlotSurface.h"
#include "StoredPointsWindow.h"
#include "SystemStatusWindow.h"
#include "TempBarWindowHost.h"
#include "app/Application.h"
#include "ui_MainWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QStatusBar>
#include <algorithm>
#include <qcustomplot.h>

MainWindow::MainWindow(Application& app, QWidget* chart, QWidget* parent)
    : QMainWindow(parent)
    , app_(app)
    , ui_(std::make_unique<Ui::frmMain>())
{
    ui_->setupUi(this);
    if (chart) {
        // The chart takes the place the form keeps for it.
        QWidget* placeholder = ui_->TempChart;
        chart->setObjectName(QStringLiteral("TempChart"));
        chart->setSizePolicy(placeholder->sizePolicy());
        chart->setMinimumSize(placeholder->minimumSize());
        delete ui_->mainLayout->replaceWidget(placeholder, chart);
        placeholder->deleteLater();
        ui_->TempChart = chart;
    }
    styleReadout();
    // The held view's notice stays at the right of the status bar, beside passing messages.
    auto* viewHeld = new QLabel(statusBar());
    viewHeld->setObjectName(QStringLiteral("lblViewHeld"));
    QFont bold = viewHeld->font();
    bold.setBold(true);
    viewHeld->setFont(bold);
    statusBar()->addPermanentWidget(viewHeld);
    binder_ = new ModelBinder(app_.main, *this);
    // The current reading is shown as often as the chart is drawn while readings stream in.
    binder_->throttle({ QStringLiteral("lblCurrentTemp"), QStringLiteral("lblStatCurrentTemp") },
        QCustomPlotSurface::LiveMs);
    tempBarWindows_ = new TempBarWindowHost(app_, this);
    demoWindows_ = new DemoWindowHost(app_, *this);
    bindCommands();
    bindChartCommands(chart);
    binder_->check();
    app_.setWindowHost(this);
}

MainWindow::~MainWindow()
{
    app_.setWindowHost(nullptr);
    app_.chart.setOverflowNotice(nullptr);
    app_.chartCommands.setBusyIndicator(nullptr);
    app_.chartExport.setWriter(nullptr);
}

void MainWindow::styleReadout()
{
    // The current reading is shown large on black, so green, yellow and red stand out.
    QFont big = ui_->lblCurrentTemp->font();
    big.setPointSize(28);
    big.setBold(true);
    ui_->lblCurrentTemp->setFont(big);
    // A fixed size for the widest reading: a new value repaints the label alone instead of
    // laying the window out again, which matters at dozens of readings a second.
    const QFontMetrics metrics(big);
    ui_->lblCurrentTemp->setFixedSize(std::max(metrics.horizontalAdvance(QStringLiteral("-32768"))
                                              + 2 * metrics.averageCharWidth(),
                                          ui_->lblCurrentTemp->minimumWidth()),
        std::max(metrics.height() + metrics.descent(), ui_->lblCurrentTemp->minimumHeight()));
    ui_->currentTempLayout->setAlignment(ui_->lblCurrentTemp, Qt::AlignHCenter);
    // Colours through palettes rather than style sheets: a reading that changes the colour then
    // only repaints the labels. Filled with their own opaque background, the labels repaint
    // alone, not the panel under them too.
    QPalette panel = ui_->fraCurrentTemp->palette();
    panel.setColor(QPalette::Window, QColor(0x10, 0x10, 0x10));
    panel.setColor(QPalette::WindowText, QColor(0x00, 0xff, 0x00));
    for (QWidget* widget : std::initializer_list<QWidget*> {
             ui_->fraCurrentTemp, ui_->lblCurrentTemp, ui_->lblStatCurrentTemp }) {
        widget->setPalette(panel);
        widget->setAutoFillBackground(true);
    }
    QFont caption = ui_->lblParametersTitle->font();
    caption.setBold(true);
    ui_->lblParametersTitle->setFont(caption);
}

void MainWindow::bindCommands()
{
    Application& a = app_;
    auto on = [this](const char* name, std::function<void()> handler) {
        binder_->onTriggered(QString::fromLatin1(name), std::move(handler));
    };
    on("mnuSenseTemperature", [&a] { a.acquisition.mnuSenseTemperature_Click(); });
    on("mnuDownloadData", [&a] { a.acquisition.mnuDownloadData_Click(); });
    on("mnuStop", [&a] { a.acquisition.mnuStop_Click(); });
    on("mnuRealTimeGraphOn", [&a] { a.controller.mnuRealTimeGraphOn_Click(); });
    on("mnuAutoCompressed", [&a] { a.controller.mnuAutoCompressed_Click(); });
    on("mnuAutoScaleYAxis", [&a] { a.controller.mnuAutoScaleYAxis_Click(); });
    on("mnuRefreshChart", [&a] { a.controller.mnuRefreshChart_Click(); });
    on("mnuCopyChart", [&a] { a.controller.mnuCopyChart_Click(); });
    on("mnuIniChart", [&a] { a.controller.mnuIniChart_Click(); });
    on("mnuClearChart", [&a] { a.controller.mnuClearChart_Click(); });
    on("mnuCreateSettingsFile", [&a] { a.controller.mnuCreateSettingsFile_Click(); });
    on("mnuExit", [&a] { a.controller.Shutdown(); });
    on("mnuViewSystemStatus", [this] { mnuViewSystemStatus_Click(); });
    on("mnuViewTempBar", [&a] { a.tempBarWindow.mnuViewTempBar_Click(); });
    on("mnuSystemSetup", [this] { mnuSystemSetup_Click(); });
    on("mnuOnlineManual", [&a] { a.help.OpenOnlineManual(); });
    on("mnuAbout", [this] { mnuAbout_Click(); });
    on("mnuChartParameters", [this] { mnuChartParameters_Click(); });
    binder_->onClicked(QStringLiteral("cmdExit"), [&a] { a.controller.Shutdown(); });
    // Data files
    on("mnuSaveFile", [&a] { a.files.mnuSaveFile_Click(); });
    on("mnuLoadFile", [&a] { a.files.mnuLoadFile_Click(); });
    on("mnuCreateExcelFile", [&a] { a.files.mnuCreateExcelFile_Click(); });
    on("mnuTextStamp", [&a] { a.files.mnuTextStamp_Click(); });
    on("mnuNewAcquiredDataPoints", [&a] { a.files.mnuNewAcquiredDataPoints_Click(); });
    on("mnuDownloadedDataPoints", [&a] { a.files.mnuDownloadedDataPoints_Click(); });
    // &DEMO CONTROLS
    on("mnuTestFunction", [&a] { a.demo.mnuTestFunction_Click(); });
    on("mnuSearchForIR", [&a] { a.demo.mnuSearchForIR_Click(); });
    on("mnuControlTester", [&a] { a.demo.mnuControlTester_Click(); });
    on("mnuSplash", [&a] { a.demo.mnuSplash_Click(); });
}

void MainWindow::bindChartCommands(QWidget* chart)
{
    ChartCommands& c = app_.chartCommands;
    auto on = [this](const char* name, std::function<void()> handler) {
        binder_->onTriggered(QString::fromLatin1(name), std::move(handler));
    };
    on("mnuShowAllPts", [&c] { c.mnuShowAllPts_Click(); });
    on("mnuDispLimits", [&c] { c.mnuDispLimits_Click(); });
    on("mnuSavePlotToFile", [&c] { c.mnuSavePlotToFile_Click(); });
    on("mnuLoadPlotFile", [&c] { c.mnuLoadPlotFile_Click(); });
    binder_->onClicked(QStringLiteral("cmdResetChart"), [&c] { c.cmdResetChart_Click(); });
    ChartAppearance& look = app_.appearance;
    on("mnuStandardChart", [&look] { look.mnuStandardChart_Click(); });
    on("mnuScopeChart", [&look] { look.mnuScopeChart_Click(); });
    on("mnuPlainChart", [&look] { look.mnuPlainChart_Click(); });
    c.setBusyIndicator([](bool busy) {
        if (busy)
            QApplication::setOverrideCursor(Qt::WaitCursor);
        else
            QApplication::restoreOverrideCursor();
    });
    app_.chart.setOverflowNotice(
        [this](const QString& what) { statusBar()->showMessage(what, 10000); });
    if (auto* plot = qobject_cast<QCustomPlot*>(chart))
        new ChartMouse(*plot, c, this);

    // The cursor: its button, its window, and the mouse over the chart.
    ChartCursor& cursor = app_.cursor;
    new MarkerDataWindowHost(app_.markerDataModel, cursor, this);
    binder_->onClicked(QStringLiteral("cmdMarkers"), [&cursor] { cursor.cmdMarkers_Click(); });
    if (auto* plot = qobject_cast<QCustomPlot*>(chart)) {
        new CursorMouse(*plot, cursor, this);
        // EXPORT CHART...
        app_.chartExport.setWriter(new ChartImageExport(*plot, this));
    }
    on("mnuExportChart", [this] { app_.chartExport.mnuExportChart_Click(); });
}

void MainWindow::showStoredPointsWindow()
{
    if (!storedPoints_)
        storedPoints_
            = new StoredPointsWindow(app_.storedPointsModel, app_.storedPoints, app_.store, this);
    storedPoints_->load();
}

void MainWindow::unloadStoredPointsWindow()
{
    if (storedPoints_)
        storedPoints_->unload();
}

void MainWindow::unloadSystemStatusWindow()
{
    if (systemStatus_)
        systemStatus_->close();
    app_.main.mnuViewSystemStatus.setChecked(false);
}

void MainWindow::mnuViewSystemStatus_Click()
{
    if (systemStatus_ && systemStatus_->isVisible()) {
        systemStatus_->close();
        app_.main.mnuViewSystemStatus.setChecked(false);
        return;
    }
    if (!systemStatus_) {
        systemStatus_ = new SystemStatusWindow(app_.state, app_.irSystem, this);
        systemStatus_->installEventFilter(this);
    }
    systemStatus_->show();
    systemStatus_->raise();
    app_.main.mnuViewSystemStatus.setChecked(true);
}

void MainWindow::mnuAbout_Click()
{
    AboutDialog about(app_.help, this);
    about.exec();
}

void MainWindow::mnuChartParameters_Click()
{
    if (!graphSettings_)
        graphSettings_ = new GraphSettingsDialog(app_.graphSettingsModel, app_.graphSettings, this);
    graphSettings_->show();
    graphSettings_->raise();
    graphSettings_->activateWindow();
}

void MainWindow::mnuSystemSetup_Click()
{
    ProgramParametersDialog dialog(app_.programParametersModel, app_.programParameters, this);
    dialog.exec();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event)
{
    // The status window closed by its own title bar: the menu's check mark follows.
    if (watched == systemStatus_ && event->type() == QEvent::Hide)
        app_.main.mnuViewSystemStatus.setChecked(false);
    return QMainWindow::eventFilter(watched, event);
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    app_.controller.Shutdown();
    event->accept();
}
