#include "TestMain.h"
#include "ErrorOf.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "fmRegulatory.h"

#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <memory>

namespace {

using Calls = QList<QVariantList>;

// A started station with three controllers and its controller tree on screen;
// the pop-ups the tree asks for are recorded.
struct Rig {
    Rig()
    {
        f.createDatabase();
        f.addController(QStringLiteral("HALA-A"), 5);
        f.addController(QStringLiteral("HALA-B"), 6);
        f.addController(QStringLiteral("Sprezarki"), 7);
        f.station().StartUp();
        window = std::make_unique<fmRegulatory>(f.station());
        window->setPopupHandler([this](const QString &menu, const QPoint &at) { popups.append({menu, at}); });
        window->show();
        f.wizual.calls.clear();
    }

    Station &s() { return f.station(); }
    QTreeWidget *tree() const { return window->findChild<QTreeWidget *>(QStringLiteral("Tree")); }

    QTreeWidgetItem *item(const QString &key) const
    {
        for (QTreeWidgetItemIterator it(tree()); *it; ++it)
            if ((*it)->data(0, fmRegulatory::KeyRole).toString() == key)
                return *it;
        return nullptr;
    }

    // A real click on the node's picture and text; its branch opens first.
    QPoint click(const QString &key, Qt::MouseButton button = Qt::LeftButton)
    {
        QTreeWidgetItem *node = item(key);
        tree()->scrollToItem(node);
        const QPoint at = tree()->visualItemRect(node).center();
        QTest::mouseClick(tree()->viewport(), button, {}, at);
        return tree()->viewport()->mapToGlobal(at);
    }

    QStringList popupNames() const
    {
        QStringList names;
        for (const auto &p : popups)
            names << p.first;
        return names;
    }

    TestEnv env;
    StationFixture f{QStringLiteral("zorbel.db")};
    std::unique_ptr<fmRegulatory> window;
    QList<QPair<QString, QPoint>> popups;
};

void checkNode(const QTreeWidgetItem *item, const QString &key, const QString &text, int image, const QString &tag)
{
    QVERIFY2(item, qPrintable(key));
    QCOMPARE(item->data(0, fmRegulatory::KeyRole).toString(), key);
    QCOMPARE(item->text(0), text);
    QCOMPARE(item->data(0, fmRegulatory::ImageRole).toInt(), image);
    QVERIFY(!item->icon(0).isNull());
    QCOMPARE(item->data(0, fmRegulatory::TagRole).toString(), tag);
}

}

class ControllerTreeTest : public QObject {
    Q_OBJECT
private slots:
    void loadBuildsRootGroupAndEveryControllerWithNineStages()
    {
        Rig rig;
        QCOMPARE(rig.window->windowTitle(), QStringLiteral("Regulatory"));
        QTreeWidget *tree = rig.tree();
        QVERIFY(tree);
        QCOMPARE(tree->topLevelItemCount(), 1);
        QTreeWidgetItem *root = tree->topLevelItem(0);
        checkNode(root, QStringLiteral("Korzen"), QStringLiteral("System Zorbel"), 1, QString());
        QVERIFY(root->isExpanded());
        QCOMPARE(root->childCount(), 1);
        QTreeWidgetItem *group = root->child(0);
        checkNode(group, QStringLiteral("Reg"), QStringLiteral("Regulatory"), 3, QStringLiteral("RR"));
        QVERIFY(group->isExpanded());
        const QStringList kods{QStringLiteral("HALA-A"), QStringLiteral("HALA-B"), QStringLiteral("Sprezarki")};
        QCOMPARE(group->childCount(), kods.size());
        for (int c = 0; c < kods.size(); ++c) {
            QTreeWidgetItem *controller = group->child(c);
            checkNode(controller, kods[c], kods[c], 2, QStringLiteral("R"));
            QVERIFY(!controller->isExpanded());
            QCOMPARE(controller->childCount(), 9);
            for (int n = 1; n <= 9; ++n)
                checkNode(controller->child(n - 1), kods[c] + QStringLiteral("_b") + QString::number(n),
                          QStringLiteral("stopień ") + QString::number(n), 6, QStringLiteral("B"));
        }
        QVERIFY(rig.window->hasNode(QStringLiteral("Sprezarki_b9")));
        QVERIFY(!rig.window->hasNode(QStringLiteral("sprezarki"))); // keys are exact

        rig.window->setNodeImage(QStringLiteral("HALA-A"), 4);
        rig.window->LadujObiekty(); // builds anew, without the old nodes
        QCOMPARE(tree->topLevelItem(0)->child(0)->childCount(), 3);
        QCOMPARE(rig.window->nodeImage(QStringLiteral("HALA-A")), 2);
        int nodes = 0;
        for (QTreeWidgetItemIterator it(tree); *it; ++it)
            ++nodes;
        QCOMPARE(nodes, 2 + 3 * 10);

        rig.click(QStringLiteral("HALA-B_b3"));
        rig.window->setNodeImage(QStringLiteral("HALA-B_b3"), 5);
        rig.window->paintAlarm(QStringLiteral("HALA-A"), true);
        const QString shot = QDir::temp().filePath(QStringLiteral("zorbel-controller-tree.png"));
        QVERIFY(rig.window->grab().save(shot, "PNG"));
    }

    void leftClickOnControllerMakesItCurrentAndTellsTheHub()
    {
        Rig rig;
        rig.s().oApp.AktElStruktury = QStringLiteral("Hala");
        rig.click(QStringLiteral("HALA-B"));
        QCOMPARE(rig.s().oApp.NrAktRegulatora, std::int16_t(2));
        QCOMPARE(rig.s().oApp.AktElStruktury, QString());
        QCOMPARE(rig.s().oApp.AktTypEl, QStringLiteral("R"));
        QCOMPARE(rig.f.wizual.calls.size(), 1);
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eZmianaRegulatora")), (Calls{{std::int16_t(2)}}));
        QCOMPARE(rig.tree()->currentItem(), rig.item(QStringLiteral("HALA-B")));
        QVERIFY(rig.popups.isEmpty());
    }

    void stageClickSelectsStageOfItsControllerAndKeepsTheCurrentController()
    {
        Rig rig;
        rig.click(QStringLiteral("HALA-A"));
        rig.f.wizual.calls.clear();
        rig.click(QStringLiteral("Sprezarki_b4"));
        QCOMPARE(rig.s().Regulatory.Item(3).NrAktBaterii, std::uint8_t(4));
        QCOMPARE(rig.s().Regulatory.Item(1).NrAktBaterii, std::uint8_t(0));
        QCOMPARE(rig.s().oApp.NrAktRegulatora, std::int16_t(1));
        QCOMPARE(rig.f.wizual.calls.size(), 1);
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eZmianaBaterii")), (Calls{{std::int16_t(1), std::int16_t(4)}}));
        QCOMPARE(rig.tree()->currentItem(), rig.item(QStringLiteral("Sprezarki_b4")));
        QVERIFY(rig.popups.isEmpty());
    }

    void rightClickSelectsThenOpensThePopupOfTheNodesKind()
    {
        Rig rig;
        const QPoint at = rig.click(QStringLiteral("HALA-B"), Qt::RightButton);
        QCOMPARE(rig.s().oApp.NrAktRegulatora, std::int16_t(2));
        QCOMPARE(rig.tree()->currentItem(), rig.item(QStringLiteral("HALA-B")));
        QCOMPARE(rig.popupNames(), QStringList{QStringLiteral("popmnuRegul")});
        QCOMPARE(rig.popups.first().second, at);

        rig.click(QStringLiteral("Reg"), Qt::RightButton);
        rig.click(QStringLiteral("HALA-A_b7"), Qt::RightButton);
        QCOMPARE(rig.popupNames(), (QStringList{QStringLiteral("popmnuRegul"), QStringLiteral("mnuBaza"),
                                                 QStringLiteral("mnuRegulBat")}));
        QCOMPARE(rig.s().Regulatory.Item(1).NrAktBaterii, std::uint8_t(7));
        QCOMPARE(rig.f.wizual.calls.size(), 2); // the group node tells nobody

        rig.click(QStringLiteral("HALA-A")); // the left mouse-down clears the flag
        QCOMPARE(rig.popups.size(), 3);
        QCOMPARE(rig.s().oApp.NrAktRegulatora, std::int16_t(1));
    }

    void rootClickChangesNothing()
    {
        Rig rig;
        rig.s().oApp.AktTypEl = QStringLiteral("S");
        rig.click(QStringLiteral("Korzen"), Qt::RightButton);
        rig.click(QStringLiteral("Korzen"));
        QVERIFY(rig.popups.isEmpty());
        QVERIFY(rig.f.wizual.calls.isEmpty());
        QCOMPARE(rig.s().oApp.AktTypEl, QStringLiteral("S"));
        QCOMPARE(rig.s().oApp.NrAktRegulatora, std::int16_t(1));
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }

    void unknownKeyIsElementNotFound()
    {
        Rig rig;
        fmRegulatory &w = *rig.window;
        const int notFound = RunTimeError::ElementNotFound;
        QCOMPARE(errorOf([&] { w.nodeImage(QStringLiteral("HALA-C")); }), notFound);
        QCOMPARE(errorOf([&] { w.setNodeImage(QStringLiteral("hala-a"), 4); }), notFound);
        QCOMPARE(errorOf([&] { w.nodeForeColor(QStringLiteral("HALA-A_b10")); }), notFound);
        QCOMPARE(errorOf([&] { w.setNodeForeColor(QStringLiteral("System Zorbel"), 255); }), notFound);
        QCOMPARE(errorOf([&] { w.paintAlarm(QString(), true); }), notFound);
        QCOMPARE(RunTimeError::elementNotFound().description(), QStringLiteral("Nie znaleziono elementu"));
    }

    void alarmListPaintsTheControllersNode()
    {
        Rig rig;
        fmRegulatory &w = *rig.window;
        rig.s().fmAlarmyN.setNodePainter([&w](const QString &kod, bool alarm) { w.paintAlarm(kod, alarm); });
        rig.f.clock.set(ZDate::fromParts(2026, 11, 23, 10, 15, 30));
        rig.s().fmAlarmyN.NowyAlarm(rig.f.clock.now(), 2, 202, QStringLiteral("( 431 V)"));
        QCOMPARE(w.nodeForeColor(QStringLiteral("HALA-B")), 255u);
        QCOMPARE(rig.item(QStringLiteral("HALA-B"))->foreground(0).color(), QColor(255, 0, 0));
        QCOMPARE(w.nodeForeColor(QStringLiteral("HALA-A")), 0u);
        rig.s().fmAlarmyN.DezaktywujAlarm(1);
        QCOMPARE(w.nodeForeColor(QStringLiteral("HALA-B")), 0u);
        QCOMPARE(rig.item(QStringLiteral("HALA-B"))->foreground(0).color(), QColor(0, 0, 0));
    }

    void operatorCannotCloseTheWindow()
    {
        Rig rig;
        QVERIFY(!(rig.window->windowFlags() & Qt::WindowCloseButtonHint));
        QVERIFY(!rig.window->close());
        QVERIFY(rig.window->isVisible());

        QMdiArea area;
        fmRegulatory *child = new fmRegulatory(rig.s());
        QMdiSubWindow *sub = area.addSubWindow(child);
        area.show();
        QVERIFY(!sub->close());
        QVERIFY(child->isVisible());
        QVERIFY(rig.window->hasNode(QStringLiteral("HALA-A")));
    }
};

ZORBEL_TEST_MAIN(ControllerTreeTest)
#include "tst_controller_tree.moc"
