#pragma once

#include "db/HierarchyStore.h"

#include <QString>
#include <QWidget>
#include <functional>

class KeyedTree;
class QTreeWidgetItem;
class Station;

// The installation as a tree of objects (halls, lines, feeders) holding
// controllers, built from the table Hierarchia. Clicking an object makes it
// the operator's current element, for which the reports are made; with the
// right button the structure's pop-up menu follows.
//
// Keys are the objects' names (kod_obiektu), but for the root "Korzen",
// whose text "System Zorbel" is no key.
class fmStruktura final : public QWidget {
    Q_OBJECT

public:
    using PopupHandler = std::function<void(const QString &menuName, const QPoint &globalPos)>;

    explicit fmStruktura(Station &station, QWidget *parent = nullptr);

    // Builds the tree anew from Hierarchia: every row an element under the
    // root, then each moved under its parent. A parent that only rows name
    // becomes an element of its own; "System Zorbel" as parent is the root.
    // HierarchyTree builds the same tree without a window.
    void LadujObiekty();
    // "Raport" opens the daily report of an object; other keys do nothing.
    void ToolbarAction(const QString &Key, bool Value);
    // The controllers under the selected node (see WezListeRegul).
    QString WezListeRegulAkt() const;
    // The controllers under the node `klucz`, as the reports take them:
    // 'A','B' for an object's controllers, with the lists of the objects
    // under it in their places (an object without controllers leaves an
    // empty place: 'A',,'B'); a controller's node gives its name bare.
    QString WezListeRegul(const QString &klucz) const;

    // Removes the current element from Hierarchia when it holds nothing,
    // after asking; the root and objects with elements under them stay.
    void UsunElement();

    KeyedTree &tree() const { return *m_tree; }
    void setPopupHandler(PopupHandler handler) { m_popup = std::move(handler); }
    void setDailyReportOpener(std::function<void()> open) { m_dailyReport = std::move(open); }

private:
    void firstPass(const std::vector<HierarchyStore::Row> &rows);
    void secondPass(const std::vector<HierarchyStore::Row> &rows);
    void nodeClick(QTreeWidgetItem *item, bool rightButton, const QPoint &globalPos);
    void clickNode(QTreeWidgetItem *item);

    Station &m_station;
    KeyedTree *m_tree; // images: the plant, an object, a controller
    PopupHandler m_popup;
    std::function<void()> m_dailyReport;
};
