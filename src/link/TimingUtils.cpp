#include "TimingUtils.h"

#include "SerialPort.h"
#include "base/AppState.h"
#include "base/Clock.h"

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

void MarkReceiveTime(AppState& state, const Clock& clock)
{
    state.LastReceiveTime = clock.secondsSinceMidnight();
    state.LastReceiveMonotonic = clock.monotonicSeconds();
}
