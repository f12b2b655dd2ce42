#include "IRSystem.h"

IRSystem::IRSystem(QObject* parent)
    : QObject(parent)
{
    tmrCompGraphics_.setInterval(CompGraphicsIntervalMs);
    tmrIRGraphics_.setInterval(IRGraphicsIntervalMs);
    connect(&tmrCompGraphics_, &QTimer::timeout, this, &IRSystem::tmrCompGraphics_Timer);
    connect(&tmrIRGraphics_, &QTimer::timeout, this, &IRSystem::tmrIRGraphics_Timer);
}

void IRSystem::keepOldState()
{
    if (CurrentState != Idle) {
        OldState = CurrentState;
        StateChanged = true;
    } else {
        StateChanged = false;
    }
}

void IRSystem::ScanForIrSystem()
{
    if (CurrentState == Sensing) {
        SensingAnimation(false);
        DataAnimation(false);
    } else if (CurrentState == Receiving) {
        DataAnimation(false);
    }
    keepOldState();
    CurrentState = Scanning;
    ScanningAnimation(true);
    // The computer side of the data animation runs in every active state.
    ensureRunning(tmrCompGraphics_);
    emit changed();
}

void IRSystem::SenseTemperature()
{
    if (CurrentState == Scanning)
        ScanningAnimation(false);
    else if (CurrentState == Receiving)
        DataAnimation(false);
    keepOldState();
    CurrentState = Sensing;
    // The caption changes at once rather than on the first step 300 ms later.
    setCaption(sensingCaption());
    sensingOn_ = true;
    ensureRunning(tmrIRGraphics_);
    ensureRunning(tmrCompGraphics_);
    emit changed();
}

void IRSystem::DownloadIRData()
{
    if (CurrentState == Sensing) {
        SensingAnimation(false);
        DataAnimation(false);
    } else if (CurrentState == Scanning) {
        ScanningAnimation(false);
    }
    keepOldState();
    CurrentState = Receiving;
    DataAnimation(true, true, true);
    emit changed();
}

void IRSystem::SetToIdle()
{
    CurrentState = Idle;
    StateChanged = false;
    setCaption(idleCaption());
    // The figures go on the timers' next ticks, which then stop them.
    emit changed();
}

void IRSystem::ResetOldState()
{
    StateChanged = false;
    if (OldState == CurrentState)
        return;
    // Leave the current state's animation and bring back the kept state's, so the display
    // matches the state it shows without waiting for a state command.
    allAnimationsOff();
    CurrentState = OldState;
    switch (CurrentState) {
    case Sensing:
        setCaption(sensingCaption());
        sensingOn_ = true;
        ensureRunning(tmrIRGraphics_);
        ensureRunning(tmrCompGraphics_);
        break;
    case Scanning:
        ScanningAnimation(true);
        ensureRunning(tmrCompGraphics_);
        break;
    case Receiving:
        DataAnimation(true, true, true);
        break;
    default:
        setCaption(idleCaption());
        break;
    }
    emit changed();
}

void IRSystem::reset()
{
    tmrCompGraphics_.stop();
    tmrIRGraphics_.stop();
    allAnimationsOff();
    CurrentState = Idle;
    OldState = Idle;
    StateChanged = false;
    setCaption(idleCaption());
    emit changed();
}

void IRSystem::tmrCompGraphics_Timer()
{
    if (CurrentState != Idle) {
        DataAnimation(true, CurrentState == Receiving, true);
    } else {
        tmrCompGraphics_.stop();
        allAnimationsOff();
    }
    emit changed();
}

void IRSystem::tmrIRGraphics_Timer()
{
    if (CurrentState == Sensing) {
        SensingAnimation(true);
    } else if (CurrentState == Scanning) {
        ScanningAnimation(true);
    } else if (CurrentState == Idle) {
        tmrIRGraphics_.stop();
        allAnimationsOff();
    } else {
        return; // receiving: this timer has nothing to draw
    }
    emit changed();
}

int IRSystem::scanSegment() const
{
    // Steps 0..6 go out from the instrument, 7..11 come back.
    return scanStep_ < SegmentCount ? scanStep_ : ScanPositions - scanStep_;
}

void IRSystem::SensingAnimation(bool on)
{
    if (!on) {
        sensingOn_ = false;
        sensingStep_ = 0;
        return;
    }
    setCaption(sensingCaption());
    ensureRunning(tmrIRGraphics_);
    // One more segment each step; after the seventh the row starts again from none.
    sensingStep_ = sensingOn_ ? (sensingStep_ + 1) % (SegmentCount + 1) : 1;
    sensingOn_ = true;
}

void IRSystem::DataAnimation(bool on, bool instrumentSide, bool computerSide)
{
    if (!on) {
        dataOn_ = false;
        dataStep_ = 0;
        dataInstrumentSide_ = false;
        dataComputerSide_ = false;
        return;
    }
    // The caption speaks of data only when the instrument is the one sending; the computer
    // side alone just keeps the screen alive under the other states' captions.
    if (instrumentSide)
        setCaption(dataCaption());
    ensureRunning(tmrCompGraphics_);
    dataStep_ = dataOn_ ? (dataStep_ + 1) % DataPhases : 0;
    dataOn_ = true;
    dataInstrumentSide_ = instrumentSide;
    dataComputerSide_ = computerSide;
}

void IRSystem::ScanningAnimation(bool on)
{
    if (!on) {
        scanningOn_ = false;
        scanStep_ = 0;
        return;
    }
    setCaption(scanningCaption());
    ensureRunning(tmrIRGraphics_);
    scanStep_ = scanningOn_ ? (scanStep_ + 1) % ScanPositions : 0;
    scanningOn_ = true;
}

void IRSystem::allAnimationsOff()
{
    SensingAnimation(false);
    DataAnimation(false);
    ScanningAnimation(false);
}

void IRSystem::setCaption(const QString& caption) { caption_ = caption; }

void IRSystem::ensureRunning(QTimer& timer)
{
    if (!timer.isActive())
        timer.start();
}
