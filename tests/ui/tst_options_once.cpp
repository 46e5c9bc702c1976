#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "ModalLogin.h"
#include "fmGlowny.h"
#include "frmOptions.h"

#include "model/StatusPanels.h"

#include <QApplication>
#include <QPointer>
#include <QTest>

namespace {

QList<frmOptions *> shownOptions(const fmGlowny &frame)
{
    QList<frmOptions *> shown;
    for (frmOptions *w : frame.findChildren<frmOptions *>())
        if (w->isVisible())
            shown << w;
    return shown;
}

}

class OptionsOnceTest : public QObject {
    Q_OBJECT
private slots:
    void opcjeBringsTheOpenWindowForwardInsteadOfOpeningAnother()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        ModalLogin login(f.station().oApp, f.dialogs);
        fmGlowny frame(f.station(), login);
        frame.show();
        QAction *opcje = frame.entry(QStringLiteral("mnuNarzOpcje"));

        opcje->trigger();
        const QPointer<frmOptions> first = shownOptions(frame).value(0);
        QVERIFY(first);
        frame.activateWindow();
        QApplication::processEvents();
        QCOMPARE(QApplication::activeWindow(), &frame);

        opcje->trigger();
        QApplication::processEvents();
        QCOMPARE(shownOptions(frame), QList<frmOptions *>{first});
        QCOMPARE(QApplication::activeWindow(), first.data());

        // once closed, the next click opens a new one
        first->close();
        opcje->trigger();
        const QList<frmOptions *> now = shownOptions(frame);
        QCOMPARE(now.size(), 1);
        QVERIFY(now.first() != first);
    }
};

ZORBEL_TEST_MAIN(OptionsOnceTest)
#include "tst_options_once.moc"
