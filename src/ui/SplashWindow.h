#pragma once

#include <QWidget>
#include <memory>

class QPainter;
class QTimer;
namespace Ui {
class frmSplash;
}

// The splash window shown at start: the logo, the program's name blinking on a 400 ms timer and,
// after 14 blinks, finished(). A click or a key ends it at once. Opened again later from the menu
// it stays open (stayOpen) until clicked or closed. The owner shows the main window and disposes
// of the splash when finished() arrives.
class SplashWindow : public QWidget {
    Q_OBJECT
public:
    static constexpr int BlinkInterval = 400; // ms
    static constexpr int TitleInterval = 100; // ms
    static constexpr int BlinkTicks = 14;

    explicit SplashWindow(QWidget* parent = nullptr);
    ~SplashWindow() override;

    void setStayOpen(bool stayOpen) { stayOpen_ = stayOpen; }
    bool stayOpen() const { return stayOpen_; }
    // Shortens the blink for tests; the program keeps BlinkInterval.
    void setBlinkInterval(int milliseconds);

    // Centres the window on the screen, shows it and starts the blinking from the beginning.
    void start();
    // Ends the splash: stops the timers and emits finished() once.
    void finish();

    int ticks() const { return ticks_; }
    bool isFinished() const { return finished_; }

    // Timer handlers, also driven directly by tests.
    void tmrBlink_Timer();
    void tmrTitle_Timer();

    // The logo: a hand-held pyrometer sending its beam to a target, beside a thermometer scale.
    // `phase` moves the pulses along the beam.
    static void paintLogo(QPainter& painter, const QRectF& area, int phase);

signals:
    void finished();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::frmSplash> ui_;
    QTimer* tmrBlink_;
    QTimer* tmrTitle_;
    int ticks_ = 0;
    int phase_ = 0;
    bool stayOpen_ = false;
    bool finished_ = false;
};
