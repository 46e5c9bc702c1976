#include "TestMain.h"
#include "ErrorOf.h"
#include "UiRig.h"

#include "fmStruktura.h"
#include "frmElStrukt.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/HierarchyStore.h"
#include "db/HierarchyTree.h"

#include "DemoInstallation.h"

#include <QComboBox>
#include <QLineEdit>
#include <QRadioButton>

// The object tree over the table Hierarchia: how rows in any order become
// the tree, the controller lists that the reports rest on, the clicks, and
// the elements added and removed from the station.
class StructureTreeTest : public QObject {
    Q_OBJECT

    using Rows = QList<QStringList>; // kod_obiektu, kod_obiektu_nad, typ

    static fmStruktura *open(UiRig &rig, const Rows &rows)
    {
        HierarchyStore store([&rig]() -> Database & { return rig.s.connection(); });
        for (const QStringList &r : rows)
            store.add(r[0], r[1], r[2]);
        rig.entry("mnuStruktura")->trigger();
        return rig.frame.findChild<fmStruktura *>();
    }
    // The same tree built without the window, from the same rows.
    static HierarchyTree headless(UiRig &rig)
    {
        return HierarchyTree(HierarchyStore([&rig]() -> Database & { return rig.s.connection(); }).inTreeOrder());
    }
    // "text/tag/image" of every node, indented by depth, in tree order.
    static QString dump(const QTreeWidgetItem *node, int depth = 0)
    {
        QString out = QString(depth * 2, QLatin1Char(' ')) + node->text(0) + QLatin1Char('/') + KeyedTree::tagOf(node) +
                      QLatin1Char('/') + node->data(0, KeyedTree::ImageRole).toString() + QLatin1Char('\n');
        for (int i = 0; i < node->childCount(); ++i)
            out += dump(node->child(i), depth + 1);
        return out;
    }

private slots:
    void rowsInAnyOrderMakeTheTreeAndTheControllerLists_data()
    {
        QTest::addColumn<Rows>("rows");
        QTest::addColumn<QString>("tree");
        QTest::addColumn<QStringList>("lists"); // "key=list" or "key=!error"
        QTest::newRow("empty table: the root alone")
            << Rows{} << "System Zorbel/S/1\n" << QStringList{"System Zorbel=!35601"};
        QTest::newRow("children before their parents, a parent named only by a row")
            << Rows{{"T1", "Hala A", "R"}, {"Hala A", "Zakład", "S"}, {"Zakład", "System Zorbel", "S"}, {"T2", "Kotłownia", "R"}}
            << "System Zorbel/S/1\n  Kotłownia/S/2\n    T2/R/3\n  Zakład/S/2\n    Hala A/S/2\n      T1/R/3\n"
            << QStringList{"Zakład='T1'", "Kotłownia='T2'", "T1=T1", "Korzen='T2','T1'"};
        QTest::newRow("an object without controllers leaves an empty place")
            << Rows{{"Zakład", "System Zorbel", "S"}, {"T1", "Zakład", "R"}, {"Pusta", "Zakład", "S"}, {"T2", "Zakład", "R"},
                    {"Ostatnia", "Zakład", "S"}}
            << "System Zorbel/S/1\n  Zakład/S/2\n    T1/R/3\n    Pusta/S/2\n    T2/R/3\n    Ostatnia/S/2\n"
            << QStringList{"Zakład='T1',,'T2',", "Pusta=", "Brak=!35601"};
    }
    void rowsInAnyOrderMakeTheTreeAndTheControllerLists()
    {
        QFETCH(Rows, rows);
        QFETCH(QString, tree);
        QFETCH(QStringList, lists);
        UiRig rig;
        fmStruktura *w = open(rig, rows);
        QTreeWidgetItem *root = w->tree().topLevelItem(0);
        QCOMPARE(dump(root), tree);
        QVERIFY(root->isExpanded());
        for (int i = 0; i < root->childCount(); ++i)
            QVERIFY(!root->child(i)->isExpanded());
        const HierarchyTree other = headless(rig);
        for (const QString &entry : lists) {
            const QString key = entry.section(QLatin1Char('='), 0, 0), wanted = entry.section(QLatin1Char('='), 1);
            if (wanted.startsWith(QLatin1Char('!'))) {
                QCOMPARE(errorOf([&] { w->WezListeRegul(key); }), wanted.mid(1).toInt());
                QCOMPARE(errorOf([&] { other.controllerList(key); }), wanted.mid(1).toInt());
            } else {
                QCOMPARE(w->WezListeRegul(key), wanted);
                QCOMPARE(other.controllerList(key), wanted);
            }
        }
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }

    void treeThatCannotBeBuiltShowsTheErrorAndWhatItHas_data()
    {
        QTest::addColumn<Rows>("rows");
        QTest::addColumn<QString>("error");
        QTest::newRow("the root's text as an element") << Rows{{"System Zorbel", "Zakład", "S"}} << "35601";
        QTest::newRow("an element twice") << Rows{{"Hala", "System Zorbel", "S"}, {"Hala", "Zakład", "S"}} << "457";
        QTest::newRow("an element under itself") << Rows{{"Hala", "Hala", "S"}} << "35614";
    }
    void treeThatCannotBeBuiltShowsTheErrorAndWhatItHas()
    {
        QFETCH(Rows, rows);
        QFETCH(QString, error);
        UiRig rig;
        fmStruktura *w = open(rig, rows);
        QVERIFY(w && w->isVisible());
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QVERIFY(rig.prompt(0).contains(QLatin1Char('\'') + error + QLatin1Char('\'')));
        QCOMPARE(errorOf([&] { headless(rig); }), error.toInt());
    }

    void demoTreeGivesTheSameControllerListsWithoutTheWindow()
    {
        UiRig rig;
        Rows rows;
        for (const DemoInstallation::Element &e : DemoInstallation::tree())
            rows << QStringList{e.kod, e.nad, e.typ};
        fmStruktura *w = open(rig, rows);
        const HierarchyTree other = headless(rig);
        for (QTreeWidgetItemIterator it(&w->tree()); *it; ++it) {
            const QString key = KeyedTree::keyOf(*it);
            QCOMPARE(other.controllerList(key), w->WezListeRegul(key));
        }
        QCOMPARE(other.controllerList(QStringLiteral("Zakład")),
                 QStringLiteral("'GPZ-T1','GPZ-T2','HALA-A','HALA-B','SPREZARKI','MAGAZYN'"));
    }

    void clickMakesTheElementCurrentAndTheRightButtonOpensItsMenu()
    {
        UiRig rig;
        fmStruktura *w = open(rig, {{"Zakład", "System Zorbel", "S"}, {"T2", "Zakład", "R"}, {"T9", "Zakład", "R"}});
        w->setPopupHandler([&](const QString &menu, const QPoint &) { rig.popups << menu; });
        w->tree().expandAll();
        rig.click("T2", Qt::RightButton, &w->tree());
        QCOMPARE(rig.s.oApp.NrAktRegulatora, std::int16_t(2));
        QCOMPARE(rig.s.oApp.AktElStruktury, QStringLiteral("T2"));
        QCOMPARE(rig.s.oApp.AktTypEl, QStringLiteral("R"));
        QCOMPARE(rig.popups, QStringList{"mnuStr"});
        rig.click("Zakład", Qt::LeftButton, &w->tree());
        QCOMPARE(rig.s.oApp.AktElStruktury, QStringLiteral("Zakład"));
        QCOMPARE(rig.s.oApp.AktTypEl, QStringLiteral("S"));
        QCOMPARE(rig.s.oApp.NrAktRegulatora, std::int16_t(2)); // an object leaves the controller
        QCOMPARE(w->WezListeRegulAkt(), QStringLiteral("'T2','T9'"));
        QCOMPARE(rig.popups.size(), 1);
        // a controller element that no controller has draws, and fails when clicked
        rig.click("T9", Qt::RightButton, &w->tree());
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(rig.s.oApp.AktElStruktury, QStringLiteral("Zakład"));
        QCOMPARE(rig.popups.size(), 1);
    }

    void elementsAreAddedUnderTheCurrentOneAndOnlyLeavesRemoved()
    {
        UiRig rig;
        fmStruktura *w = open(rig, {{"Zakład", "System Zorbel", "S"}});
        w->tree().expandAll();
        rig.click("Zakład", Qt::LeftButton, &w->tree());
        rig.entry("mnuStrDodaj")->trigger();
        auto *dialog = rig.frame.findChild<frmElStrukt *>();
        QVERIFY(dialog->txtNazwa()->isEnabled() && !dialog->cmbRegul()->isEnabled());
        dialog->txtNazwa()->setText(QStringLiteral("Hala A"));
        dialog->Command1Click();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        dialog = new frmElStrukt(rig.s, *w);
        dialog->option2()->setChecked(true);
        QVERIFY(!dialog->txtNazwa()->isEnabled() && dialog->cmbRegul()->isEnabled());
        QCOMPARE(dialog->cmbRegul()->currentText(), QStringLiteral("T1")); // the current controller
        dialog->cmbRegul()->setCurrentIndex(1);
        dialog->Command1Click();
        QCOMPARE(dump(w->tree().topLevelItem(0)), QStringLiteral("System Zorbel/S/1\n  Zakład/S/2\n    Hala A/S/2\n    T2/R/3\n"));

        // an object that holds others stays; a leaf goes once confirmed
        rig.entry("mnuStrUsun")->trigger();
        QVERIFY(rig.prompt(0).contains(QStringLiteral("zawiera inne elementy")));
        rig.f.dialogs.answers << Dialogs::Cancel << Dialogs::Ok;
        w->tree().expandAll();
        rig.click("Hala A", Qt::LeftButton, &w->tree());
        rig.entry("mnuStrUsun")->trigger();
        QCOMPARE(w->tree().node(QStringLiteral("Zakład"))->childCount(), 2); // cancelled
        rig.entry("mnuStrUsun")->trigger();
        QVERIFY(!w->tree().hasNode(QStringLiteral("Hala A")));
        QCOMPARE(HierarchyStore([&rig]() -> Database & { return rig.s.connection(); }).all().size(), std::size_t(2));
    }
};

ZORBEL_TEST_MAIN(StructureTreeTest)
#include "tst_structure_tree.moc"
