#include "TestMain.h"
#include "TestEnv.h"

#include "WavePlayer.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QtEndian>

namespace {

const QStringList waveFiles{QStringLiteral("alarm.wav"), QStringLiteral("zablokregul.wav"),
                            QStringLiteral("odblokregul.wav")};

QByteArray contentOf(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

struct Wave {
    int format = 0, channels = 0, rate = 0, byteRate = 0, blockAlign = 0, bits = 0;
    QList<qint16> samples;
    double seconds() const { return double(samples.size()) / rate; }
};

// Reads a RIFF/WAVE file, checking every size in its headers; a failure
// leaves `error` set.
Wave parse(const QByteArray &bytes, QString &error)
{
    Wave w;
    auto u32 = [&](qsizetype at) { return qFromLittleEndian<quint32>(bytes.constData() + at); };
    auto u16 = [&](qsizetype at) { return qFromLittleEndian<quint16>(bytes.constData() + at); };
    if (bytes.size() < 12 || bytes.left(4) != "RIFF" || bytes.mid(8, 4) != "WAVE")
        return error = QStringLiteral("no RIFF/WAVE header"), w;
    if (u32(4) != quint32(bytes.size() - 8))
        return error = QStringLiteral("RIFF size %1 for %2 bytes").arg(u32(4)).arg(bytes.size()), w;
    bool haveFormat = false, haveData = false;
    for (qsizetype at = 12; at < bytes.size();) {
        if (at + 8 > bytes.size())
            return error = QStringLiteral("torn chunk header"), w;
        const QByteArray id = bytes.mid(at, 4);
        const quint32 size = u32(at + 4);
        const qsizetype body = at + 8;
        if (body + size > bytes.size())
            return error = QStringLiteral("chunk %1 runs past the end").arg(QString::fromLatin1(id)), w;
        if (id == "fmt ") {
            if (size < 16)
                return error = QStringLiteral("short format chunk"), w;
            w.format = u16(body);
            w.channels = u16(body + 2);
            w.rate = int(u32(body + 4));
            w.byteRate = int(u32(body + 8));
            w.blockAlign = u16(body + 12);
            w.bits = u16(body + 14);
            haveFormat = true;
        } else if (id == "data") {
            if (!haveFormat || size % 2)
                return error = QStringLiteral("data before format or odd data size"), w;
            for (quint32 i = 0; i < size; i += 2)
                w.samples.append(qint16(u16(body + i)));
            haveData = true;
        }
        at = body + size + (size % 2);
    }
    if (!haveFormat || !haveData)
        error = QStringLiteral("format or data chunk missing");
    return w;
}

}

class WaveFilesTest : public QObject {
    Q_OBJECT
private slots:
    void theBuildLeavesThreeWaveFilesOfTheRightFormat()
    {
        for (const QString &name : waveFiles) {
            QString error;
            const Wave w = parse(contentOf(TestEnv::program(name)), error);
            QVERIFY2(error.isEmpty(), qPrintable(name + QStringLiteral(": ") + error));
            QCOMPARE(w.format, 1);
            QCOMPARE(w.channels, 1);
            QCOMPARE(w.rate, 22050);
            QCOMPARE(w.bits, 16);
            QCOMPARE(w.blockAlign, 2);
            QCOMPARE(w.byteRate, 44100);
            QVERIFY2(w.seconds() >= 0.3 && w.seconds() <= 1.0, qPrintable(name));
        }
    }

    void aMissingFileIsSilentAndAPresentOneIsPlayed()
    {
        TestEnv env;
        WavePlayer player;
        QVERIFY(!player.play(QStringLiteral("alarm.wav")));
        QVERIFY(!player.play(QString()));
        QVERIFY(!player.play(QStringLiteral("dzwieki"))); // a directory is no file
        QVERIFY(QDir().mkdir(QStringLiteral("dzwieki")));
        QVERIFY(QFile::copy(TestEnv::program(QStringLiteral("alarm.wav")), env.file(QStringLiteral("alarm.wav"))));
        QVERIFY(QFile::copy(TestEnv::program(QStringLiteral("odblokregul.wav")), env.file(QStringLiteral("dzwieki/odblokregul.wav"))));
        QVERIFY(player.play(QStringLiteral("alarm.wav")));
        QVERIFY(player.play(QStringLiteral("alarm.wav"))); // again while it plays: from the start
        QVERIFY(!player.play(QStringLiteral("odblokregul.wav")));
        QTest::qWait(100);

        // The name is resolved in the directory current at the call.
        QDir::setCurrent(env.file(QStringLiteral("dzwieki")));
        QVERIFY(player.play(QStringLiteral("odblokregul.wav")));
        QVERIFY(!player.play(QStringLiteral("alarm.wav")));
        QDir::setCurrent(env.path());
        QTest::qWait(300);

        QVERIFY(QFile::remove(env.file(QStringLiteral("alarm.wav"))));
        QVERIFY(!player.play(QStringLiteral("alarm.wav"))); // gone: silent again
    }
};

ZORBEL_TEST_MAIN(WaveFilesTest)
#include "tst_wave_files.moc"
