#include "TestMain.h"
#include "TestEnv.h"

#include "WavePlayer.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QtEndian>
#include <numeric>

namespace {

struct Wave {
    bool riff = false; // the RIFF/WAVE layout with a "fmt " chunk, then "data", every size right
    int format = 0, channels = 0, rate = 0, byteRate = 0, blockAlign = 0, bits = 0;
    QList<qint16> samples;
};

Wave load(const QString &name)
{
    QFile file(TestEnv::program(name));
    const QByteArray b = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray(44, 0);
    auto u32 = [&](qsizetype at) { return qsizetype(qFromLittleEndian<quint32>(b.constData() + at)); };
    auto u16 = [&](qsizetype at) { return int(qFromLittleEndian<quint16>(b.constData() + at)); };
    Wave w{b.startsWith("RIFF") && u32(4) == b.size() - 8 && b.mid(8, 8) == "WAVEfmt " && u32(16) == 16
               && b.mid(36, 4) == "data" && u32(40) == b.size() - 44 && b.size() % 2 == 0,
           u16(20), u16(22), int(u32(24)), int(u32(28)), u16(32), u16(34), {}};
    for (qsizetype i = 44; i + 1 < b.size(); i += 2)
        w.samples.append(qint16(u16(i)));
    return w;
}

}

class WaveFilesTest : public QObject {
    Q_OBJECT
private slots:
    void theThreeSoundsAreValidWavesWithoutAClick()
    {
        for (const char *name : {"alarm.wav", "zablokregul.wav", "odblokregul.wav"}) {
            const Wave w = load(QLatin1String(name));
            QVERIFY2(w.riff, name);
            QCOMPARE(QList<int>({w.format, w.channels, w.rate, w.byteRate, w.blockAlign, w.bits}),
                     QList<int>({1, 1, 22050, 44100, 2, 16})); // PCM, mono, 16 bits
            const qsizetype n = w.samples.size();
            const auto peak = [&](qsizetype from, qsizetype to) {
                return std::accumulate(w.samples.begin() + from, w.samples.begin() + to, 0,
                                       [](int m, qint16 x) { return qMax(m, qAbs(int(x))); });
            };
            QVERIFY2(n >= 0.3 * w.rate && n <= 1.0 * w.rate, name);
            const int loudest = peak(0, n);
            QVERIFY2(loudest > 0.25 * 32767 && loudest < 0.95 * 32767, name);
            // silence at both ends, reached softly: no click when the sound starts or stops
            QVERIFY2(qAbs(w.samples.first()) <= 64 && qAbs(w.samples.last()) <= 64, name);
            QVERIFY2(peak(0, w.rate / 500) < loudest / 4 && peak(n - w.rate / 200, n) < loudest / 10, name);
        }
    }

    void thePlayerPlaysOnlyAFileOfTheDirectoryCurrentAtTheCall()
    {
        TestEnv env;
        WavePlayer player;
        QVERIFY(QDir().mkdir(QStringLiteral("alarm.wav"))); // a directory is no file
        QVERIFY(!player.play(QStringLiteral("alarm.wav")) && !player.play(QString()));
        QDir::setCurrent(TestEnv::program(QString()));
        QVERIFY(player.play(QStringLiteral("alarm.wav")));
    }

    // An installed station started elsewhere still sounds.
    void aSoundMissingHereIsPlayedFromTheInstalledSounds()
    {
        TestEnv env;
        WavePlayer installed(TestEnv::program(QString()));
        QVERIFY(installed.play(QStringLiteral("odblokregul.wav")) && !WavePlayer().play(QStringLiteral("odblokregul.wav")));
    }
};

ZORBEL_TEST_MAIN(WaveFilesTest)
#include "tst_wave_files.moc"
