#include "TestMain.h"
#include "UiRig.h"

#include "frmRegulatory.h"

#include "base/RunTimeError.h"
#include "db/clsRegulatory.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSqlRecord>

namespace {

frmRegulatory *editor(UiRig &rig)
{
    return rig.frame.findChild<frmRegulatory *>();
}

// The first row of a query on the station's database, NULL as "NULL".
QStringList row(UiRig &rig, const QString &sql)
{
    QSqlQuery q = rig.s.connection().exec(SqlStatement(sql));
    QStringList cells;
    for (int i = 0; i < q.record().count() && (i > 0 || q.next()); ++i)
        cells << (q.isNull(i) ? QStringLiteral("NULL") : q.value(i).toString());
    return cells;
}

QStringList savedLog(UiRig &rig)
{
    return row(rig, QStringLiteral("SELECT Operacja, Status, Typ, Kod_Regul FROM Log WHERE Operacja LIKE 'Zapisano%'"));
}

void deleteClosed()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}

// The controller editor on a started station with T1 (address 1) and T2 (address 2).
class ControllerEditorTest : public QObject {
    Q_OBJECT
private slots:
    void savesOnlyWhatPassesAndTellsWhy_data()
    {
        QTest::addColumn<QString>("sql"); // run first on the station's connection
        QTest::addColumn<QString>("kod");
        QTest::addColumn<int>("box");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("style");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("prompt"); // text within the one message shown
        QTest::addColumn<QString>("stored"); // T2's row afterwards: Kod and NapieciePomiar, Przekladnia
        const QString uwaga = "Nowe ustawienia zostaną uwzględnione po ponownym uruchomieniu programu Zorbel.";
        const QString kept = "T2|380|100";
        QTest::newRow("empty Kod") << "" << "" << 13 << "100" << int(Dialogs::Critical) << "Niepełne dane."
                                   << "Proszę wypełnić pole Kod regulatora!" << kept;
        QTest::newRow("blank Kod") << "" << "  " << 13 << "100" << int(Dialogs::Information) << "Uwaga" << uwaga
                                   << "  |100|100";
        QTest::newRow("decimal comma") << "" << "T2" << 20 << "1,5" << int(Dialogs::Information) << "Uwaga" << uwaga
                                       << "T2|380|1.5";
        QTest::newRow("text in a number") << "" << "T2" << 13 << "abc" << 0 << ""
                                          << "kolumna NapieciePomiar, wartość \"abc\"" << kept;
        QTest::newRow("beyond 16 bits") << "" << "T2" << 13 << "40000" << 0 << "" << "Przepełnienie" << kept;
        QTest::newRow("engine refuses")
            << "CREATE TRIGGER no_edit BEFORE UPDATE ON Regulatory BEGIN SELECT RAISE(ABORT, 'tylko do odczytu'); END"
            << "T2" << 13 << "100" << 0 << "" << "tylko do odczytu" << kept;
        QTest::newRow("two rows, one address") << "UPDATE Regulatory SET Adres = 2" << "T2" << 13 << "100" << 0 << ""
                                               << "w których Adres = 2: 2" << kept;
    }
    void savesOnlyWhatPassesAndTellsWhy()
    {
        QFETCH(QString, sql);
        QFETCH(QString, kod);
        QFETCH(int, box);
        QFETCH(QString, text);
        QFETCH(int, style);
        QFETCH(QString, title);
        QFETCH(QString, prompt);
        QFETCH(QString, stored);
        UiRig rig;
        if (!sql.isEmpty())
            rig.s.connection().execText(sql);
        rig.s.oApp.NrAktRegulatora = 2;
        rig.entry("mnuRegulEdytuj")->trigger();
        frmRegulatory *w = editor(rig);
        w->txtFields(12)->setText(kod);
        w->txtFields(box)->setText(text);
        w->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
        deleteClosed();

        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(rig.f.dialogs.calls[0].style, style);
        QCOMPARE(rig.f.dialogs.calls[0].title, title);
        QVERIFY2(rig.prompt(0).contains(prompt), qPrintable(rig.prompt(0)));
        const QString t2 = "SELECT Kod, NapieciePomiar, Przekladnia FROM Regulatory WHERE rowid = 2";
        QCOMPARE(row(rig, t2).join(QLatin1Char('|')), stored);
        const bool saved = title == QLatin1String("Uwaga");
        QCOMPARE(editor(rig) == nullptr, saved);
        const QStringList logged{"Zapisano nowe dane o regulatorze", "B", "B", kod};
        QCOMPARE(savedLog(rig), saved ? logged : QStringList());
        if (style == Dialogs::Critical)
            QCOMPARE(w->focusWidget(), w->txtFields(12));
    }

    void newControllerIsStoredAndItsEmptyFilterStopsTheNextStart()
    {
        UiRig rig;
        rig.entry("mnuBDNowyRegul")->trigger();
        frmRegulatory *w = editor(rig);
        QCOMPARE(w->rows().AbsolutePosition(), 3);
        QVERIFY(w->rows().EditingRecord());
        QVERIFY(w->txtFields(12)->text().isEmpty() && !w->txtFields(12)->isReadOnly());
        const std::pair<int, const char *> typed[] = {{0, "3"},  {12, " T3"}, {11, "10"}, {13, "380"},
                                                      {20, "50"}, {21, "1"},  {22, "5"}};
        for (const auto &[box, text] : typed)
            w->txtFields(box)->setText(QString::fromLatin1(text));
        w->combo(0)->setCurrentIndex(0);
        w->combo(1)->setCurrentIndex(0);
        w->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(row(rig, "SELECT Kod, Typ, aktywny, CzestOdczytu, EnCzynnaMin FROM Regulatory WHERE Adres = 3"),
                 (QStringList{" T3", "regulator", "tak", "10", "NULL"}));

        StationFixture next(QStringLiteral("zorbel.db"));
        try {
            next.station().StartUp();
            QFAIL("the start went on");
        } catch (const RunTimeError &e) {
            QCOMPARE(e.number(), int(RunTimeError::InvalidUseOfNull));
            QVERIFY2(e.description().startsWith("tabela Regulatory, kolumna EnCzynnaMin, Kod \"T3\", Adres 3: "),
                     qPrintable(e.description()));
        }
    }

    void editFindsTheAddressOnlyForwardOfTheCurrentRow()
    {
        UiRig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        rig.entry("mnuRegulEdytuj")->trigger();
        frmRegulatory *w = editor(rig);
        QCOMPARE(w->txtFields(12)->text(), QStringLiteral("T2"));
        QCOMPARE(w->combo(1)->currentText(), QStringLiteral("tak")); // "Tak" as stored
        w->txtFields(15)->setText(QStringLiteral("rozdzielnia"));

        rig.s.oApp.NrAktRegulatora = 1; // before the current row: not found
        rig.entry("mnuRegulEdytuj")->trigger();
        QCOMPARE(editor(rig), w);
        QCOMPARE(w->rows().AbsolutePosition(), int(EditableRowSet::PositionEOF));
        QVERIFY(w->txtFields(12)->text().isEmpty() && w->txtFields(12)->isReadOnly());
        QVERIFY(!w->combo(0)->isEnabled());

        QTest::keyClick(w->txtFields(15), Qt::Key_Up); // what was typed stays with its row
        QCOMPARE(w->txtFields(15)->text(), QStringLiteral("rozdzielnia"));
        w->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
        QCOMPARE(row(rig, "SELECT Opis, aktywny FROM Regulatory WHERE Adres = 2"), (QStringList{"rozdzielnia", "Tak"}));
    }

    void keysStepThroughTheRowsAndBeepAtTheEnds_data()
    {
        QTest::addColumn<QString>("sql");
        QTest::addColumn<QString>("keys"); // "^" for Ctrl
        QTest::addColumn<QList<int>>("positions");
        QTest::addColumn<int>("beeps");
        const int none = EditableRowSet::PositionBOF;
        QTest::newRow("past the end") << "" << "Down Down PgDn" << QList<int>{2, 2, 2} << 2;
        QTest::newRow("before the start") << "" << "Up PgUp Down" << QList<int>{1, 1, 2} << 2;
        QTest::newRow("to the ends") << "" << "End Home ^PgDn ^Up ^Down" << QList<int>{2, 1, 2, 1, 2} << 0;
        QTest::newRow("empty table") << "DELETE FROM Regulatory" << "Down Up End Home" << QList<int>{none, none, none, none}
                                     << 0;
        QTest::newRow("Esc closes") << "" << "Esc" << QList<int>{1} << 0;
    }
    void keysStepThroughTheRowsAndBeepAtTheEnds()
    {
        QFETCH(QString, sql);
        QFETCH(QString, keys);
        QFETCH(QList<int>, positions);
        QFETCH(int, beeps);
        UiRig rig;
        if (!sql.isEmpty())
            rig.s.connection().execText(sql);
        int beeped = 0;
        QPointer<frmRegulatory> w = new frmRegulatory(rig.s, [&] { ++beeped; });
        rig.frame.showChild(w);
        const QHash<QString, Qt::Key> named{{"Down", Qt::Key_Down}, {"Up", Qt::Key_Up}, {"PgDn", Qt::Key_PageDown},
                                            {"PgUp", Qt::Key_PageUp}, {"End", Qt::Key_End}, {"Home", Qt::Key_Home},
                                            {"Esc", Qt::Key_Escape}};
        QList<int> seen;
        for (QString key : keys.split(QLatin1Char(' '))) {
            const auto modifiers = key.startsWith(QLatin1Char('^')) ? Qt::ControlModifier : Qt::NoModifier;
            QTest::keyClick(w->txtFields(12), named.value(key.remove(QLatin1Char('^'))), modifiers);
            seen << w->rows().AbsolutePosition();
        }
        QCOMPARE(seen, positions);
        QCOMPARE(beeped, beeps);
        deleteClosed();
        QCOMPARE(w.isNull(), keys == QLatin1String("Esc"));
    }
};

ZORBEL_TEST_MAIN(ControllerEditorTest)
#include "tst_controller_editor.moc"
