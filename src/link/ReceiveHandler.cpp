#include "ReceiveHandler.h"

#include "Acquisition.h"
#include "AcquisitionWindows.h"
#include "SerialPort.h"
#include "StoredPointsController.h"
#include "TimingUtils.h"
#include "base/AppState.h"
#include "base/Clock.h"
#include "base/MainWindowModel.h"
#include "base/Numbers.h"
#include "base/Prompter.h"
#include "base/StringUtils.h"
#include "base/TempBarDisplay.h"
#include "chart/GraphingFunctions.h"
#include "store/DataPointStore.h"
#include "store/LastObtainedFile.h"

using namespace StringUtils;

namespace {
const QString HaltedLines = QStringLiteral(
    "\r\nPROGRAM HAS BEEN HALTED,\r\nPLEASE CHECK YOUR DESIRED MODE, AND RESUME OPERATION.");
} // namespace

ReceiveHandler::ReceiveHandler(AppState& state, MainWindowModel& main, SerialPort& port,
    Acquisition& acquisition, GraphingFunctions& chart, DataPointStore& store, Prompter& prompter,
    Clock& clock, AcquisitionWindows& windows)
    : state_(state)
    , main_(main)
    , port_(port)
    , acquisition_(acquisition)
    , chart_(chart)
    , store_(store)
    , prompter_(prompter)
    , clock_(clock)
    , windows_(windows)
{
}

void ReceiveHandler::clearReceiveMembers()
{
    reader_.clear();
    blankLines_.clear();
}

void ReceiveHandler::pump()
{
    if (pumping_ || acquisition_.halting())
        return;
    pumping_ = true;
    LastObtainedFile& file = acquisition_.lastObtainedFile();
    file.hold();
    {
        // What the arrivals change in the main window is shown once they are all taken.
        const ViewModel::Hold hold(main_);
        char c;
        while (port_.readChar(c))
            IR_Comm_OnComm(c);
    }
    file.release();
    pumping_ = false;
}

void ReceiveHandler::IR_Comm_OnComm(char c)
{
    // Every character renews the watchdog's time; data flowing ends the "waiting" display.
    MarkReceiveTime(state_, clock_);
    if (state_.SystemStatusVisible && main_.mnuSenseTemperature.checked())
        windows_.unloadSystemStatusWindow();
    if (std::optional<Record> record = reader_.feed(c))
        finishRecord(std::move(*record));
}

void ReceiveHandler::haltOnModeError(ModeError error)
{
    if (port_.isOpen())
        port_.close();
    if (error == ModeError::StoredWhileRealTime)
        acquisition_.halt(QStringLiteral("RECEIVED STORED DATA WHILE IN REAL TIME MODE"),
            QStringLiteral("RECEIVED A MEMORY STORED DATAPOINT FROM THE IR-SYSTEM.") + HaltedLines);
    else
        acquisition_.halt(
            QStringLiteral("RECEIVED REAL TIME DATA WHILE IN DOWNLOAD STORED DATA MODE"),
            QStringLiteral("RECEIVED A REAL TIME DATAPOINT FROM THE IR-SYSTEM.") + HaltedLines);
}

void ReceiveHandler::finishRecord(Record record)
{
    const bool download = main_.mnuDownloadData.checked();

    if (blankLines_.halts(record.text.isEmpty(), download)) {
        record.text.clear();
        acquisition_.halt(QStringLiteral("RECEIVING BLANK LINES AS DATA."),
            QStringLiteral("IR SYSTEM IS SENDING BLANK LINES.") + HaltedLines);
    }

    // The modes are read after the guard: its halt has ended them.
    const bool realTime = main_.mnuSenseTemperature.checked();
    const ParsedRecord parsed = ParseRecord(record, { realTime, main_.mnuDownloadData.checked() });
    if (parsed.modeError != ModeError::None) {
        // The refused record's block mark stays for the next record.
        if (record.parameterBlock)
            reader_.continueParameterBlock();
        haltOnModeError(parsed.modeError);
        return;
    }

    // The bar follows every record while sensing: its reading, or cleared. A parameter block
    // cut short is no reading.
    if (realTime && state_.TempBarVisible) {
        if (TempBarDisplay* bar = windows_.tempBar()) {
            if (parsed.temperature && (!record.parameterBlock || ParameterBlockFields(record.text)))
                bar->SetTemp(*parsed.temperature);
            else
                bar->ClearTemp();
        }
    }

    // The line in the last-obtained data file
    if (realTime && !record.parameterBlock) {
        if (state_.Instrument.interval.isGiven())
            acquisition_.lastObtainedFile().writeLine(SpacesToTabs(record.text));
    }

    if (record.parameterBlock && !download) {
        LoadParameterBlock(record.text);
    } else if (!record.parameterBlock && !download && parsed.temperature
        && (main_.mnuRealTimeGraphOn.checked() || main_.mnuAutoCompressed.checked())) {
        showReading(*parsed.temperature);
    } else if (realTime && parsed.kind == RecordKind::Reading && !parsed.temperature) {
        // An unusable reading: the value shown is no longer current, and no alarm stands on it.
        main_.lblStatCurrentTemp.setForeColor(Colors::Grey);
        main_.lblCurrentTemp.setForeColor(Colors::Grey);
        acquisition_.tmrBeep().stop();
    }

    // The interval check: an unknown interval is told once, then reads "NO-INT".
    if (main_.mnuSenseTemperature.checked()) {
        SamplingInterval& interval = state_.Instrument.interval;
        if (!interval.isNone()) {
            if (interval.isUnknown()) {
                interval = SamplingInterval::none();
                state_.Instrument.show(main_);
                acquisition_.lastObtainedFile().flush();
                prompter_.message(QStringLiteral("TIME INTERVAL UNKNOWN."),
                    QStringLiteral("PLEASE RESTART IR SYSTEM."));
            } else {
                state_.TimeInterval = float(interval.seconds());
            }
        }
    }

    // A stored reading, or an empty location, goes to the store.
    if (main_.mnuDownloadData.checked()) {
        if (record.text.isEmpty())
            store_.append(CrLf + QStringLiteral("EMPTY LOCATION - NO DATA.") + CrLf);
        else
            store_.append(CrLf + FormatStoredRecord(record.text) + CrLf);
        if (storedPoints_)
            storedPoints_->showReceiving(record.text);
    }
}

void ReceiveHandler::showReading(qint16 temperature)
{
    main_.lblStatCurrentTemp.setVisible(true);
    main_.lblCurrentTemp.setCaption(QString::number(temperature));
    const double low = state_.SettingsValues.lowAlarmLimit.value();
    const double high = state_.SettingsValues.highAlarmLimit.value();
    qint64 color = Colors::Green;
    bool alarm = true;
    if (temperature < low)
        color = Colors::Yellow;
    else if (temperature > high)
        color = Colors::Red;
    else
        alarm = false;
    main_.lblStatCurrentTemp.setForeColor(color);
    main_.lblCurrentTemp.setForeColor(color);
    if (alarm && !acquisition_.tmrBeep().isActive())
        acquisition_.tmrBeep().start();
    else if (!alarm)
        acquisition_.tmrBeep().stop();
    chart_.AddReadingToChart(temperature);
    acquisition_.liveLog().writeReading(clock_.nowUtc(), temperature);
}

void ReceiveHandler::refreshParameterLabels()
{
    InstrumentParameters& p = state_.Instrument;
    p.interval = SamplingInterval(ParameterValuePart(p.ParameterFields[1]));
    for (int entry = 2; entry <= 8; ++entry) {
        const QString& field = p.ParameterFields[entry];
        p.otherValues[entry - 2] = entry == 6 && field == QLatin1String("BOGUS")
            ? QStringLiteral("******")
            : ParameterValuePart(field);
    }
    const QString units = StripControlCharacters(p.ParameterFields[0]);
    p.units = ParameterValuePart(units);
    p.show(main_);
    if (state_.TempBarVisible) {
        if (TempBarDisplay* bar = windows_.tempBar()) {
            if (units == QLatin1String("  DEG F"))
                bar->SetUnitsDegF();
            else
                bar->SetUnitsDegC();
        }
    }
}

bool ReceiveHandler::LoadParameterBlock(const QString& block)
{
    static_assert(ParameterBlockFieldCount == InstrumentParameters::ParameterFieldCount);
    const auto fields = ParameterBlockFields(block);
    if (!fields)
        return false;
    InstrumentParameters& p = state_.Instrument;
    LastObtainedFile& file = acquisition_.lastObtainedFile();
    for (int k = 0; k < ParameterBlockFieldCount; ++k) {
        p.ParameterFields[k] = (*fields)[k];
        if (k < InstrumentParameters::SystemParameterTextCount) {
            file.writeLine(Tab + p.ParameterFields[k]);
            p.SystemParameterText[k] = StripControlCharacters(p.ParameterFields[k]);
        }
    }
    refreshParameterLabels();

    const QString& first = p.ParameterFields[10];
    if (first.size() >= 10) {
        file.writeLine(QString(Tab));
        file.writeLine(first);
        const RealTimeReading reading = ParseRealTimeReading(first);
        const auto rounded = Numbers::ToInt16(reading.value);
        if (reading.valid && rounded
            && (main_.mnuRealTimeGraphOn.checked() || main_.mnuAutoCompressed.checked())) {
            chart_.AddReadingToChart(*rounded);
            acquisition_.liveLog().writeReading(clock_.nowUtc(), *rounded);
        }
    }
    return true;
}
