#include "TestMain.h"
#include "ErrorOf.h"
#include "base/Conversions.h"
#include "base/NumberForm.h"
#include "base/RunTimeError.h"
#include "base/ZDate.h"
#include "base/BitMasks.h"

#include <QTest>
#include <functional>
#include <limits>

class SharedTypesTest : public QObject {
    Q_OBJECT
private slots:
    void dayCountMatchesTheCalendar()
    {
        QCOMPARE(ZDate().date(), QDate(1899, 12, 30));
        QCOMPARE(ZDate().time(), QTime(0, 0));
        QVERIFY(ZDate().isZero());
        const ZDate noon = ZDate::fromDays(45000.5);
        QCOMPARE(noon.toIsoText(), QStringLiteral("2023-03-15 12:00:00"));
        QCOMPARE(ZDate::fromParts(2023, 3, 15, 12).days(), 45000.5);
        // before the zero the count runs negative, linearly
        QCOMPARE(ZDate::fromParts(1899, 12, 29, 18).days(), -0.25);
        QCOMPARE(ZDate::fromParts(1899, 12, 29, 18).toIsoText(), QStringLiteral("1899-12-29 18:00:00"));
    }

    void secondsAreExactOverACentury()
    {
        const ZDate t = ZDate::fromParts(2024, 6, 1, 10, 15, 0);
        // billions of seconds from the zero date: more than 31 bits, still exact
        const std::int64_t s = ZDate::secondsBetween(ZDate(), t);
        QVERIFY(s > std::numeric_limits<std::int32_t>::max());
        QCOMPARE(s % (15 * 60), std::int64_t(0));
        QCOMPARE(ZDate().addSecs(s), t);
        // whole-second boundaries, as a clock read in seconds counts them
        QCOMPARE(ZDate::secondsBetween(t.addMsecs(999), t.addMsecs(1000)), std::int64_t(1));
        QCOMPARE(ZDate::secondsBetween(t.addMsecs(1), t.addMsecs(999)), std::int64_t(0));
    }

    void datesComeBackFromEveryStoredForm()
    {
        const ZDate t = ZDate::fromParts(2024, 3, 31, 2, 30, 5); // inside a daylight-saving gap in Europe
        QCOMPARE(ZDate::fromVariant(t.toIsoText()), t);
        QCOMPARE(ZDate::fromVariant(QStringLiteral("2024-03-31T02:30:05")), t);
        QCOMPARE(ZDate::fromVariant(QDateTime(QDate(2024, 3, 31), QTime(2, 30, 5), Qt::UTC)), t);
        QCOMPARE(t.toIsoText(), QStringLiteral("2024-03-31 02:30:05"));
        bool ok = true;
        ZDate::fromVariant(QStringLiteral("wczoraj"), &ok);
        QVERIFY(!ok);
    }

    void numberFormHasTheBlankAndShortestDigits_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<bool>("single");
        QTest::addColumn<QString>("text");
        QTest::newRow("positive fraction") << 131.5 << true << " 131.5";
        QTest::newRow("negative whole") << -1.0 << true << "-1";
        QTest::newRow("zero") << 0.0 << true << " 0";
        QTest::newRow("negative zero") << -0.0 << true << " 0";
        QTest::newRow("large") << 1e10 << true << " 1E+10";
        QTest::newRow("seven digits") << 1234567.0 << true << " 1234567";
        QTest::newRow("eight digits rounds") << 12345678.0 << true << " 1.234568E+07";
        QTest::newRow("single noise hidden") << double(0.1f + 0.2f) << true << " 0.3";
        QTest::newRow("small") << 0.0001 << true << " 0.0001";
        QTest::newRow("tiny") << 0.000015 << true << " 1.5E-05";
        QTest::newRow("threshold") << 999999999.0 << true << " 1E+09";
        QTest::newRow("double keeps more") << 0.1 + 0.2 << false << " 0.3";
        QTest::newRow("double digits") << 2.718281828459 << false << " 2.718281828459";
    }

    void numberFormHasTheBlankAndShortestDigits()
    {
        QFETCH(double, value);
        QFETCH(bool, single);
        QFETCH(QString, text);
        QCOMPARE(single ? numberForm(float(value)) : numberForm(value), text);
    }

    void numberFormOfIntegers()
    {
        QCOMPARE(numberForm(5), QStringLiteral(" 5"));
        QCOMPARE(numberForm(-32768), QStringLiteral("-32768"));
        QCOMPARE(numberForm(std::int64_t(3000000000LL)), QStringLiteral(" 3000000000"));
    }

    void integerArithmeticRefusesToWrap()
    {
        QCOMPARE(conv::add16(32766, 1), std::int16_t(32767));
        QCOMPARE(errorOf([] { conv::add16(32767, 1); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::sub16(-32768, 1); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::mul16(256, 128); }), int(RunTimeError::Overflow));
        QCOMPARE(conv::addByte(0x8F, 0x70), std::uint8_t(0xFF));
        QCOMPARE(errorOf([] { conv::addByte(0x90, 0x70); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::subByte(0, 1); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::narrow32(std::int64_t(1) << 31); }), int(RunTimeError::Overflow));
    }

    void conversionsRoundHalfToEvenAndRefuseWhatDoesNotFit()
    {
        QCOMPARE(conv::toInt16(2.5), std::int16_t(2));
        QCOMPARE(conv::toInt16(3.5), std::int16_t(4));
        QCOMPARE(conv::toInt16(-2.5), std::int16_t(-2));
        QCOMPARE(conv::toByte(QVariant(QStringLiteral(" 7 "))), std::uint8_t(7));
        QCOMPARE(conv::toByte(QVariant(QStringLiteral("255"))), std::uint8_t(255));
        QCOMPARE(errorOf([] { conv::toByte(QVariant(QStringLiteral("256"))); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::toByte(QVariant(QStringLiteral("-1"))); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::toByte(QVariant(QStringLiteral("COM1"))); }), int(RunTimeError::TypeMismatch));
        QCOMPARE(errorOf([] { conv::toInt16(QVariant(QString())); }), int(RunTimeError::TypeMismatch));
        QCOMPARE(errorOf([] { conv::toInt16(QVariant(32768)); }), int(RunTimeError::Overflow));
        QCOMPARE(errorOf([] { conv::toSingle(QVariant()); }), int(RunTimeError::InvalidUseOfNull));
        QCOMPARE(errorOf([] { conv::toText(QVariant()); }), int(RunTimeError::InvalidUseOfNull));
        QCOMPARE(errorOf([] { conv::toSingle(QVariant(1e39)); }), int(RunTimeError::Overflow));
    }

};

ZORBEL_TEST_MAIN(SharedTypesTest)
#include "tst_shared_types.moc"
