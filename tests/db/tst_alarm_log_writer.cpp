#include "TestMain.h"
#include "ErrorOf.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"
#include "db/Database.h"
#include "db/Schema.h"
#include "db/clsBD.h"

#include <QTest>
#include <memory>

namespace {

const ZDate Raised = ZDate::fromParts(2026, 11, 23, 8, 15, 0);
const ZDate Confirmed = ZDate::fromParts(2026, 11, 23, 8, 20, 5);
const ZDate Ended = ZDate::fromParts(2026, 11, 23, 9, 0, 0);

struct Writer {
    explicit Writer(const DatabaseConfig &c) : db(c), bd([this]() -> Database & { return db; })
    {
        db.open(Database::OpenMode::CreateIfMissing);
        Schema::create(db);
    }
    // The columns of one alarm row, NULLs as invalid variants.
    QVariantList alarm(std::int32_t id)
    {
        SqlStatement q(QStringLiteral("SELECT Data, Tresc, Typ, Kod_Regul, Operator, Data_potw, Data_dezakt "
                                      "FROM Alarmy WHERE Id_alarmu = "));
        q.value(id);
        QSqlQuery rows = db.exec(q);
        if (!rows.next())
            return {};
        QVariantList out;
        for (int i = 0; i < 7; ++i)
            out << (rows.isNull(i) ? QVariant() : QVariant(rows.value(i).toString().left(19).replace('T', ' ')));
        return out;
    }
    Database db;
    clsBD bd;
};

}

class AlarmLogWriterTest : public QObject {
    Q_OBJECT
private slots:
    void alarmRowsLeaveEmptyTextNull_data() { TestDatabases::addEngineRows(); }
    void alarmRowsLeaveEmptyTextNull()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Writer w(config);
        const std::int32_t bare = w.bd.ZapiszAlarm(Raised, QStringLiteral("R"), QStringLiteral("Brak komunikacji"),
                                                   QString(), QString());
        const std::int32_t full = w.bd.ZapiszAlarm(Raised, QStringLiteral("R"), QStringLiteral("Napięcie"),
                                                   QStringLiteral("HALA-A"), QStringLiteral("Kowalski"));
        QCOMPARE(full, bare + 1);
        QCOMPARE(w.alarm(bare), (QVariantList{QStringLiteral("2026-11-23 08:15:00"), QStringLiteral("Brak komunikacji"),
                                              QStringLiteral("R"), QVariant(), QVariant(), QVariant(), QVariant()}));
        QCOMPARE(w.alarm(full).mid(3, 2), (QVariantList{QStringLiteral("HALA-A"), QStringLiteral("Kowalski")}));
    }

    void confirmationAndDeactivationLeaveEachOtherAlone_data() { TestDatabases::addEngineRows(); }
    void confirmationAndDeactivationLeaveEachOtherAlone()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Writer w(config);
        const std::int32_t a = w.bd.ZapiszAlarm(Raised, QStringLiteral("R"), QStringLiteral("x"), QString(), QString());
        const std::int32_t b = w.bd.ZapiszAlarm(Raised, QStringLiteral("R"), QStringLiteral("y"), QString(), QString());

        w.bd.ModyfikujAlarm(a, Confirmed.toVariant(), QVariant(), QString());
        w.bd.ModyfikujAlarm(a, QVariant(), Ended.toVariant(), QString());
        w.bd.ModyfikujAlarm(b, QVariant(), Ended.toVariant(), QString());
        w.bd.ModyfikujAlarm(b, Confirmed.toVariant(), QVariant(), QString());
        w.bd.ModyfikujAlarm(b, QVariant(), QVariant(), QString()); // finds the row and changes nothing
        for (std::int32_t id : {a, b})
            QCOMPARE(w.alarm(id).mid(4), (QVariantList{QVariant(), QStringLiteral("2026-11-23 08:20:05"),
                                                        QStringLiteral("2026-11-23 09:00:00")}));

        // an unknown key writes nowhere
        QCOMPARE(errorOf([&] { w.bd.ModyfikujAlarm(b + 7, Confirmed.toVariant(), Ended.toVariant(), QStringLiteral("Nowak")); }), int(RunTimeError::NoCurrentRecord));
        QSqlQuery touched = w.db.exec(SqlStatement(QStringLiteral("SELECT COUNT(*) FROM Alarmy WHERE Operator IS NOT NULL")));
        QVERIFY(touched.next());
        QCOMPARE(touched.value(0).toInt(), 0);
    }

    void logEntriesAreStampedByTheDatabase_data() { TestDatabases::addEngineRows(); }
    void logEntriesAreStampedByTheDatabase()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Writer w(config);
        w.bd.ZapiszDoLoga(QStringLiteral("Start aplikacji"), QStringLiteral("N"), QStringLiteral("L"), QString());
        w.bd.ZapiszDoLoga(QStringLiteral("Załączono stopień nr  3"), QStringLiteral("N"), QStringLiteral("S"),
                          QStringLiteral("GPZ-T1"));
        QSqlQuery rows = w.db.exec(
            SqlStatement(QStringLiteral("SELECT Operacja, Status, Typ, Kod_Regul, Czas FROM Log ORDER BY Id_wpisu")));
        QVERIFY(rows.next());
        QCOMPARE(rows.value(0).toString(), QStringLiteral("Start aplikacji"));
        QVERIFY(rows.isNull(3));
        QVERIFY(!rows.isNull(4));
        QVERIFY(rows.next());
        QCOMPARE(rows.value(0).toString(), QStringLiteral("Załączono stopień nr  3"));
        QCOMPARE(rows.value(3).toString(), QStringLiteral("GPZ-T1"));
        QVERIFY(!rows.next());
    }
};

ZORBEL_TEST_MAIN(AlarmLogWriterTest)
#include "tst_alarm_log_writer.moc"
