#pragma once

#include "chart/MarkerDataModel.h"

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <memory>

class ChartCursor;
class ModelBinder;
namespace Ui {
class frmMarkerData;
}

// CURSOR DATA: a small fixed window, in Arial, showing the time and the temperature under the
// chart's cursor and, while a point is pinned, the measurement from it. Its close box switches
// the cursor off; Escape drops the pinned point.
class MarkerDataWindow : public QWidget {
    Q_OBJECT
public:
    MarkerDataWindow(MarkerDataModel& model, ChartCursor& cursor, QWidget* owner);
    ~MarkerDataWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fitContents();

    std::unique_ptr<Ui::frmMarkerData> ui_;
    ChartCursor& cursor_;
};

// Creates the CURSOR DATA window on first use, for the cursor's commands.
class MarkerDataWindowHost : public QObject, public MarkerDataWindows {
    Q_OBJECT
public:
    MarkerDataWindowHost(MarkerDataModel& model, ChartCursor& cursor, QWidget* owner);
    ~MarkerDataWindowHost() override;

    MarkerDataWindow* window() const { return window_; }

    void showMarkerData() override;
    void unloadMarkerData() override;

private:
    MarkerDataModel& model_;
    ChartCursor& cursor_;
    QWidget* owner_;
    QPointer<MarkerDataWindow> window_;
};
