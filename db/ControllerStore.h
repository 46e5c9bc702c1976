#pragma once

#include "db/SqlStatement.h"

#include <QStringList>
#include <QVariantMap>
#include <cstdint>
#include <functional>
#include <optional>

class Database;

// Table Regulatory: every statement on the controllers' rows lives here.
class ControllerStore {
public:
    explicit ControllerStore(std::function<Database &()> connection) : m_connection(std::move(connection)) {}

    // The station's long-lived set of controllers, ordered by their code.
    static SqlStatement allByKod();
    // The columns that tell one row when a row is deleted through that set.
    static QStringList rowKey();

    // Adds a controller row; the map names the columns.
    void add(const QVariantMap &columns);
    // Whether a row has this Kod.
    bool hasKod(const QString &kod);
    struct Identity {
        QString kod;
        std::int16_t adres;
    };
    // The controller of this Kod (compared as the engine compares text) with
    // its Kod as stored; none when no row has it.
    std::optional<Identity> find(const QString &kod);
    // The given columns of every controller, ordered by address.
    QList<QVariantMap> list(const QStringList &columns);

private:
    std::function<Database &()> m_connection;
};
