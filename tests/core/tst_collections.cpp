#include "TestMain.h"
#include "ErrorOf.h"
#include "base/RunTimeError.h"
#include "model/colMierniki.h"
#include "model/colRegulatory.h"

#include <QTest>
#include <functional>

class CollectionsTest : public QObject {
    Q_OBJECT
private slots:
    void positionAndKeyAreDifferentLookups()
    {
        colRegulatory c;
        c.Add(7, QStringLiteral("2"), QStringLiteral("2"));
        c.Add(9, QStringLiteral("1"), QStringLiteral("1"));
        QCOMPARE(c.Count(), 2);
        // the integer 1 is the first position; the text "1" is a code
        QCOMPARE(c.Item(1).Kod, QStringLiteral("2"));
        QCOMPARE(c.Item(QStringLiteral("1")).adres, std::int16_t(9));
        QCOMPARE(c.Item(QStringLiteral("2")).adres, std::int16_t(7));
    }

    void refusesTakenKeysAndUnknownItems()
    {
        colRegulatory c;
        c.Add(1, QStringLiteral("K1"), QStringLiteral("K1"));
        QCOMPARE(errorOf([&] { c.Add(2, QStringLiteral("K1"), QStringLiteral("K1")); }), int(RunTimeError::DuplicateKey));
        QCOMPARE(c.Count(), 1); // the refused one was not added
        QCOMPARE(errorOf([&] { c.Item(0); }), int(RunTimeError::SubscriptOutOfRange));
        QCOMPARE(errorOf([&] { c.Item(2); }), int(RunTimeError::SubscriptOutOfRange));
        // keys compare case-blind, as the database does
        QCOMPARE(c.Item(QStringLiteral("k1")).adres, std::int16_t(1));
        QCOMPARE(errorOf([&] { c.Add(4, QStringLiteral("k1"), QStringLiteral("k1")); }), int(RunTimeError::DuplicateKey));
        QCOMPARE(errorOf([&] { c.Item(QStringLiteral("K2")); }), int(RunTimeError::InvalidCall));
        // without a key an item is reached by position only
        c.Add(3, QStringLiteral("bez"), QString());
        QCOMPARE(c.Item(2).adres, std::int16_t(3));
        QCOMPARE(errorOf([&] { c.Item(QStringLiteral("bez")); }), int(RunTimeError::InvalidCall));
    }

    void removeKeepsKeysPointingAtTheirItems()
    {
        colRegulatory c;
        for (int i = 1; i <= 4; ++i)
            c.Add(std::int16_t(i), QStringLiteral("R%1").arg(i), QStringLiteral("R%1").arg(i));
        c.Remove(QStringLiteral("R2"));
        QCOMPARE(c.Count(), 3);
        QCOMPARE(c.Item(QStringLiteral("R3")).adres, std::int16_t(3));
        QCOMPARE(c.Item(2).Kod, QStringLiteral("R3"));
        QCOMPARE(errorOf([&] { c.Item(QStringLiteral("R2")); }), int(RunTimeError::InvalidCall));
        QStringList order;
        for (const auto &r : c)
            order << r->Kod;
        QCOMPARE(order, QStringList({"R1", "R3", "R4"}));
    }

};

ZORBEL_TEST_MAIN(CollectionsTest)
#include "tst_collections.moc"
