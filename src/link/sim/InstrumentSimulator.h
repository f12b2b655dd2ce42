#pragma once

#include <QByteArray>
#include <QtGlobal>

// What the simulated instrument sends and how it misbehaves.
struct SimulatorOptions {
    enum class Mode { RealTime, Download };
    enum class Units { Fahrenheit, Celsius };
    enum class Fault {
        None,
        Silence, // nothing more at all
        BlankRecords, // a bare BEL in place of every record
        WrongMode, // stored "#" records in real time, real-time readings in a download
        Noise, // random bytes, each burst ended by BEL
        NoiseWithoutBel, // random bytes that never end a record
    };

    Mode mode = Mode::RealTime;
    // The sampling interval the instrument reports and keeps; 0 or less sends the interval line
    // with no value (an instrument that does not know its interval) and paces at one second.
    int intervalSeconds = 2;
    Units units = Units::Fahrenheit;
    // The ambient sensor reads nothing: "AMB TEMP        ---".
    bool ambientMissing = false;
    // Readings held in the instrument's memory (download) and reported as "STORED PTS".
    int storedCount = 120;
    // Empty memory locations sent after the stored readings of a download.
    int emptyLocations = 3;
    Fault fault = Fault::None;
    // Records (each ended by BEL; the parameter block and group separators count) sent
    // normally before the fault begins.
    int faultAfter = 0;
    quint32 seed = 1;
    // Real-time readings as "  75" instead of "    75   DEG F".
    bool shortForm = false;
};

// The byte stream of the instrument, record by record: a pure, deterministic generator (the
// same options and seed give the same bytes). Pacing is someone else's business.
//
// Real time: the parameter block (first reading included), then one reading per interval,
// endlessly. Download: the stored readings "#001   75   DEG F", a CR LF record between groups
// of ten, then the empty memory locations; then the stream ends.
class InstrumentSimulator {
public:
    static constexpr char Bel = 7;
    static constexpr char VerticalTab = 11;
    static constexpr int GroupSize = 10;

    explicit InstrumentSimulator(const SimulatorOptions& options = SimulatorOptions());

    const SimulatorOptions& options() const { return options_; }

    // The next record with its BEL (noise without BEL has none); empty once finished.
    QByteArray nextRecord();
    bool finished() const;
    // Records handed out so far.
    int recordIndex() const { return index_; }
    // Seconds from the start of the stream at which the next record is due: real-time records
    // one interval apart, a download all at once.
    double nextRecordDueSeconds() const;
    // Records in the whole stream; -1 when it never ends.
    int totalRecords() const;

    // The pieces, each with its terminator.
    QByteArray parameterBlock() const;
    QByteArray readingRecord(int sample) const;
    QByteArray storedRecord(int number, int sample) const;
    QByteArray noiseRecord(int index) const;

    // The temperature the instrument sees at sample n, whole degrees in the chosen units: a
    // slow swing through about 75 to 110 DEG F with a little noise and, now and then, a short
    // dip to below 25 DEG F.
    int temperatureAt(int sample) const;
    // The sample behind the first real-time reading; the stored readings are the samples
    // before it.
    int firstLiveSample() const { return qMax(0, options_.storedCount); }

private:
    QByteArray normalRecord(int index) const;
    QByteArray faultRecord(int index) const;
    int downloadRecordCount() const;
    double fahrenheitAt(int sample) const;
    quint64 random(quint64 stream, quint64 n) const;
    QByteArray unitsText() const;

    SimulatorOptions options_;
    int index_ = 0;
};
