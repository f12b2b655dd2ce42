#include "TimingUtils.h"

#include "SerialPort.h"

#include <exception>

void SetCommPort(SerialPort& port, qint16 number)
{
    try {
        if (port.isOpen())
            port.close();
        port.setPortNumber(number);
    } catch (const std::exception&) {
        // A port that cannot take the number is reported when it is opened, not here.
    } catch (...) {
    }
}
