#include "SimulatedInstrument.h"

#include "PtyServer.h"
#include "StreamPacer.h"

namespace {
// Characters are gathered into ticks of this length rather than woken for one by one: at
// 480 a second that is about ten characters a tick, and the process stays idle in between.
constexpr qint64 TickUs = 20000;
// The terminal's queue is refilled only below this, so a fast stream never piles up in memory.
constexpr qint64 LowWater = 4096;
} // namespace

SimulatedInstrument::SimulatedInstrument(QObject* parent)
    : QObject(parent)
    , server_(new PtyServer(this))
{
    timer_.setSingleShot(true);
    timer_.setTimerType(Qt::PreciseTimer);
    connect(&timer_, &QTimer::timeout, this, &SimulatedInstrument::pump);
    // An unpaced stream goes on as soon as the terminal has taken what it had.
    connect(server_, &PtyServer::drained, this, [this] {
        if (pacer_ && !timer_.isActive())
            timer_.start(0);
    });
}

SimulatedInstrument::~SimulatedInstrument() = default;

bool SimulatedInstrument::open(QString* error) { return server_->open(error); }

void SimulatedInstrument::close()
{
    stop();
    server_->close();
}

bool SimulatedInstrument::isOpen() const { return server_->isOpen(); }

QString SimulatedInstrument::devicePath() const { return server_->slavePath(); }

void SimulatedInstrument::setCharactersPerSecond(int charactersPerSecond)
{
    cps_ = qMax(0, charactersPerSecond);
}

void SimulatedInstrument::setTimeScale(double timeScale)
{
    timeScale_ = timeScale > 0 ? timeScale : 1.0;
}

void SimulatedInstrument::start(const SimulatorOptions& options)
{
    stop();
    if (!server_->isOpen()) {
        qWarning("SimulatedInstrument: start() before open()");
        return;
    }
    pacer_ = std::make_unique<StreamPacer>(options, cps_, timeScale_);
    clock_.start();
    pump();
}

void SimulatedInstrument::stop()
{
    timer_.stop();
    pacer_.reset();
    ++generation_;
    sent_ = 0;
    recordsSent_ = 0;
    finishedSignalled_ = false;
    server_->discardPending();
}

bool SimulatedInstrument::isDrained() const
{
    return (!pacer_ || pacer_->finished()) && server_->queuedBytes() == 0;
}

void SimulatedInstrument::pump()
{
    if (!pacer_)
        return;
    const qint64 room = LowWater - server_->queuedBytes();
    if (room > 0) {
        const StreamPacer::Output out = pacer_->take(clock_.nsecsElapsed() / 1000, room);
        sent_ += out.bytes.size();
        server_->write(out.bytes);
        const quint64 generation = generation_;
        for (const QByteArray& record : out.completed) {
            emit recordSent(recordsSent_++, record);
            if (generation != generation_)
                return; // a receiver stopped or restarted us
        }
    }
    schedule();
}

void SimulatedInstrument::schedule()
{
    if (!pacer_)
        return;
    const qint64 due = pacer_->nextDueUs();
    if (due < 0) {
        if (!finishedSignalled_ && server_->queuedBytes() == 0) {
            finishedSignalled_ = true;
            emit finished();
        }
        return; // the drained signal brings us back if the queue still holds some
    }
    if (server_->queuedBytes() >= LowWater)
        return; // the drained signal brings us back
    const qint64 now = clock_.nsecsElapsed() / 1000;
    // Wait at least a tick unless unpaced, and never longer than the next character needs.
    qint64 waitUs = qMax<qint64>(due - now, cps_ > 0 ? TickUs : 0);
    if (due <= now && cps_ == 0)
        waitUs = 0;
    timer_.start(int((waitUs + 999) / 1000));
}
