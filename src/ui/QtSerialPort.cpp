#include "QtSerialPort.h"

#include "link/PortMap.h"

#include <QFileInfo>

#include <poll.h>

namespace {
// Drop the consumed front once it is this large and outweighs what is still unread.
constexpr qsizetype CompactThreshold = 64 * 1024;

QString comName(int number) { return QStringLiteral("COM %1").arg(number); }
} // namespace

QtSerialPort::QtSerialPort(PortMap& map)
    : map_(map)
{
    port_.setBaudRate(QSerialPort::Baud4800);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    QObject::connect(&port_, &QSerialPort::readyRead, &port_, [this] { takeArrivals(); });
    QObject::connect(&port_, &QSerialPort::errorOccurred, &port_,
        [this](QSerialPort::SerialPortError error) { onError(error); });
}

QtSerialPort::~QtSerialPort()
{
    if (port_.isOpen())
        port_.close();
}

QString QtSerialPort::deviceName() const { return map_.device(number_); }

bool QtSerialPort::open()
{
    if (port_.isOpen())
        return true;
    const QString device = deviceName();
    buffer_.clear();
    offset_ = 0;
    lossPending_ = false;
    if (device.isEmpty()) {
        error_ = QStringLiteral("%1 stands for no serial device. Choose the port's device in "
                                "SETTINGS, or start the program with --port DEVICE.")
                     .arg(comName(number_));
        return false;
    }
    port_.setPortName(device);
    openedDevice_ = device;
    port_.setBaudRate(QSerialPort::Baud4800);
    port_.setDataBits(QSerialPort::Data8);
    port_.setParity(QSerialPort::NoParity);
    port_.setStopBits(QSerialPort::OneStop);
    port_.setFlowControl(QSerialPort::NoFlowControl);
    // The instrument only talks; the program never sends, so the line is opened for reading.
    if (!port_.open(QIODevice::ReadOnly)) {
        const QFileInfo info(device);
        error_ = describeOpenFailure(number_, device, port_.error(), port_.errorString(),
            info.exists() && info.isReadable());
        port_.clearError();
        return false;
    }
    error_.clear();
    return true;
}

QString QtSerialPort::describeOpenFailure(int number, const QString& device,
    QSerialPort::SerialPortError error, const QString& reason, bool readable)
{
    const QString head
        = QStringLiteral("%1 (%2) could not be opened: %3.").arg(comName(number), device, reason);
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return QStringLiteral("%1 (%2) could not be opened: the device %2 does not exist. "
                              "Choose the port's device in SETTINGS, or start the program with "
                              "--port DEVICE.")
            .arg(comName(number), device);
    case QSerialPort::PermissionError:
        // With read access the user has the rights, so another program holds the line.
        if (readable)
            return head
                + QStringLiteral(" Another program may be using the device; close it and try "
                                 "again.");
        return head
            + QStringLiteral(" Your user must be in the \"dialout\" group to use serial "
                             "devices: run \"sudo usermod -aG dialout $USER\", then log out and "
                             "in again.");
    default:
        return head;
    }
}

void QtSerialPort::close()
{
    lossPending_ = false;
    if (port_.isOpen())
        port_.close();
    buffer_.clear();
    offset_ = 0;
}

void QtSerialPort::resetBufferCounts()
{
    buffer_.clear();
    offset_ = 0;
    if (port_.isOpen())
        port_.clear();
}

void QtSerialPort::takeArrivals()
{
    if (offset_ >= buffer_.size()) {
        buffer_.clear();
        offset_ = 0;
    } else if (offset_ >= CompactThreshold && offset_ >= buffer_.size() - offset_) {
        buffer_.remove(0, offset_);
        offset_ = 0;
    }
    const QByteArray arrived = port_.readAll();
    if (arrived.isEmpty())
        return;
    if (buffer_.isEmpty())
        buffer_ = arrived;
    else
        buffer_.append(arrived);
    notifyReceived();
}

bool QtSerialPort::hungUp() const
{
    const int fd = int(port_.handle());
    if (fd < 0)
        return false;
    pollfd probe { fd, POLLIN, 0 };
    return ::poll(&probe, 1, 0) > 0 && (probe.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

void QtSerialPort::onError(QSerialPort::SerialPortError error)
{
    if (!port_.isOpen())
        return;
    // An unplugged adapter reports a resource error; a line whose other end hung up (a
    // pseudo-terminal's master closing) reports read errors, as often as the loop turns.
    const bool lost
        = error == QSerialPort::ResourceError || (error == QSerialPort::ReadError && hungUp());
    if (!lost)
        return;
    // The system's own reason says little here (an unplugged USB adapter gives "Inappropriate
    // ioctl for device"): the device is gone.
    error_ = QStringLiteral("THE SERIAL DEVICE %1 WAS DISCONNECTED.").arg(openedDevice_);
    if (lossPending_)
        return;
    lossPending_ = true;
    // Closing from inside the port's own error report would pull its buffers away while it
    // still works on them; the close waits for the event loop.
    QMetaObject::invokeMethod(
        &port_, [this] { onDeviceLost(); }, Qt::QueuedConnection);
}

void QtSerialPort::onDeviceLost()
{
    if (!lossPending_)
        return;
    lossPending_ = false;
    if (port_.isOpen())
        port_.close();
    // What arrived before the loss stays readable; the owner sees isOpen() false.
    notifyReceived();
}

std::shared_ptr<SerialPort> QtSerialPort::forDevice(const QString& device)
{
    // The port gets a map of its own, so the program's map stays as it is.
    struct Probe {
        PortMap map;
        QtSerialPort port { map };
    };
    auto probe = std::make_shared<Probe>();
    probe->map.setRunOverride(1, device);
    return std::shared_ptr<SerialPort>(probe, &probe->port);
}
