#include "TestMain.h"
#include "ErrorOf.h"
#include "base/RunTimeError.h"
#include "base/clsFunkcje.h"

#include <QTest>

class ByteHelpersTest : public QObject {
    Q_OBJECT
private slots:
    void wordsAreBigEndianTwosComplement()
    {
        QCOMPARE(clsFunkcje::TworzInt(0x01, 0x7C), std::int16_t(380));
        QCOMPARE(clsFunkcje::TworzInt(0xFF, 0xFF), std::int16_t(-1));
        QCOMPARE(clsFunkcje::TworzInt(0x80, 0x00), std::int16_t(-32768));
        QCOMPARE(clsFunkcje::TworzInt(0x7F, 0xFF), std::int16_t(32767));
        QCOMPARE(clsFunkcje::TworzLong(0x00, 0x01, 0x02, 0x03), std::int32_t(0x010203));
        QCOMPARE(clsFunkcje::TworzLong(0xFF, 0xFF, 0xFF, 0xFE), std::int32_t(-2));
        QCOMPARE(clsFunkcje::TworzLong(0x80, 0x00, 0x00, 0x00), std::numeric_limits<std::int32_t>::min());
    }

    void unsignedCounterOverflowsPastTheSignedRange()
    {
        QCOMPARE(clsFunkcje::TworzLongU(0x7F, 0xFF, 0xFF, 0xFF), std::int32_t(2147483647));
        QCOMPARE(clsFunkcje::TworzLongU(0x00, 0x00, 0x01, 0x00), std::int32_t(256));
        QCOMPARE(errorOf([&] { clsFunkcje::TworzLongU(0x80, 0x00, 0x00, 0x00); }), int(RunTimeError::Overflow));
    }

    void dateLiteralUsesTheDelimiter()
    {
        clsFunkcje f(QStringLiteral("#"));
        QCOMPARE(f.SqlZamienNaDate(ZDate::fromParts(2026, 1, 5, 23, 59, 0)), QStringLiteral("#2026-01-05#"));
        QVERIFY(clsFunkcje::logic(-1));
        QVERIFY(!clsFunkcje::logic(0));
    }
};

ZORBEL_TEST_MAIN(ByteHelpersTest)
#include "tst_byte_helpers.moc"
