#include "TestMain.h"

#include "ErrorOf.h"
#include "Opcje.h"
#include "PanelPictures.h"
#include "ctlDioda.h"
#include "ctlDioda3d.h"
#include "ctlPrzel.h"
#include "ctlSwitch.h"

#include <QLineEdit>
#include <QTest>

// The rules of the panel's keys and lamps, driven by real mouse events.
class PanelWidgetsTest : public QObject {
    Q_OBJECT

    const QPixmap up = PanelPictures::rockerUp();
    const QPixmap down = PanelPictures::rockerDown();

    static bool shows(const PictureControl &w, const QPixmap &p) { return w.shownPicture().cacheKey() == p.cacheKey(); }

private slots:
    void keyTogglesOnlyWhenEnabledAndAnAssignmentForgetsTheChange()
    {
        ctlPrzel key;
        key.ReadProperties({{"Picture1", up}, {"Picture2", down}, {"Value", false}});
        QVERIFY(!key.Value());
        QVERIFY(shows(key, up)); // the true picture until the owner's first assignment
        QTest::mouseDClick(&key, Qt::LeftButton);
        QVERIFY(!key.Value() && !key.Zmieniony()); // not enabled by default
        key.setEnabled(true);
        QTest::mouseDClick(&key, Qt::LeftButton);
        QVERIFY(key.Value() && key.Zmieniony()); // the flag set after the value
        QVERIFY(shows(key, up));
        key.setValue(true); // the same value, and still the change is forgotten
        QVERIFY(!key.Zmieniony());
        key.setValue(false);
        QVERIFY(shows(key, down));
    }

    void lampShowsItsSecondPictureLitAndIsSelectedOnlyWhenEnabled()
    {
        ctlDioda3d lamp;
        lamp.setPicture1(down);
        lamp.setPicture2(up);
        lamp.setZapalona(true);
        QVERIFY(shows(lamp, up));
        lamp.setZapalona(0);
        QVERIFY(shows(lamp, down));
        lamp.setSelected(true); // neither the program nor a click, while not enabled
        QTest::mouseClick(&lamp, Qt::LeftButton);
        QVERIFY(!lamp.Selected());
        lamp.setEnabled(true);
        QTest::mouseClick(&lamp, Qt::LeftButton);
        QVERIFY(lamp.Selected());
        QCOMPARE(lamp.BorderStyle(), 1);
        QTest::mouseClick(&lamp, Qt::LeftButton);
        QCOMPARE(lamp.BorderStyle(), 0);
    }

    void switchTogglesWhatEverEnabledSays()
    {
        ctlSwitch sw;
        sw.setPicture1(up);
        sw.setPicture2(down);
        QTest::mouseDClick(&sw, Qt::LeftButton);
        QVERIFY(!sw.Value());
        QVERIFY(shows(sw, down));
    }

    void propertiesSavedAreTheChangedOnesAndReadBackByName()
    {
        ctlPrzel placed;
        QCOMPARE(placed.WriteProperties().keys(), QStringList{"Font"});
        placed.setEnabled(true);
        placed.setValue(false);
        placed.setPicture2(down);
        QCOMPARE(placed.WriteProperties().keys(), (QStringList{"Enabled", "Font", "Picture2", "Value"}));
        ctlPrzel read;
        read.ReadProperties(placed.WriteProperties());
        QVERIFY(read.Enabled() && !read.Value() && read.Picture1().isNull());
        QCOMPARE(read.Picture2().cacheKey(), down.cacheKey());
    }

    void plainLampPaintsOnlyARealChangeAndItsPageEditsTheFirstSelected()
    {
        ctlDioda lamp;
        lamp.ReadProperties({{"ZapalKolor", 255u}, {"ZgasKolor", 65280u}, {"Stan", true}});
        lamp.setStan(true); // read without painting, so no change now either
        QCOMPARE(lamp.fill(), ctlDioda::DesignFill);
        lamp.setStan(false);
        QCOMPARE(lamp.fill(), 65280u);
        lamp.setStan(true);
        QCOMPARE(lamp.fill(), 255u);

        ctlDioda other;
        Opcje page;
        page.SelectionChanged({&lamp, &other});
        auto *zapal = page.findChild<QLineEdit *>("txtZapalKolor");
        QCOMPARE(zapal->text(), QStringLiteral("255"));
        QTest::keyClicks(zapal, "0");
        QVERIFY(page.Changed());
        page.ApplyChanges();
        QCOMPARE(lamp.ZapalKolor(), 2550u);
        QCOMPARE(other.ZapalKolor(), 0u);
        zapal->setText(QStringLiteral("red"));
        QCOMPARE(errorOf([&] { page.ApplyChanges(); }), 13);
    }
};

ZORBEL_TEST_MAIN(PanelWidgetsTest)
#include "tst_panel_widgets.moc"
