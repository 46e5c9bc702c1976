#pragma once

class Station;

// The start of the station: the bit mask table, the start window, the
// database with its three row sets, and one controller object per row of
// type "regulator". Any failure here is unrecoverable: it throws the
// run-time error, which says what and where, and the caller ends the
// process with it.
void StartUp(Station &station);
