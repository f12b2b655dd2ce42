#pragma once

#include "GraphSettingsDialog.h"
#include "StoredPointsWindow.h"
#include "SystemStatusWindow.h"
#include "link/AcquisitionWindows.h"

#include <QMainWindow>
#include <QPointer>
#include <memory>

class Application;
class DemoWindowHost;
class ModelBinder;
class ProgramParametersDialog;
class TempBarWindowHost;
namespace Ui {
class frmMain;
}

// The main window: renders the main window model, forwards menu commands and button clicks to
// the controllers, and opens the other windows on their first use.
class MainWindow : public QMainWindow, public AcquisitionWindows {
    Q_OBJECT
public:
    MainWindow(Application& app, QWidget* chart, QWidget* parent = nullptr);
    ~MainWindow() override;

    StoredPointsWindow* storedPointsWindow() const { return storedPoints_; }
    SystemStatusWindow* systemStatusWindow() const { return systemStatus_; }
    TempBarWindowHost* tempBarWindows() const { return tempBarWindows_; }
    DemoWindowHost* demoWindows() const { return demoWindows_; }
    GraphSettingsDialog* graphSettingsWindow() const { return graphSettings_; }

    // AcquisitionWindows
    void showStoredPointsWindow() override;
    void unloadStoredPointsWindow() override;
    void unloadSystemStatusWindow() override;
    void statusScanForIrSystem() override { }
    void statusSetToIdle() override { }
    TempBarDisplay* tempBar() override { return nullptr; }
    void setChartSettingsInputsEnabled(bool) override { }
    void offerToSavePlot() override { }

    void mnuViewSystemStatus_Click();
    void mnuSystemSetup_Click();
    void mnuAbout_Click();
    // The graph settings panel, created on first use and shown beside the chart.
    void mnuChartParameters_Click();

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void bindCommands();
    // The chart's menu commands, RESET CHART, the mouse on the chart and its notices.
    void bindChartCommands(QWidget* chart);
    void styleReadout();

    Application& app_;
    std::unique_ptr<Ui::frmMain> ui_;
    ModelBinder* binder_ = nullptr;
    QPointer<StoredPointsWindow> storedPoints_;
    QPointer<GraphSettingsDialog> graphSettings_;
    QPointer<SystemStatusWindow> systemStatus_;
    TempBarWindowHost* tempBarWindows_ = nullptr;
    DemoWindowHost* demoWindows_ = nullptr;
};
