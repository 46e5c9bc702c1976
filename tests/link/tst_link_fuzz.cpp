#include "TestMain.h"
#include "LinkRig.h"

#include <QRandomGenerator>
#include <QTest>
#include <array>

namespace {
// What a correct reader makes of a run of bytes: a 2 swallows the byte
// after it, and a 2 with nothing after it is lost.
QList<int> unstuffed(const QByteArray &in)
{
    QList<int> out;
    for (qsizetype i = 0; i < in.size();) {
        const int b = static_cast<unsigned char>(in[i++]);
        if (b == 2 && i++ == in.size())
            break;
        out.append(b);
    }
    return out;
}

QByteArray randomBytes(QRandomGenerator &rng, int count)
{
    QByteArray b;
    for (int i = 0; i < count; ++i)
        b.append(char(rng.bounded(4) == 0 ? 2 : rng.bounded(256))); // plenty of 2s
    return b;
}

const char *const words[] = {"Czytaj_Diody", "daj_dane",    "czytaj",     "czytaj32",   "Czytaj_blok",
                             "Ustaw_blok",   "Ustaw_sr",    "Czytaj_Kond1", "Czytaj_Kond2", "Ustaw_kond",
                             "Badaj_kond",   "Wlacz_kond",  "Wlacz_kond2", "Testuj",     "smieci"};

// The longest a command may take: two tries of at most 1 + 32 reads, each
// ending within 3 seconds.
constexpr std::int64_t MaxCommandMs = 2 * 33 * 3000;
}

// Random input must never crash or hang the link; the unstuffing stays right
// whatever the bytes.
class LinkFuzzTest : public QObject {
    Q_OBJECT
private slots:
    void randomRepliesUnstuffCorrectly()
    {
        QRandomGenerator rng(20240115);
        qint64 total = 0;
        for (int round = 0; round < 300; ++round) {
            LinkRig rig;
            QByteArray stream;
            std::int64_t at = 0;
            // chunks with pauses shorter than the timeout
            while (stream.size() < 500) {
                const QByteArray chunk = randomBytes(rng, rng.bounded(1, 60));
                at += rng.bounded(1900);
                rig.line.arriveAfterMs(at, chunk, rng.bounded(3));
                stream += chunk;
            }
            QList<int> got;
            for (std::int16_t b; (b = rig.comm.CzytajBajt()) >= 0;) {
                QVERIFY(b <= 255);
                got.append(b);
            }
            QCOMPARE(got, unstuffed(stream));
            QCOMPARE(rig.line.pending(), 0);
            total += stream.size();
        }
        QVERIFY(total >= 150'000);
    }

    void commandsSurviveNoiseTruncationAndSilence()
    {
        QRandomGenerator rng(77);
        LinkRig rig({1, 2, 5, 255});
        qint64 total = 0;
        for (int round = 0; round < 2500; ++round) {
            // noise, a truncated or overlong reply, or nothing, at any moment
            const QByteArray noise = randomBytes(rng, rng.bounded(0, 80));
            rig.line.arriveAfterMs(rng.bounded(5000), noise, rng.bounded(0, 1500));
            if (rng.bounded(8) == 0)
                rig.line.arriveAfterMs(rng.bounded(100), QByteArray(1, char(2))); // a lone 2
            total += noise.size();

            const QString word = QString::fromLatin1(words[rng.bounded(int(std::size(words)))]);
            std::array<std::uint8_t, 32> block{};
            QVariant value;
            const bool wantsArray = word.startsWith(QLatin1String("Czytaj_D")) || word == QLatin1String("czytaj32");
            const ReplyBuffer buffer = wantsArray ? ReplyBuffer(block) : ReplyBuffer(value);
            const ZDate before = rig.clock.now();
            rig.run(std::int16_t(rng.bounded(1, 5)), word, buffer, std::uint8_t(rng.bounded(0x90)));
            QVERIFY(rig.clock.now().msecs() - before.msecs() <= MaxCommandMs);
            QVERIFY(!rig.comm.Zajety);
            if (!value.isNull())
                QVERIFY(value.toInt() >= 0 && value.toInt() <= 255);
        }
        QVERIFY(total >= 80'000);
        // every command announced its start and its end
        QCOMPARE(rig.wizual.calls.size(), 2 * 2500);
    }
};

ZORBEL_TEST_MAIN(LinkFuzzTest)
#include "tst_link_fuzz.moc"
