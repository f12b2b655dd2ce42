#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

// The link status display's model: which state the link is in, the caption, and the frames of
// its three animations (sensing, data, scanning). The view paints what it finds here and
// repaints on `changed`.
class IRSystem : public QObject {
    Q_OBJECT
public:
    enum State : qint16 { Idle = 0, Sensing = 1, Scanning = 2, Receiving = 3 };

    static constexpr int CompGraphicsIntervalMs = 30;
    static constexpr int IRGraphicsIntervalMs = 300;
    // The row of line segments between the computer and the instrument.
    static constexpr int SegmentCount = 7;
    // Sub-positions a dash moves through while crossing one segment.
    static constexpr int DataPhases = 8;
    // Positions of the scanning sweep: out along the row and back again.
    static constexpr int ScanPositions = 2 * (SegmentCount - 1);

    static QString idleCaption() { return QStringLiteral("IR SYSTEM IDLE..."); }
    static QString sensingCaption()
    {
        return QStringLiteral("IR SYSTEM ACTIVE - SENSING TEMPERATURE...");
    }
    static QString dataCaption() { return QStringLiteral("IR SYSTEM ACTIVE - RECEIVING DATA..."); }
    static QString scanningCaption()
    {
        return QStringLiteral("SCANNING COMMPORT FOR IR TRANSMISSION...");
    }

    explicit IRSystem(QObject* parent = nullptr);

    void ScanForIrSystem();
    void SenseTemperature();
    void DownloadIRData();
    void SetToIdle();
    void ResetOldState();
    qint16 GetCurrentState() const { return CurrentState; }

    // Back to how a freshly loaded display starts: idle, nothing animated, timers stopped.
    void reset();

    void tmrCompGraphics_Timer();
    void tmrIRGraphics_Timer();
    QTimer& tmrCompGraphics() { return tmrCompGraphics_; }
    QTimer& tmrIRGraphics() { return tmrIRGraphics_; }

    qint16 CurrentState = Idle;
    // Only a change away from a non-idle state records the state it left.
    qint16 OldState = Idle;
    bool StateChanged = false;

    // What the view draws.
    QString caption() const { return caption_; }
    // Sensing: segments lit so far, counted from the instrument towards the computer (0 to 7).
    bool sensingShown() const { return sensingOn_; }
    int sensingSegments() const { return sensingStep_; }
    // Data: dashes travel from the instrument to the computer while the instrument side is
    // active; the computer side shows the screen at work.
    bool dataShown() const { return dataOn_; }
    int dataPhase() const { return dataStep_; }
    bool dataInstrumentSide() const { return dataInstrumentSide_; }
    bool dataComputerSide() const { return dataComputerSide_; }
    // Scanning: a light sweeps the row back and forth; scanSegment() is the lit segment.
    bool scanningShown() const { return scanningOn_; }
    int scanStep() const { return scanStep_; }
    int scanSegment() const;

signals:
    void changed();

private:
    void SensingAnimation(bool on);
    void DataAnimation(bool on, bool instrumentSide = false, bool computerSide = false);
    void ScanningAnimation(bool on);
    void allAnimationsOff();
    // Records the state being left, when it was not idle.
    void keepOldState();
    void setCaption(const QString& caption);
    void ensureRunning(QTimer& timer);

    QTimer tmrCompGraphics_;
    QTimer tmrIRGraphics_;
    QString caption_ = idleCaption();
    bool sensingOn_ = false;
    int sensingStep_ = 0;
    bool dataOn_ = false;
    int dataStep_ = 0;
    bool dataInstrumentSide_ = false;
    bool dataComputerSide_ = false;
    bool scanningOn_ = false;
    int scanStep_ = 0;
};
