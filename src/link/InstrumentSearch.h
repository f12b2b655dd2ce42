#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

class SerialPort;

// Listens for a few seconds on several serial devices at once and counts, per device, the
// records that look like the instrument's (a parameter block, a stored reading or a real-time
// reading, each ended by BEL). Nothing is ever sent: the instrument only talks.
class InstrumentSearch : public QObject {
    Q_OBJECT
public:
    // A receive-only port at the instrument's line settings for one device path.
    using PortFactory = std::function<std::shared_ptr<SerialPort>(const QString& device)>;

    static constexpr int ListenMilliseconds = 5000;
    // A device with this many records is certain: the search ends at once.
    static constexpr int EnoughRecords = 3;
    // Longer runs without BEL are noise, not records.
    static constexpr int MaxRecordLength = 256;

    struct Finding {
        QString device;
        bool opened = false;
        QString error; // why the device could not be opened
        int records = 0;
    };

    explicit InstrumentSearch(PortFactory factory, QObject* parent = nullptr);
    ~InstrumentSearch() override;

    // Opens every device and listens; finished() comes when the time is up, when one device
    // has sent EnoughRecords, or at once when no device could be opened.
    void start(const QStringList& devices, int milliseconds = ListenMilliseconds);
    void cancel();
    bool running() const { return running_; }

    const std::vector<Finding>& findings() const { return findings_; }
    // The device that sent the most instrument records; empty when none sent any.
    QString bestDevice() const;

    // Whether a finished record (without its BEL) is one the instrument sends.
    static bool IsInstrumentRecord(const QByteArray& record);

signals:
    void finished();

private:
    void takeArrivals(size_t index);
    void finish();

    PortFactory factory_;
    std::vector<Finding> findings_;
    std::vector<std::shared_ptr<SerialPort>> ports_;
    std::vector<QByteArray> records_;
    QTimer timer_;
    bool running_ = false;
};
