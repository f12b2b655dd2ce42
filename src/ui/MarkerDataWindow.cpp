#include "MarkerDataWindow.h"

#include "ModelBinder.h"
#include "chart/ChartCursor.h"
#include "ui_MarkerDataWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLayout>

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
    for (QLabel* label :
        { ui_->lblTime, ui_->lblTemp, ui_->lblDeltaTime, ui_->lblDeltaTemp, ui_->lblRate })
        label->setFont(value);
    // The measurement from the pinned point stands apart from the plain read-out.
    QFont pinned = arial;
    pinned.setBold(true);
    ui_->lblPinned->setFont(pinned);
    ui_->lblPinned->setStyleSheet(QStringLiteral("color: #c05a00; padding-top: 6px;"));
    (new ModelBinder(model, *this))->check();
    fitContents();
    // The window grows when a point is pinned and shrinks back when it is dropped.
    connect(&model, &ViewModel::changed, this, &MarkerDataWindow::fitContents);
}

void MarkerDataWindow::fitContents()
{
    layout()->activate();
    const QSize size = layout()->sizeHint().expandedTo(QSize(240, 90));
    if (size != this->size())
        setFixedSize(size);
}

void MarkerDataWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        cursor_.Unpin();
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
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
