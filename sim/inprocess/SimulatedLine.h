#pragma once

#include "StationSimClock.h"

#include "core/ZDate.h"
#include "link/LinePort.h"
#include "simcore/SimBus.h"

#include <QList>
#include <deque>
#include <optional>

class Clock;

// The controller line with simulated controllers on it, inside the
// station's process and on the station's clock: what the station sends
// goes to a sim::SimBus, and each reply comes back byte by byte at the
// pace of the real line. The request itself first crosses the line, then
// the reply waits the transmission's delay, then each byte takes
// sim::kByteMs; a reply never overtakes one still in transit. Nothing
// here waits: a byte counts as received once the clock has reached it,
// which makes the line usable with a fake clock and a fake pump.
class SimulatedLine final : public LinePort {
public:
    explicit SimulatedLine(const Clock &clock, quint32 randomSeed = 1);

    // The bus with its controllers and its fault plan.
    sim::SimBus &bus() { return m_bus; }

    // The moment of the next byte still in transit, if any.
    std::optional<ZDate> nextArrival() const;
    // Bytes received or in transit.
    int pending() const { return int(m_input.size()); }
    // Each send, in order.
    QList<QByteArray> sent;

    // Makes every following open fail with this description (empty: succeed).
    void failOpenWith(const QString &description) { m_openFailure = description; }

    bool open(std::uint8_t number) override;
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    QString errorString() const override { return m_error; }
    int bytesWaiting() const override;
    int readByte() override;
    void send(const QByteArray &bytes) override;
    void discardInput() override;

private:
    struct Arrival {
        ZDate when;
        std::uint8_t byte;
    };

    std::deque<Arrival>::const_iterator firstInTransit() const;

    const Clock &m_clock;
    sim::StationSimClock m_simClock;
    sim::SimBus m_bus;
    std::deque<Arrival> m_input; // in order of arrival
    double m_lineFreeMs = 0;     // when the line stops carrying the last scheduled reply byte
    QString m_openFailure;
    QString m_error;
    bool m_open = false;
};
