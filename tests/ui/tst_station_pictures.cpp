#include "ErrorOf.h"

#include "StationImages.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>

namespace {

struct NamedList {
    const char *name;
    ImageList list;
};

QList<NamedList> allLists()
{
    return {{"main", StationImages::mainImages()},
            {"mode", StationImages::modeImages()},
            {"controllerTree", StationImages::controllerTreeImages()},
            {"structureTree", StationImages::structureTreeImages()}};
}

QImage imageOf(const QPixmap &pm)
{
    return pm.toImage().convertToFormat(QImage::Format_ARGB32);
}

int opaquePixels(const QImage &img)
{
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            n += qAlpha(img.pixel(x, y)) >= 128;
    return n;
}

// Pixels where the two pictures differ enough for the eye to see it.
int visiblyDifferentPixels(const QImage &a, const QImage &b)
{
    int n = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            const int d = qMax(qMax(qAbs(qRed(p) - qRed(q)), qAbs(qGreen(p) - qGreen(q))),
                               qMax(qAbs(qBlue(p) - qBlue(q)), qAbs(qAlpha(p) - qAlpha(q))));
            n += d > 48;
        }
    return n;
}

// Mean of (r + g + b) / 3 weighted by opacity.
double brightness(const QImage &img)
{
    double sum = 0, weight = 0;
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 16; ++x) {
            const QRgb p = img.pixel(x, y);
            sum += qAlpha(p) / 255.0 * (qRed(p) + qGreen(p) + qBlue(p)) / 3.0;
            weight += qAlpha(p) / 255.0;
        }
    return sum / weight;
}

}

class StationPicturesTest : public QObject {
    Q_OBJECT
private slots:
    void listsHaveTheirSizes()
    {
        QCOMPARE(StationImages::mainImages().count(), 21);
        QCOMPARE(StationImages::modeImages().count(), 3);
        QCOMPARE(StationImages::controllerTreeImages().count(), 6);
        QCOMPARE(StationImages::structureTreeImages().count(), 3);
    }

    void everyPictureIsA16x16DrawingWithSubstance()
    {
        for (const NamedList &l : allLists()) {
            for (int i = 1; i <= l.list.count(); ++i) {
                const QByteArray where = QByteArray(l.name) + " " + QByteArray::number(i);
                const QPixmap pm = l.list.pixmap(i);
                QVERIFY2(!pm.isNull(), where);
                QCOMPARE(pm.size(), QSize(16, 16));
                QVERIFY2(opaquePixels(imageOf(pm)) >= 50, where);
                QVERIFY2(!l.list.image(i).isNull(), where);
                QCOMPARE(imageOf(l.list.image(i).pixmap(16, 16)), imageOf(pm));
            }
        }
    }

    void picturesOfOneListDiffer()
    {
        for (const NamedList &l : allLists()) {
            for (int i = 1; i <= l.list.count(); ++i)
                for (int j = i + 1; j <= l.list.count(); ++j) {
                    const QByteArray where = QByteArray(l.name) + " " + QByteArray::number(i) + "/" + QByteArray::number(j);
                    QVERIFY2(visiblyDifferentPixels(imageOf(l.list.pixmap(i)), imageOf(l.list.pixmap(j))) >= 20, where);
                }
        }
    }

    void keysAreUniqueAndReachTheirPictures()
    {
        for (const NamedList &l : allLists()) {
            for (int i = 1; i <= l.list.count(); ++i) {
                const QString key = l.list.key(i);
                QVERIFY2(!key.isEmpty(), l.name);
                QCOMPARE(l.list.indexOf(key), i);
                QCOMPARE(imageOf(l.list.pixmap(key)), imageOf(l.list.pixmap(i)));
            }
        }
    }

    void theSystemsNamesAreThere()
    {
        const ImageList main = StationImages::mainImages();
        const QList<int> fixed{1, 3, 4, 11, 13, 17, 20, 21};
        for (const char *key : {"blysk1", "uwaga", "panel", "blysk", "lornetka", "Dane"})
            QVERIFY2(!fixed.contains(main.indexOf(QString::fromUtf8(key))), key);
        QCOMPARE(imageOf(main.pixmap(QStringLiteral("blysk"))), imageOf(StationImages::alarmFlash().pixmap(16, 16)));
        QCOMPARE(main.indexOf(QStringLiteral("dane")), main.indexOf(QStringLiteral("Dane"))); // keys are case-blind

        const ImageList mode = StationImages::modeImages();
        QCOMPARE(mode.indexOf(QStringLiteral("Wykrzyknik")), 1);
        QCOMPARE(mode.indexOf(QStringLiteral("ZablokRegul")), 2);
        QCOMPARE(mode.indexOf(QStringLiteral("Regul")), 3);
    }

    void theLitLampIsBrightAndTheDarkOneDark()
    {
        const ImageList main = StationImages::mainImages();
        const QImage dark = imageOf(main.pixmap(20)), lit = imageOf(main.pixmap(21));
        QVERIFY(visiblyDifferentPixels(dark, lit) >= 60);
        QVERIFY(brightness(dark) < 70);
        QVERIFY(brightness(lit) > brightness(dark) + 60);
        const QRgb centre = lit.pixel(8, 8);
        QVERIFY(qGreen(centre) > 200 && qGreen(centre) > qRed(centre) && qGreen(centre) > qBlue(centre) - 10);
    }

    void aStageSwitchedOnStandsOutFromOneSwitchedOff()
    {
        const ImageList tree = StationImages::controllerTreeImages();
        QVERIFY(visiblyDifferentPixels(imageOf(tree.pixmap(5)), imageOf(tree.pixmap(6))) >= 60);
    }

    void aBadPositionOrKeyIsSubscriptOutOfRange()
    {
        const ImageList main = StationImages::mainImages();
        for (int bad : {0, -1, 22}) {
            QCOMPARE(errorOf([&] { main.image(bad); }), 9);
            QCOMPARE(errorOf([&] { main.pixmap(bad); }), 9);
            QCOMPARE(errorOf([&] { main.key(bad); }), 9);
        }
        for (const QString &bad : {QStringLiteral("nieznany"), QString(), QStringLiteral("blysk ")}) {
            QCOMPARE(errorOf([&] { main.image(bad); }), 9);
            QCOMPARE(errorOf([&] { main.pixmap(bad); }), 9);
            QCOMPARE(errorOf([&] { main.indexOf(bad); }), 9);
        }
        QCOMPARE(errorOf([] { ImageList().image(1); }), 9);
    }

    void entriesCountFromOneAndKeysMayBeEmptyButNotTaken()
    {
        ImageList list;
        QPixmap pm(16, 16);
        pm.fill(Qt::red);
        QCOMPARE(list.add(QString(), pm), 1);
        QCOMPARE(list.add(QString(), pm), 2);
        QCOMPARE(list.add(QStringLiteral("Klucz"), pm), 3);
        QCOMPARE(list.key(1), QString());
        QCOMPARE(list.indexOf(QStringLiteral("KLUCZ")), 3);
        QCOMPARE(errorOf([&] { list.add(QStringLiteral("klucz"), pm); }), 457);
        QCOMPARE(list.count(), 3);
    }

    // With ZORBEL_PICTURE_SHEET set, every list is drawn into that PNG file,
    // one list a row, four times its size (or ZORBEL_PICTURE_SCALE times),
    // for a look by eye.
    void sheetForTheEye()
    {
        const QString file = qEnvironmentVariable("ZORBEL_PICTURE_SHEET");
        if (file.isEmpty())
            QSKIP("ZORBEL_PICTURE_SHEET not set");
        const QList<NamedList> lists = allLists();
        const int scale = qEnvironmentVariableIntValue("ZORBEL_PICTURE_SCALE") ?: 4;
        const int cell = 16 * scale + 8;
        QImage sheet(21 * cell, lists.size() * cell, QImage::Format_ARGB32);
        sheet.fill(QColor(236, 236, 236));
        QPainter p(&sheet);
        for (int row = 0; row < lists.size(); ++row)
            for (int i = 1; i <= lists[row].list.count(); ++i) {
                const QRect target((i - 1) * cell + 4, row * cell + 4, 16 * scale, 16 * scale);
                p.fillRect(target.adjusted(-1, -1, 1, 1), (i + row) % 2 ? Qt::white : QColor(250, 250, 235));
                p.drawPixmap(target, lists[row].list.pixmap(i));
            }
        p.end();
        QVERIFY(sheet.save(file));
    }
};

QTEST_MAIN(StationPicturesTest)
#include "tst_station_pictures.moc"
