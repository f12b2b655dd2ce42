#include "SplashWindow.h"

#include "ui_SplashWindow.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QScreen>
#include <QTimer>
#include <cmath>

namespace {

// The logo is drawn in a 260 x 200 box and scaled to the widget.
constexpr qreal LogoWidth = 260.0;
constexpr qreal LogoHeight = 200.0;
constexpr int BeamPulses = 3;
constexpr int PhaseSteps = 12;

const QColor Beam(235, 45, 30);
const QColor Accent(226, 74, 51);

void paintPyrometer(QPainter& p)
{
    QLinearGradient metal(0, 60, 0, 102);
    metal.setColorAt(0.0, QColor(118, 128, 142));
    metal.setColorAt(0.45, QColor(72, 80, 92));
    metal.setColorAt(1.0, QColor(38, 43, 51));
    const QPen edge(QColor(150, 160, 175), 1.2);

    // Grip first, so the body overlaps its top.
    QPainterPath grip;
    grip.moveTo(42, 96);
    grip.lineTo(78, 96);
    grip.lineTo(68, 160);
    grip.quadTo(66, 166, 60, 166);
    grip.lineTo(40, 166);
    grip.quadTo(33, 166, 34, 159);
    grip.closeSubpath();
    QLinearGradient gripShade(34, 0, 78, 0);
    gripShade.setColorAt(0.0, QColor(50, 56, 66));
    gripShade.setColorAt(0.5, QColor(84, 93, 106));
    gripShade.setColorAt(1.0, QColor(42, 47, 56));
    p.setPen(edge);
    p.setBrush(gripShade);
    p.drawPath(grip);

    // Rubber ribs on the grip.
    p.setPen(QPen(QColor(30, 34, 40), 2.0, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 4; ++i) {
        const qreal y = 118 + i * 11;
        p.drawLine(QPointF(42 - i * 0.5, y), QPointF(70 - i * 1.6, y));
    }

    // Trigger inside its guard, just ahead of the grip.
    QPainterPath guard;
    guard.moveTo(78, 100);
    guard.quadTo(79, 126, 92, 126);
    guard.quadTo(102, 126, 104, 100);
    p.setPen(QPen(QColor(58, 65, 76), 3.0, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    p.drawPath(guard);
    QPainterPath trigger;
    trigger.moveTo(84, 100);
    trigger.lineTo(93, 100);
    trigger.quadTo(92, 112, 86, 118);
    trigger.quadTo(84, 110, 84, 100);
    p.setPen(QPen(QColor(20, 20, 24), 1.0));
    p.setBrush(QColor(205, 48, 36));
    p.drawPath(trigger);

    // Body and nose cone.
    QPainterPath body;
    body.addRoundedRect(QRectF(12, 60, 118, 42), 15, 15);
    p.setPen(edge);
    p.setBrush(metal);
    p.drawPath(body);
    QPainterPath nose;
    nose.moveTo(126, 64);
    nose.lineTo(146, 70);
    nose.lineTo(146, 92);
    nose.lineTo(126, 98);
    nose.closeSubpath();
    QLinearGradient noseShade(0, 64, 0, 98);
    noseShade.setColorAt(0.0, QColor(90, 98, 110));
    noseShade.setColorAt(1.0, QColor(28, 32, 38));
    p.setBrush(noseShade);
    p.drawPath(nose);

    // Lens with its glow.
    QRadialGradient glow(QPointF(147, 81), 14);
    glow.setColorAt(0.0, QColor(255, 120, 90, 230));
    glow.setColorAt(0.4, QColor(235, 45, 30, 140));
    glow.setColorAt(1.0, QColor(235, 45, 30, 0));
    p.setPen(Qt::NoPen);
    p.setBrush(glow);
    p.drawEllipse(QPointF(147, 81), 14, 14);
    p.setBrush(QColor(255, 210, 190));
    p.drawEllipse(QPointF(147, 81), 2.6, 8);

    // Read-out window with a reading and a highlight along the body's top.
    const QRectF display(26, 68, 62, 22);
    p.setPen(QPen(QColor(18, 22, 26), 1.0));
    p.setBrush(QColor(16, 30, 24));
    p.drawRoundedRect(display, 4, 4);
    QFont digits(QStringLiteral("Monospace"));
    digits.setStyleHint(QFont::TypeWriter);
    digits.setPixelSize(14);
    digits.setBold(true);
    p.setFont(digits);
    p.setPen(QColor(96, 255, 160));
    p.drawText(display.adjusted(0, 0, -4, 0), Qt::AlignRight | Qt::AlignVCenter,
        QStringLiteral("1250\u00b0"));
    p.setPen(QPen(QColor(255, 255, 255, 60), 1.5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(24, 63.5), QPointF(118, 63.5));

    // Buttons below the read-out.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(200, 205, 212));
    for (int i = 0; i < 3; ++i)
        p.drawRoundedRect(QRectF(96 + i * 9, 76, 6, 6), 1.5, 1.5);
}

void paintBeam(QPainter& p, int phase)
{
    const QPointF lens(150, 81);
    const QPointF spot(212, 81);

    // Cone of the measuring spot.
    QPainterPath cone;
    cone.moveTo(lens.x(), 77);
    cone.lineTo(spot.x(), 63);
    cone.lineTo(spot.x(), 99);
    cone.lineTo(lens.x(), 85);
    cone.closeSubpath();
    QLinearGradient fade(lens, spot);
    fade.setColorAt(0.0, QColor(Beam.red(), Beam.green(), Beam.blue(), 120));
    fade.setColorAt(1.0, QColor(Beam.red(), Beam.green(), Beam.blue(), 25));
    p.setPen(Qt::NoPen);
    p.setBrush(fade);
    p.drawPath(cone);

    // The aiming line and pulses running along it.
    p.setPen(QPen(QColor(255, 90, 70), 1.4));
    p.drawLine(lens, spot);
    const qreal length = spot.x() - lens.x();
    for (int i = 0; i < BeamPulses; ++i) {
        const qreal t
            = std::fmod((phase % PhaseSteps) / qreal(PhaseSteps) + qreal(i) / BeamPulses, 1.0);
        const QPointF at(lens.x() + t * length, lens.y());
        QRadialGradient pulse(at, 5);
        pulse.setColorAt(0.0, QColor(255, 235, 220, 230));
        pulse.setColorAt(1.0, QColor(255, 80, 60, 0));
        p.setPen(Qt::NoPen);
        p.setBrush(pulse);
        p.drawEllipse(at, 5, 5);
    }

    // Target rings where the beam lands.
    p.setBrush(Qt::NoBrush);
    for (int r = 0; r < 3; ++r) {
        p.setPen(QPen(QColor(Beam.red(), Beam.green(), Beam.blue(), 200 - r * 60), 1.3));
        p.drawEllipse(spot, 4.0 + r * 6, 4.0 + r * 6);
    }
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(255, 200, 180));
    p.drawEllipse(spot, 2, 2);
}

void paintThermometer(QPainter& p)
{
    const QRectF tube(238, 16, 12, 146);
    const QPointF bulb(244, 172);

    QPainterPath glass;
    glass.addRoundedRect(tube, 6, 6);
    glass.addEllipse(bulb, 11, 11);
    glass.setFillRule(Qt::WindingFill);
    p.setPen(QPen(QColor(170, 180, 195), 1.2));
    p.setBrush(QColor(26, 32, 42));
    p.drawPath(glass.simplified());

    QLinearGradient heat(0, 40, 0, 172);
    heat.setColorAt(0.0, QColor(255, 190, 60));
    heat.setColorAt(0.5, QColor(240, 90, 40));
    heat.setColorAt(1.0, QColor(205, 35, 30));
    p.setPen(Qt::NoPen);
    p.setBrush(heat);
    p.drawRoundedRect(QRectF(241.5, 52, 5, 120), 2.5, 2.5);
    p.drawEllipse(bulb, 7.5, 7.5);

    // Scale on the left of the tube: a long tick every fourth.
    for (int i = 0; i <= 12; ++i) {
        const qreal y = 24 + i * 11;
        const bool major = i % 4 == 0;
        p.setPen(QPen(QColor(170, 180, 195, major ? 230 : 150), major ? 1.4 : 1.0));
        p.drawLine(QPointF(major ? 226 : 230, y), QPointF(235, y));
    }
}

} // namespace

SplashWindow::SplashWindow(QWidget* parent)
    : QWidget(parent, Qt::SplashScreen | Qt::FramelessWindowHint)
    , ui_(std::make_unique<Ui::frmSplash>())
    , tmrBlink_(new QTimer(this))
    , tmrTitle_(new QTimer(this))
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);

    QFont title = ui_->lblTitle->font();
    title.setPointSize(40);
    title.setBold(true);
    title.setLetterSpacing(QFont::AbsoluteSpacing, 7);
    ui_->lblTitle->setFont(title);
    ui_->lblTitle->setStyleSheet(QStringLiteral("color: #f4f6f8;"));
    // The blinking title must not let the other texts jump up and down.
    QSizePolicy keep = ui_->lblTitle->sizePolicy();
    keep.setRetainSizeWhenHidden(true);
    ui_->lblTitle->setSizePolicy(keep);

    ui_->linAccent->setStyleSheet(QStringLiteral("background: qlineargradient(x1:0, y1:0, x2:1, "
                                                 "y2:0, stop:0 #e24a33, stop:1 transparent);"));

    QFont subtitle = ui_->lblSubtitle->font();
    subtitle.setPointSize(10);
    subtitle.setBold(true);
    subtitle.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
    ui_->lblSubtitle->setFont(subtitle);
    // Wide enough for "INFRARED TEMPERATURE MEASUREMENT" on the first line, so the subtitle
    // breaks into two even lines.
    const int line = QFontMetrics(subtitle).horizontalAdvance(
                         ui_->lblSubtitle->text().section(QLatin1Char(' '), 0, 2))
        + 8;
    ui_->lblSubtitle->setFixedWidth(line);
    ui_->lblSubtitle->setStyleSheet(QStringLiteral("color: #a9b6c8;"));

    QFont version = ui_->lblVersion->font();
    version.setPointSize(11);
    version.setBold(true);
    version.setLetterSpacing(QFont::AbsoluteSpacing, 2);
    ui_->lblVersion->setFont(version);
    ui_->lblVersion->setStyleSheet(QStringLiteral("color: #e24a33;"));

    ui_->imgLogo->installEventFilter(this);

    tmrBlink_->setObjectName(QStringLiteral("tmrBlink"));
    tmrBlink_->setInterval(BlinkInterval);
    tmrTitle_->setObjectName(QStringLiteral("tmrTitle"));
    tmrTitle_->setInterval(TitleInterval);
    connect(tmrBlink_, &QTimer::timeout, this, &SplashWindow::tmrBlink_Timer);
    connect(tmrTitle_, &QTimer::timeout, this, &SplashWindow::tmrTitle_Timer);
}

SplashWindow::~SplashWindow() = default;

void SplashWindow::setBlinkInterval(int milliseconds) { tmrBlink_->setInterval(milliseconds); }

void SplashWindow::start()
{
    ticks_ = 0;
    phase_ = 0;
    finished_ = false;
    ui_->lblTitle->setVisible(true);
    adjustSize();
    if (const QScreen* screen = this->screen()) {
        const QRect area = screen->availableGeometry();
        move(area.center() - QPoint(width() / 2, height() / 2));
    }
    show();
    raise();
    activateWindow();
    setFocus();
    tmrBlink_->start();
    tmrTitle_->start();
}

void SplashWindow::finish()
{
    tmrBlink_->stop();
    tmrTitle_->stop();
    ui_->lblTitle->setVisible(true);
    if (finished_)
        return;
    finished_ = true;
    emit finished();
}

void SplashWindow::tmrBlink_Timer()
{
    if (finished_)
        return;
    ui_->lblTitle->setVisible(!ui_->lblTitle->isVisible());
    if (++ticks_ < BlinkTicks)
        return;
    if (stayOpen_) {
        // Opened from the menu: the title comes to rest and the window waits for the operator.
        tmrBlink_->stop();
        ui_->lblTitle->setVisible(true);
        return;
    }
    finish();
}

void SplashWindow::tmrTitle_Timer()
{
    phase_ = (phase_ + 1) % PhaseSteps;
    ui_->imgLogo->update();
}

void SplashWindow::paintLogo(QPainter& painter, const QRectF& area, int phase)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal scale = qMin(area.width() / LogoWidth, area.height() / LogoHeight);
    painter.translate(
        area.center().x() - LogoWidth * scale / 2, area.center().y() - LogoHeight * scale / 2);
    painter.scale(scale, scale);
    paintBeam(painter, phase);
    paintPyrometer(painter);
    paintThermometer(painter);
    painter.restore();
}

bool SplashWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui_->imgLogo && event->type() == QEvent::Paint) {
        QPainter painter(ui_->imgLogo);
        paintLogo(painter, ui_->imgLogo->rect(), phase_);
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void SplashWindow::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF r = rect();

    QLinearGradient background(r.topLeft(), r.bottomRight());
    background.setColorAt(0.0, QColor(30, 38, 52));
    background.setColorAt(1.0, QColor(11, 14, 20));
    p.fillRect(r, background);

    // A soft warm glow behind the logo, as if lit by the beam.
    const QRectF logo = ui_->imgLogo->geometry();
    QRadialGradient warmth(logo.center(), logo.width() * 0.75);
    warmth.setColorAt(0.0, QColor(Accent.red(), Accent.green(), Accent.blue(), 40));
    warmth.setColorAt(1.0, QColor(Accent.red(), Accent.green(), Accent.blue(), 0));
    p.fillRect(r, warmth);

    p.setPen(QPen(QColor(70, 82, 100), 1.0));
    p.setBrush(Qt::NoBrush);
    p.drawRect(r.adjusted(0.5, 0.5, -0.5, -0.5));
    p.fillRect(QRectF(0, r.height() - 4, r.width(), 4), Accent);
}

void SplashWindow::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    finish();
}

void SplashWindow::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    finish();
}

void SplashWindow::closeEvent(QCloseEvent* event)
{
    finish();
    event->accept();
}
