#pragma once

#include "SimLine.h"

#include <QSocketNotifier>
#include <memory>

namespace sim {

// A pseudo-terminal in raw mode: the station opens its slave side as if it
// were a serial port. The slave is held open here too, so that the station
// may close and reopen it without the master seeing a hang-up.
class PtyLine final : public SimLine {
    Q_OBJECT
public:
    explicit PtyLine(QObject *parent = nullptr);
    ~PtyLine() override;

    // Opens the pair and, when linkPath is given, points a symlink there.
    // Returns an error message, empty on success.
    QString open(const QString &linkPath);
    void write(const QByteArray &bytes) override;
    QString where() const override { return m_slavePath; }

private:
    void readAvailable();
    QString makeLink(const QString &linkPath);

    int m_master = -1;
    int m_slave = -1;
    QString m_slavePath;
    QString m_linkPath;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace sim
