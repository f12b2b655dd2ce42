#pragma once

#include <QtGlobal>

class SerialPort;
struct AppState;
class Clock;

// Notes that a character arrived, or that waiting for one starts now: the time of day for
// display and the monotonic clock the watchdog measures silence with.
void MarkReceiveTime(AppState& state, const Clock& clock);

// Points the serial port at another port number. An open port is closed first; it is not
// reopened here, the acquisition commands do that. Never fails loudly: a number the system
// lacks shows only when the port is opened.
void SetCommPort(SerialPort& port, qint16 number);
