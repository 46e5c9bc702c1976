#pragma once

#include <functional>

class Station;

// Opens the controllers' port with the operator's help: reads the options,
// opens the port they name, and while it will not open says why and lets
// the operator change the number (askForPort shows the options modally),
// then tries again. There is no other way out: without a port the station
// does not come up. On the first round a port number that is illegal or
// not a number at all is not caught and ends the start; on later rounds
// every failure is met with the message and the options again. The start
// window is closed before the first message, which it would hide.
void openPortWithOperatorHelp(Station &station, const std::function<void()> &askForPort);
