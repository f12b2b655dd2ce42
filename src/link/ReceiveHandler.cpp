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

#include <QRegularExpression>

using namespace StringUtils;

namespace {
const QString HaltedLines = QStringLiteral(
    "\r\nPROGRAM HAS BEEN HALTED,\r\nPLEASE CHECK YOUR DESIRED MODE, AND RESUME OPERATION.");
const QString TwoSpaces = QStringLiteral("  ");
} // namespace

RealTimeReading ParseRealTimeReading(const QString& line)
{
    RealTimeReading reading;
    if (line.isEmpty())
        return reading;
    QString field = line;
    if (line.size() >= 13) {
        const QString tabbed = SpacesToTabs(line);
        const qsizetype tab = tabbed.indexOf(Tab);
        field = tab < 0 ? tabbed : tabbed.left(tab);
    }
    reading.valid = Numbers::IsNumeric(field);
    reading.value = Numbers::Val(field);
    return reading;
}

QString ParameterValuePart(const QString& field)
{
    const QString text = StripControlCharacters(field);
    qsizetype runEnd = -1;
    for (qsizetype i = text.size() - 1; i > 0; --i) {
        if (text.at(i) == QLatin1Char(' ') && text.at(i - 1) == QLatin1Char(' ')) {
            runEnd = i + 1;
            break;
        }
    }
    return (runEnd < 0 ? text : text.mid(runEnd)).trimmed();
}

QString FormatStoredRecord(const QString& record)
{
    if (record == TwoSpaces)
        return CrLf + Tab;
    static const QRegularExpression blankRun(QStringLiteral(" {2,}"));
    static const QRegularExpression columnBreak(QStringLiteral("[ \\t]*\\t[ \\t]*"));
    QString out = record;
    out.replace(QLatin1Char('#'), QStringLiteral("\t#"));
    out.replace(blankRun, QStringLiteral("\t"));
    out.replace(columnBreak, QStringLiteral("\t"));
    while (out.endsWith(Tab))
        out.chop(1);
    return out;
}

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
    ReceiveLine.clear();
    ParameterBlockFlag = false;
    BlankLineArmed = false;
    BlankLineCount = 0;
    ParameterBlockText.clear();
    PendingPrefix.clear();
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
    // 1, 2
    MarkReceiveTime(state_, clock_);
    if (state_.SystemStatusVisible && main_.mnuSenseTemperature.checked())
        windows_.unloadSystemStatusWindow();
    // 3 to 5
    const QChar ch = QLatin1Char(c);
    if (ch == Vt)
        ParameterBlockFlag = true;
    if (ch != Bel) {
        if (ReceiveLine.size() >= MaxRecordLength)
            return;
        if (!ParameterBlockFlag && (ch == Cr || ch == Lf))
            ReceiveLine += QLatin1Char(' ');
        else
            ReceiveLine += ch;
        return;
    }
    finishRecord();
}

bool ReceiveHandler::haltOnModeError(const QString& title, const QString& cause)
{
    if (port_.isOpen())
        port_.close();
    ReceiveLine.clear();
    acquisition_.halt(title, cause + HaltedLines);
    return true;
}

void ReceiveHandler::finishRecord()
{
    const bool download = main_.mnuDownloadData.checked();

    // 6: the blank-line guard
    if (BlankLineArmed) {
        if (!ReceiveLine.isEmpty()) {
            BlankLineArmed = false;
            BlankLineCount = 0;
        } else if (BlankLineCount < 32767) {
            ++BlankLineCount;
        }
    }
    if (ReceiveLine.isEmpty() && !download)
        BlankLineArmed = true;
    if (BlankLineCount >= 5) {
        ReceiveLine.clear();
        acquisition_.halt(QStringLiteral("RECEIVING BLANK LINES AS DATA."),
            QStringLiteral("IR SYSTEM IS SENDING BLANK LINES.") + HaltedLines);
    }

    // 7: the mode check
    const bool stored = IsStoredDataPoint(ReceiveLine);
    if (stored && main_.mnuSenseTemperature.checked()) {
        haltOnModeError(QStringLiteral("RECEIVED STORED DATA WHILE IN REAL TIME MODE"),
            QStringLiteral("RECEIVED A MEMORY STORED DATAPOINT FROM THE IR-SYSTEM."));
        return;
    }
    if (!stored && main_.mnuDownloadData.checked() && !ReceiveLine.isEmpty()
        && ReceiveLine != TwoSpaces) {
        haltOnModeError(
            QStringLiteral("RECEIVED REAL TIME DATA WHILE IN DOWNLOAD STORED DATA MODE"),
            QStringLiteral("RECEIVED A REAL TIME DATAPOINT FROM THE IR-SYSTEM."));
        return;
    }

    // 8
    if (!ParameterBlockFlag && !PendingPrefix.isEmpty()) {
        ReceiveLine += TwoSpaces + PendingPrefix;
        PendingPrefix.clear();
    }

    // 9: a real-time reading; one that does not fit 16 bits counts as not numeric
    const bool realTime = main_.mnuSenseTemperature.checked();
    bool valid = false;
    qint16 temperature = 0;
    if (realTime) {
        const RealTimeReading reading = ParseRealTimeReading(ReceiveLine);
        const auto rounded = Numbers::ToInt16(reading.value);
        valid = reading.valid && rounded.has_value();
        temperature = rounded.value_or(0);
        if (state_.TempBarVisible) {
            if (TempBarDisplay* bar = windows_.tempBar()) {
                if (valid)
                    bar->SetTemp(temperature);
                else
                    bar->ClearTemp();
            }
        }
    }

    // 10: the line in the last-obtained data file
    if (realTime && !ParameterBlockFlag) {
        if (state_.Instrument.interval.isGiven())
            acquisition_.lastObtainedFile().writeLine(SpacesToTabs(ReceiveLine));
    }

    // 11: what the record is
    if (ParameterBlockFlag && !download) {
        ParameterBlockText = ReceiveLine;
        LoadParameterBlock(ParameterBlockText);
    } else if (!ParameterBlockFlag && !download && valid
        && (main_.mnuRealTimeGraphOn.checked() || main_.mnuAutoCompressed.checked())) {
        showReading(temperature);
    }

    // 12: the interval check
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

    // 13: a stored reading
    if (main_.mnuDownloadData.checked()) {
        if (ReceiveLine.isEmpty())
            store_.append(CrLf + QStringLiteral("EMPTY LOCATION - NO DATA.") + CrLf);
        else
            store_.append(CrLf + FormatStoredRecord(ReceiveLine) + CrLf);
        if (storedPoints_)
            storedPoints_->showReceiving(ReceiveLine);
    }

    // 14
    ReceiveLine.clear();
    ParameterBlockText.clear();
    ParameterBlockFlag = false;
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

void ReceiveHandler::LoadParameterBlock(const QString& block)
{
    LastObtainedFile& file = acquisition_.lastObtainedFile();
    int field = 0;
    QString line;
    for (QChar c : block) {
        if (c != Lf) {
            line += c;
            continue;
        }
        if (line.size() >= 5 && field < InstrumentParameters::ParameterFieldCount) {
            ++field;
            QString value = line;
            if (field == 7 && value.contains(QLatin1Char('-')))
                value = QStringLiteral("BOGUS");
            state_.Instrument.ParameterFields[field - 1] = value;
            if (field <= InstrumentParameters::SystemParameterTextCount) {
                file.writeLine(Tab + value);
                state_.Instrument.SystemParameterText[field - 1] = StripControlCharacters(value);
            }
        }
        refreshParameterLabels();
        line.clear();
    }

    const QString& first = state_.Instrument.ParameterFields[10];
    if (first.size() >= 10) {
        PointCounter = 2;
        file.writeLine(QString(Tab));
        file.writeLine(first);
        const RealTimeReading reading = ParseRealTimeReading(first);
        const auto rounded = Numbers::ToInt16(reading.value);
        if (reading.valid && rounded
            && (main_.mnuRealTimeGraphOn.checked() || main_.mnuAutoCompressed.checked())) {
            qint16 temperature = *rounded;
            chart_.AddReadingToChart(temperature);
            acquisition_.liveLog().writeReading(clock_.nowUtc(), temperature);
        }
    }
}
