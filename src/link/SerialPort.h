#pragma once

#include <QString>
#include <functional>

// The serial line from the instrument: receive only, 4800 baud, 8 data bits, no parity, one
// stop bit. The port number (1 = "COM 1", 2 = "COM 2") names a device through the port map.
class SerialPort {
public:
    virtual ~SerialPort() = default;

    virtual int portNumber() const = 0;
    virtual void setPortNumber(int number) = 0;
    virtual bool isOpen() const = 0;
    // Opens the port; false with errorString() telling why.
    virtual bool open() = 0;
    virtual void close() = 0;
    virtual QString errorString() const = 0;
    // The device the current port number stands for, as "/dev/ttyS0".
    virtual QString deviceName() const = 0;
    // Drops whatever is waiting in the receive and transmit buffers.
    virtual void resetBufferCounts() = 0;
    // Takes one received character; false when none is waiting.
    virtual bool readChar(char& c) = 0;
    // Called whenever characters have arrived (and when the device is lost, with isOpen false).
    void setReceiveCallback(std::function<void()> callback)
    {
        receiveCallback_ = std::move(callback);
    }

protected:
    void notifyReceived()
    {
        if (receiveCallback_)
            receiveCallback_();
    }

private:
    std::function<void()> receiveCallback_;
};
