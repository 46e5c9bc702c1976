#include "HierarchyCommand.h"

#include "base/CommandLine.h"
#include "db/ControllerStore.h"
#include "db/Database.h"
#include "db/HierarchyStore.h"

#include <algorithm>

namespace {

const QString Root = QStringLiteral("System Zorbel");

using Rows = std::vector<HierarchyStore::Row>;

bool hasElement(const Rows &rows, const QString &kod)
{
    return std::any_of(rows.begin(), rows.end(), [&](const auto &r) { return r.kod_obiektu == kod; });
}

bool hasChildren(const Rows &rows, const QString &kod)
{
    return std::any_of(rows.begin(), rows.end(), [&](const auto &r) { return r.kod_obiektu_nad == kod; });
}

// The elements under `parent`, indented by depth, a controller marked.
void printBranch(const Rows &rows, const QString &parent, int depth, QTextStream &out)
{
    for (const auto &r : rows)
        if (r.kod_obiektu_nad == parent && r.kod_obiektu != parent) {
            out << QString(depth * 2, QLatin1Char(' ')) << r.kod_obiektu
                << (r.typ == QLatin1String("R") ? QStringLiteral("  [regulator]") : QString()) << Qt::endl;
            if (depth < 64) // a row naming its own ancestor must not loop
                printBranch(rows, r.kod_obiektu, depth + 1, out);
        }
}

}

HierarchyCommand::HierarchyCommand()
    : m_elementOption(QStringLiteral("element"), QStringLiteral("(hierarchy) nazwa elementu struktury"), QStringLiteral("NAZWA")),
      m_parentOption(QStringLiteral("nad"), QStringLiteral("(hierarchy add) element nadrzędny (domyślnie System Zorbel)"),
                     QStringLiteral("NAZWA")),
      m_typeOption(QStringLiteral("typ"), QStringLiteral("(hierarchy add) S obiekt (domyślnie) albo R regulator o tym kodzie"),
                   QStringLiteral("S|R"))
{
}

void HierarchyCommand::addOptions(CommandLine &line) const
{
    for (const QCommandLineOption &option : {m_elementOption, m_parentOption, m_typeOption})
        line.addOption(option);
}

void HierarchyCommand::read(CommandLine &line, bool chosen)
{
    if (!chosen) {
        for (const QCommandLineOption *o : {&m_elementOption, &m_parentOption, &m_typeOption})
            if (line.isSet(*o))
                line.refuse(QStringLiteral("opcja --%1 należy tylko do polecenia hierarchy").arg(o->names().constFirst()));
        return;
    }
    m_action = line.positionalArguments().value(1);
    if (!QStringList{QStringLiteral("add"), QStringLiteral("remove"), QStringLiteral("list")}.contains(m_action))
        line.refuse(QStringLiteral("polecenie hierarchy wymaga działania: add, remove albo list"));
    m_element = line.value(m_elementOption).trimmed();
    if (m_action != QLatin1String("list") && m_element.isEmpty())
        line.refuse(QStringLiteral("hierarchy %1 wymaga opcji --element").arg(m_action));
    m_parent = line.isSet(m_parentOption) ? line.value(m_parentOption).trimmed() : Root;
    m_type = line.isSet(m_typeOption) ? line.value(m_typeOption).toUpper() : QStringLiteral("S");
    if (m_type != QLatin1String("S") && m_type != QLatin1String("R"))
        line.refuseValue(m_typeOption, QStringLiteral("S albo R"));
    if (m_action != QLatin1String("add") && (line.isSet(m_parentOption) || line.isSet(m_typeOption)))
        line.refuse(QStringLiteral("opcje --nad i --typ należą tylko do hierarchy add"));
}

int HierarchyCommand::run(const DatabaseConfig &config, QTextStream &out, QTextStream &err) const
{
    Database db(config);
    db.open();
    HierarchyStore store([&db]() -> Database & { return db; });
    if (m_action == QLatin1String("list"))
        return list(store, out);
    if (m_action == QLatin1String("add"))
        return add(store, db, out, err);
    return remove(store, out, err);
}

int HierarchyCommand::list(HierarchyStore &store, QTextStream &out) const
{
    const Rows rows = store.all();
    out << Root << Qt::endl;
    printBranch(rows, Root, 1, out);
    // parents that only rows name hang under the root in the station's tree
    for (const auto &r : rows)
        if (r.kod_obiektu_nad != Root && !hasElement(rows, r.kod_obiektu_nad)) {
            out << "  " << r.kod_obiektu_nad << Qt::endl;
            printBranch(rows, r.kod_obiektu_nad, 2, out);
        }
    return 0;
}

int HierarchyCommand::add(HierarchyStore &store, Database &db, QTextStream &out, QTextStream &err) const
{
    const Rows rows = store.all();
    QString refusal;
    if (m_element == Root)
        refusal = QStringLiteral("%1 jest korzeniem drzewa, nie elementem").arg(Root);
    else if (hasElement(rows, m_element))
        refusal = QStringLiteral("element %1 już jest w strukturze").arg(m_element);
    else if (m_type == QLatin1String("R") && !ControllerStore([&db]() -> Database & { return db; }).hasKod(m_element))
        refusal = QStringLiteral("brak regulatora o kodzie %1 w tabeli Regulatory").arg(m_element);
    else if (m_parent.isEmpty())
        refusal = QStringLiteral("pusty element nadrzędny");
    if (!refusal.isEmpty()) {
        err << "zorbel-admin: " << refusal << Qt::endl;
        return 1;
    }
    store.add(m_element, m_parent, m_type);
    out << "Dodano element " << m_element << " pod " << m_parent << Qt::endl;
    return 0;
}

int HierarchyCommand::remove(HierarchyStore &store, QTextStream &out, QTextStream &err) const
{
    const Rows rows = store.all();
    QString refusal;
    if (!hasElement(rows, m_element))
        refusal = QStringLiteral("brak elementu %1 w strukturze").arg(m_element);
    else if (hasChildren(rows, m_element))
        refusal = QStringLiteral("element %1 zawiera inne elementy: najpierw usuń je").arg(m_element);
    if (!refusal.isEmpty()) {
        err << "zorbel-admin: " << refusal << Qt::endl;
        return 1;
    }
    store.remove(m_element);
    out << "Usunięto element " << m_element << Qt::endl;
    return 0;
}
