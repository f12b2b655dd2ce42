#include "StoredPointsWindow.h"

#include "ModelBinder.h"
#include "link/StoredPointsController.h"
#include "link/StoredPointsModel.h"
#include "store/DataPointStore.h"
#include "ui_StoredPointsWindow.h"

#include <QCloseEvent>
#include <QScrollBar>

StoredPointsWindow::StoredPointsWindow(StoredPointsModel& model, StoredPointsController& controller,
    DataPointStore& store, QWidget* parent)
    : QWidget(parent, Qt::Window)
    , ui_(std::make_unique<Ui::frmAcquiredPoints>())
    , controller_(controller)
    , store_(store)
{
    ui_->setupUi(this);
    QFont mono(QStringLiteral("Monospace"));
    mono.setStyleHint(QFont::TypeWriter);
    ui_->txtDataPointsDisplay->setFont(mono);
    ui_->txtDataPointsDisplay->setTabStopDistance(
        8 * QFontMetricsF(mono).horizontalAdvance(QLatin1Char(' ')));
    QFont big = ui_->lblAcquiredPoints->font();
    big.setPointSize(big.pointSize() + 4);
    big.setBold(true);
    ui_->lblAcquiredPoints->setFont(big);
    QPalette counter = ui_->lblAcquiredPoints->palette();
    counter.setColor(QPalette::Window, QColor(0x20, 0x20, 0x20));
    counter.setColor(QPalette::WindowText, QColor(0xe0, 0xe0, 0xe0));
    ui_->lblAcquiredPoints->setPalette(counter);
    ui_->lblAcquiredPoints->setAutoFillBackground(true);
    // The totals sit on the same dark strip, at its right end.
    QFont bold = ui_->lblReceivedCounts->font();
    bold.setBold(true);
    ui_->lblReceivedCounts->setFont(bold);
    ui_->lblReceivedCounts->setPalette(counter);
    ui_->lblReceivedCounts->setAutoFillBackground(true);
    ui_->lblReceivedCounts->setContentsMargins(8, 0, 8, 0);

    binder_ = new ModelBinder(model, *this);
    binder_->onClicked(
        QStringLiteral("cmdStartDownload"), [this] { controller_.cmdStartDownload_Click(); });
    binder_->onClicked(
        QStringLiteral("cmdClearAcqPts"), [this] { controller_.cmdClearAcqPts_Click(); });
    binder_->onClicked(
        QStringLiteral("cmdSaveToTxtFile"), [this] { controller_.cmdSaveToTxtFile_Click(); });
    binder_->onClicked(
        QStringLiteral("cmdSaveToExcel"), [this] { controller_.cmdSaveToExcel_Click(); });
    binder_->check();

    connect(&store_, &DataPointStore::appended, this, [this](const QString& chunk) {
        QPlainTextEdit* box = ui_->txtDataPointsDisplay;
        const bool atEnd = box->verticalScrollBar()->value() == box->verticalScrollBar()->maximum();
        QTextCursor cursor(box->document());
        cursor.movePosition(QTextCursor::End);
        cursor.insertText(QString(chunk).replace(QLatin1String("\r\n"), QLatin1String("\n")));
        if (atEnd)
            box->verticalScrollBar()->setValue(box->verticalScrollBar()->maximum());
    });
    connect(&store_, &DataPointStore::replaced, this, [this] {
        ui_->txtDataPointsDisplay->setPlainText(
            QString(store_.text()).replace(QLatin1String("\r\n"), QLatin1String("\n")));
    });
}

StoredPointsWindow::~StoredPointsWindow() = default;

void StoredPointsWindow::load()
{
    if (!loaded_) {
        loaded_ = true;
        controller_.Form_Load();
    }
    show();
    raise();
    activateWindow();
    ui_->cmdStartDownload->setFocus();
}

void StoredPointsWindow::unload()
{
    if (!loaded_)
        return;
    loaded_ = false;
    hide();
    controller_.Form_Unload();
}

void StoredPointsWindow::closeEvent(QCloseEvent* event)
{
    unload();
    event->accept();
}
