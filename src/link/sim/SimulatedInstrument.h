#pragma once

#include "InstrumentSimulator.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <memory>

class PtyServer;
class StreamPacer;

// An instrument on a pseudo-terminal: the simulator's records, paced like the real line
// (4800 baud, 480 characters a second; real-time readings one interval apart) and served at
// devicePath(). start() may be called again and again with new options, as the program
// switches between sensing and downloading; each start begins a fresh stream on a clean line.
class SimulatedInstrument : public QObject {
    Q_OBJECT
public:
    static constexpr int LineRate = 480; // characters per second at 4800 baud, 10 bits each

    explicit SimulatedInstrument(QObject* parent = nullptr);
    ~SimulatedInstrument() override;

    bool open(QString* error = nullptr);
    void close();
    bool isOpen() const;
    QString devicePath() const;

    // 0: as fast as the terminal takes them. Applies from the next start().
    void setCharactersPerSecond(int charactersPerSecond);
    int charactersPerSecond() const { return cps_; }
    // Shrinks the time between real-time readings (0.01 turns 2 s into 20 ms), for tests.
    void setTimeScale(double timeScale);
    double timeScale() const { return timeScale_; }

    void start(const SimulatorOptions& options);
    // Silence: nothing more is sent, and what was not yet read is taken back.
    void stop();
    bool isRunning() const { return pacer_ != nullptr; }
    // Everything the stream had has left our queue (the reader may not have read it yet).
    bool isDrained() const;
    // Characters handed to the terminal since the last start().
    qint64 charactersSent() const { return sent_; }
    PtyServer& server() const { return *server_; }

signals:
    // A whole record, terminator included, has been handed to the terminal; index counts from
    // 0 at each start().
    void recordSent(int index, const QByteArray& record);
    // The stream has ended (a download, or silence) and its last character is in the terminal.
    void finished();

private:
    void pump();
    void schedule();

    PtyServer* server_;
    QTimer timer_;
    QElapsedTimer clock_;
    std::unique_ptr<StreamPacer> pacer_;
    int cps_ = LineRate;
    double timeScale_ = 1.0;
    qint64 sent_ = 0;
    int recordsSent_ = 0;
    bool finishedSignalled_ = false;
    quint64 generation_ = 0; // bumped by every stop, so a stale loop knows to quit
};
