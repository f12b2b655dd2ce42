#pragma once

#include <QtGlobal>

class SerialPort;

// Points the serial port at another port number. An open port is closed first; it is not
// reopened here, the acquisition commands do that. Never fails loudly: a number the system
// lacks shows only when the port is opened.
void SetCommPort(SerialPort& port, qint16 number);
