#include "TimingUtils.h"

#include "SerialPort.h"
#include "base/AppState.h"
#include "base/Clock.h"

#include <new>

void SetCommPort(SerialPort& port, qint16 number)
{
    // Taking the number only stores it: a port the system lacks shows when it is opened, not
    // here. The one exception that can leave this path is an allocation failure while the open
    // port closes; it too raises no message here.
    try {
        if (port.isOpen())
            port.close();
        port.setPortNumber(number);
    } catch (const std::bad_alloc&) {
    }
}

void MarkReceiveTime(AppState& state, const Clock& clock)
{
    state.LastReceiveTime = clock.secondsSinceMidnight();
    state.LastReceiveMonotonic = clock.monotonicSeconds();
}
