#include "TestMain.h"
#include "UiRig.h"

#include "MainToolbar.h"
#include "fmAlarmyArch.h"
#include "frmDane.h"

#include "db/Database.h"
#include "station/clsPozKolejki.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>

// The measurement data window and the alarm archive on a started station.
class DataWindowsTest : public QObject {
    Q_OBJECT

    static QStringList values(const frmDane *w)
    {
        QStringList out;
        for (int i = 0; i < 8; ++i)
            out << w->txtDane(i)->text();
        return out;
    }
    static void addAlarm(UiRig &rig, const char *kod, ZDate raised, const char *text, ZDate confirmed = {}, ZDate ended = {})
    {
        SqlStatement s(QStringLiteral("INSERT INTO Alarmy (Data, Kod_Regul, Tresc, Data_potw, Data_dezakt) VALUES ("));
        s.date(raised) << ", ";
        s.value(QString::fromUtf8(kod)) << ", ";
        s.value(QString::fromUtf8(text)) << ", ";
        s.value(confirmed.isZero() ? QVariant() : QVariant(confirmed.toIsoText())) << ", ";
        s.value(ended.isZero() ? QVariant() : QVariant(ended.toIsoText())) << ")";
        rig.s.connection().exec(s);
    }
    static QStringList rows(const fmAlarmyArch *w)
    {
        QStringList out;
        for (int i = 0; i < w->lstAlarmy()->topLevelItemCount(); ++i) {
            QStringList cells;
            for (int c = 0; c < 5; ++c)
                cells << w->lstAlarmy()->topLevelItem(i)->text(c);
            out << cells.join(QLatin1Char('|'));
        }
        return out;
    }
    static void click(QWidget *w, const char *button)
    {
        w->findChild<QPushButton *>(QString::fromLatin1(button))->click();
    }

private slots:
    void dataWindowShowsTheReadingAndAsksForOneOnlyWhenNotMonitored()
    {
        UiRig rig;
        clRegulator &t1 = rig.s.Regulatory.Item(1);
        t1.PradCzynny = 1234.5678f;
        t1.PradBiernSr = 100.0f;
        t1.PradBiernPojSr = 150.25f; // more capacitive than all reactive energy
        t1.TgFi = 0.4567f;
        t1.Napiecie = 400.4f;
        t1.PradCalk = 12.345f;
        t1.PradBierny = 0.0f;
        t1.Okres = 49.996f;
        rig.entry("mnureguldane")->trigger();
        auto *w = rig.frame.findChild<frmDane *>();
        QVERIFY(w && rig.s.oApp.Loaded_Dane);
        QCOMPARE(w->windowTitle(), QStringLiteral("Dane regulatora 'T1'"));
        QCOMPARE(values(w), (QStringList{"1234.568", "-50.250", "150.250", "0.457", "400", "12.35", "0.00", "50.00"}));
        QCOMPARE(rig.frame.toolbar().value(rig.frame.toolbar().key(4)), 1);
        QVERIFY(w->cmdOdswiez()->isEnabled());

        // two presses, two readings queued for the current controller, dated now
        w->cmdOdswiez()->click();
        w->cmdOdswiez()->click();
        QCOMPARE(rig.s.Kolejka.Count(), 2);
        const clsPozKolejki &queued = rig.s.Kolejka.Item(1);
        QCOMPARE(queued.Polecenie, QStringLiteral("WczytajStanRegul"));
        QCOMPARE(queued.NrRegul, std::int16_t(1));
        QCOMPARE(queued.date(), rig.s.now());

        // another controller, monitored: its values, and no manual reading
        rig.s.Regulatory.Item(2).Monitoring = true;
        rig.s.oApp.NrAktRegulatora = 2;
        rig.hub.eZmianaRegulatora(2);
        QCOMPARE(w->windowTitle(), QStringLiteral("Dane regulatora 'T2'"));
        QCOMPARE(values(w).first(), QStringLiteral("0.000"));
        QVERIFY(!w->cmdOdswiez()->isEnabled());
        rig.s.Regulatory.Item(2).Monitoring = false;
        w->Odswiez();
        QVERIFY(w->cmdOdswiez()->isEnabled());

        // its own close box releases the button but leaves the menu's check mark
        rig.frame.area().closeAllSubWindows();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!rig.s.oApp.Loaded_Dane && !rig.frame.dataWindow());
        QCOMPARE(rig.frame.toolbar().value(rig.frame.toolbar().key(4)), 0);
        QVERIFY(rig.entry("mnureguldane")->isChecked());
        rig.hub.eNoweDane(2, QStringLiteral("O")); // reaches no window
    }

    void archiveListsOneControllersWholeDayAndKeepsItOnAFailedQuery()
    {
        UiRig rig;
        const ZDate day = ZDate::fromParts(2026, 11, 24);
        addAlarm(rig, "T1", day.addSecs(-1), "wczoraj");
        addAlarm(rig, "T1", day, "Przekroczona wartość napięcia", day.addMinutes(5), day.addDays(1).addMinutes(30));
        addAlarm(rig, "T2", day.addMinutes(60), "inny regulator");
        addAlarm(rig, "T1", day.addDays(1).addSecs(-1), "Brak komunikacji z regulatorem");
        addAlarm(rig, "T1", day.addDays(1), "jutro");

        rig.s.oApp.NrAktRegulatora = 2;
        rig.entry("mnuNarzAlarmy")->trigger();
        auto *w = rig.frame.findChild<fmAlarmyArch *>();
        QVERIFY(w);
        QCOMPARE(w->lstAlarmy()->topLevelItemCount(), 0); // shown, not loaded
        QCOMPARE(w->cmbRegul()->currentText(), QStringLiteral("T2"));
        QCOMPARE(w->cmbRegul()->itemData(0).toInt(), 1);

        w->cmbRegul()->setCurrentIndex(0);
        w->dtData()->setDateTime(day.addMinutes(15 * 60 + 30).toDateTime());
        QCOMPARE(w->lstAlarmy()->topLevelItemCount(), 0); // a change alone does not load
        click(w, "cmdOdswiez");
        const QStringList wanted{
            "24/11/26 00:00:00|T1|Przekroczona wartość napięcia|24/11/26 00:05:00|25/11/26 00:30:00",
            "24/11/26 23:59:59|T1|Brak komunikacji z regulatorem||"};
        QCOMPARE(rows(w), wanted);
        QCOMPARE(w->shown().rows.size(), std::size_t(2));

        click(w, "btnPrawo"); // a day on, and loaded
        QCOMPARE(rows(w), QStringList{"25/11/26 00:00:00|T1|jutro||"});
        click(w, "btnLewo");
        QCOMPARE(rows(w), wanted);

        // the code stands in the query as it is: an apostrophe breaks it, and
        // nothing but the one statement can run
        for (const char *kod : {"O'Hara", "x'; DELETE FROM Alarmy; --"}) {
            w->cmbRegul()->addItem(QString::fromUtf8(kod));
            w->cmbRegul()->setCurrentIndex(w->cmbRegul()->count() - 1);
            const int boxes = rig.f.dialogs.calls.size();
            click(w, "cmdOdswiez");
            QCOMPARE(rig.f.dialogs.calls.size(), boxes + 1);
            QVERIFY(rig.prompt(boxes).startsWith(QStringLiteral("Błąd wykonania")));
            QCOMPARE(rows(w), wanted); // the list as it was
        }
        QSqlQuery left = rig.s.connection().exec(SqlStatement(QStringLiteral("SELECT COUNT(*) FROM Alarmy")));
        QVERIFY(left.next());
        QCOMPARE(left.value(0).toInt(), 5);
    }

    void archiveOpenedForTheControllerLoadsTodayAndExportsWhatItShows()
    {
        UiRig rig;
        addAlarm(rig, "T1", rig.s.now(), "Przekroczona wartość napięcia; \"faza L2\"");
        rig.entry("mnuRegulAlarmy")->trigger();
        auto *w = rig.frame.findChild<fmAlarmyArch *>();
        QCOMPARE(w->lstAlarmy()->topLevelItemCount(), 1);

        rig.f.dialogs.savePaths << rig.env.file(QStringLiteral("alarmy.csv")) << rig.env.file(QStringLiteral("alarmy.pdf"));
        click(w, "cmdCsv");
        click(w, "cmdPdf");
        click(w, "cmdCsv"); // cancelled: nothing asked of the disk
        QCOMPARE(rig.f.dialogs.savesAsked.size(), 3);
        QVERIFY(rig.f.dialogs.savesAsked.first().prompt.startsWith(QStringLiteral("alarmy_T1_")));
        QFile csv(rig.env.file(QStringLiteral("alarmy.csv")));
        QVERIFY(csv.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(csv.readAll());
        QVERIFY(text.contains(QStringLiteral("\"Przekroczona wartość napięcia; \"\"faza L2\"\"\"")));
        QFile pdf(rig.env.file(QStringLiteral("alarmy.pdf")));
        QVERIFY(pdf.open(QIODevice::ReadOnly));
        QVERIFY(pdf.read(5) == "%PDF-");
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }
};

ZORBEL_TEST_MAIN(DataWindowsTest)
#include "tst_data_windows.moc"
