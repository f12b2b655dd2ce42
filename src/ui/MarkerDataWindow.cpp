#include "MarkerDataWindow.h"

#include "ModelBinder.h"
#include "chart/ChartCursor.h"
#include "ui_MarkerDataWindow.h"

#include <QCloseEvent>

MarkerDataWindow::MarkerDataWindow(MarkerDataModel& model, ChartCursor& cursor, QWidget* owner)
    : QWidget(owner, Qt::Tool | Qt::WindowCloseButtonHint | Qt::WindowTitleHint)
    , ui_(std::make_unique<Ui::frmMarkerData>())
    , cursor_(cursor)
{
    ui_->setupUi(this);
    QFont arial(QStringLiteral("Arial"));
    arial.setPointSize(10);
    setFont(arial);
    QFont value = arial;
    value.setPointSize(12);
    value.setBold(true);
    ui_->lblTime->setFont(value);
    ui_->lblTemp->setFont(value);
    new ModelBinder(model, *this);
    setFixedSize(sizeHint().expandedTo(QSize(240, 90)));
}

MarkerDataWindow::~MarkerDataWindow() = default;

void MarkerDataWindow::closeEvent(QCloseEvent* event)
{
    cursor_.frmMarkerData_Unload();
    event->accept();
}

MarkerDataWindowHost::MarkerDataWindowHost(
    MarkerDataModel& model, ChartCursor& cursor, QWidget* owner)
    : QObject(owner)
    , model_(model)
    , cursor_(cursor)
    , owner_(owner)
{
    cursor_.setWindows(this);
}

MarkerDataWindowHost::~MarkerDataWindowHost() { cursor_.setWindows(nullptr); }

void MarkerDataWindowHost::showMarkerData()
{
    if (!window_)
        window_ = new MarkerDataWindow(model_, cursor_, owner_);
    window_->show();
    window_->raise();
}

void MarkerDataWindowHost::unloadMarkerData()
{
    // The cursor is already off.
    if (window_)
        window_->hide();
}
