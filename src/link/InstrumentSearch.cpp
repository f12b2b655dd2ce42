#include "InstrumentSearch.h"

#include "RecordParser.h"
#include "SerialPort.h"

#include <algorithm>

namespace {
constexpr char Bel = 7;
constexpr char Vt = 11;
} // namespace

InstrumentSearch::InstrumentSearch(PortFactory factory, QObject* parent)
    : QObject(parent)
    , factory_(std::move(factory))
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &InstrumentSearch::finish);
}

InstrumentSearch::~InstrumentSearch() { cancel(); }

bool InstrumentSearch::IsInstrumentRecord(const QByteArray& record)
{
    if (record.contains(Vt) || record.contains('#'))
        return true;
    // Line ends inside a reading arrive as blanks, as the receive handler sees them.
    QByteArray line = record;
    line.replace('\r', ' ').replace('\n', ' ');
    return !line.trimmed().isEmpty() && ParseRealTimeReading(QString::fromLatin1(line)).valid;
}

void InstrumentSearch::start(const QStringList& devices, int milliseconds)
{
    cancel();
    findings_.clear();
    running_ = true;
    for (const QString& device : devices) {
        Finding finding;
        finding.device = device;
        std::shared_ptr<SerialPort> port = factory_ ? factory_(device) : nullptr;
        if (port && port->open()) {
            finding.opened = true;
        } else {
            finding.error = port ? port->errorString() : QStringLiteral("no port");
            port.reset();
        }
        findings_.push_back(finding);
        ports_.push_back(port);
        records_.emplace_back();
    }
    for (size_t i = 0; i < ports_.size(); ++i) {
        if (ports_[i])
            ports_[i]->setReceiveCallback([this, i] { takeArrivals(i); });
    }
    const bool any = std::any_of(
        findings_.begin(), findings_.end(), [](const Finding& f) { return f.opened; });
    if (!any) {
        // Told from the event loop, like every other ending.
        QTimer::singleShot(0, this, &InstrumentSearch::finish);
        return;
    }
    timer_.start(milliseconds);
}

void InstrumentSearch::takeArrivals(size_t index)
{
    if (!running_ || index >= ports_.size() || !ports_[index])
        return;
    SerialPort& port = *ports_[index];
    QByteArray& record = records_[index];
    char c;
    while (port.readChar(c)) {
        if (c != Bel) {
            if (record.size() < MaxRecordLength)
                record.append(c);
            continue;
        }
        if (record.size() < MaxRecordLength && IsInstrumentRecord(record))
            ++findings_[index].records;
        record.clear();
    }
    if (findings_[index].records >= EnoughRecords)
        QTimer::singleShot(0, this, &InstrumentSearch::finish);
}

void InstrumentSearch::cancel()
{
    timer_.stop();
    for (auto& port : ports_) {
        if (port) {
            port->setReceiveCallback({});
            port->close();
        }
    }
    ports_.clear();
    records_.clear();
    running_ = false;
}

void InstrumentSearch::finish()
{
    if (!running_)
        return;
    cancel();
    emit finished();
}

QString InstrumentSearch::bestDevice() const
{
    const Finding* best = nullptr;
    for (const Finding& f : findings_) {
        if (f.records > 0 && (!best || f.records > best->records))
            best = &f;
    }
    return best ? best->device : QString();
}
