#pragma once

#include <QString>
#include <cstdint>

class SettingsStore;

// The device behind a port number: key N of section "porty" in the settings
// store ("/dev/ttyUSB0", "COM3", "tcp://127.0.0.1:4001"), else the system's
// usual name of serial port N: COMN on Windows, /dev/ttyS(N-1) elsewhere.
QString portDevice(const SettingsStore &store, std::uint8_t number);

// A device name that reaches a serial-to-Ethernet gateway over raw TCP.
bool isTcpDevice(const QString &device);
