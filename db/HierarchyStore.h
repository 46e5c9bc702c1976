#pragma once

#include <QString>
#include <functional>
#include <vector>

class Database;

// Table Hierarchia, the installation's tree of objects: every statement on
// it lives here.
class HierarchyStore {
public:
    explicit HierarchyStore(std::function<Database &()> connection) : m_connection(std::move(connection)) {}

    // An element under `nad`; typ "S" an object of the structure, "R" a controller.
    void add(const QString &kod_obiektu, const QString &kod_obiektu_nad, const QString &typ);
    // Removes the rows of the element; the number removed.
    int remove(const QString &kod_obiektu);

    struct Row {
        QString kod_obiektu, kod_obiektu_nad, typ;
    };
    // Every row, by parent and then name.
    std::vector<Row> all();
    // Every row by parent alone, as the structure tree reads them: the
    // order among an object's children is the engine's, and every reader
    // of the tree must meet the same one.
    std::vector<Row> inTreeOrder();

private:
    std::vector<Row> rows(const QString &order);

    std::function<Database &()> m_connection;
};
