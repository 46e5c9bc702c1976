#pragma once

#include <QString>
#include <functional>

class Database;

// Table Hierarchia, the installation's tree of objects: every statement on
// it lives here.
class HierarchyStore {
public:
    explicit HierarchyStore(std::function<Database &()> connection) : m_connection(std::move(connection)) {}

    // An element under `nad`; typ "S" an object of the structure, "R" a controller.
    void add(const QString &kod_obiektu, const QString &kod_obiektu_nad, const QString &typ);

private:
    std::function<Database &()> m_connection;
};
