#include "ObjectLookup.h"

#include "db/HierarchyStore.h"
#include "db/HierarchyTree.h"

ObjectLookup::Found ObjectLookup::find(Database &db, const QString &name)
{
    static const QString RootText = QStringLiteral("System Zorbel");
    const HierarchyTree tree(HierarchyStore([&db]() -> Database & { return db; }).inTreeOrder());
    // the root is no element: it meets the tree's own "element not found", as in the station
    if (!tree.contains(name) && name != RootText)
        return {{}, QStringLiteral("brak elementu %1 w strukturze").arg(name)};
    if (tree.contains(name) && tree.isController(name))
        return {{}, QStringLiteral("element %1 jest regulatorem: użyj --kod").arg(name)};
    return {tree.controllerList(name), {}};
}
