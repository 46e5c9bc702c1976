#include "TestMain.h"
#include "RecordingWizual.h"

#include "base/LoginPrompt.h"
#include "model/clsoApp.h"

#include <QTest>
#include <functional>

namespace {

// A login window that answers as the test says: it may write the slot as
// the window's buttons do, or leave it as a closed window does.
class ScriptedLogin final : public LoginPrompt {
public:
    explicit ScriptedLogin(std::function<void()> answer) : m_answer(std::move(answer)) {}
    void showLogin() override
    {
        ++shown;
        m_answer();
    }
    int shown = 0;

private:
    std::function<void()> m_answer;
};

}

class ControlModeTest : public QObject {
    Q_OBJECT
private slots:
    void correctLoginEntersControlModeAndTellsTheHub()
    {
        clsoApp app;
        RecordingWizual hub;
        ScriptedLogin login([&] { app.setParametrGlob(true); });
        bool tryb = true;
        QVERIFY(app.UstawTrybSterowania(tryb, login, hub));
        QVERIFY(tryb);
        QVERIFY(app.TrybSterowania);
        QCOMPARE(login.shown, 1);
        QCOMPARE(hub.argsOf("eZmianaTrybuSterowania"), QList<QVariantList>{{true}});
    }

    void cancelledOrUnansweredLoginLeavesNormalModeAndStillTellsTheHub()
    {
        // cancel writes false; a window closed at once on a fresh slot leaves it empty
        for (bool cancel : {true, false}) {
            clsoApp app;
            RecordingWizual hub;
            ScriptedLogin login([&] {
                if (cancel)
                    app.setParametrGlob(false);
            });
            bool tryb = true;
            QVERIFY(!app.UstawTrybSterowania(tryb, login, hub));
            QVERIFY(!tryb); // the caller's flag is cleared too
            QVERIFY(!app.TrybSterowania);
            QCOMPARE(hub.argsOf("eZmianaTrybuSterowania"), QList<QVariantList>{{false}});
        }
    }

    void leavingControlModeAsksForNoPassword()
    {
        clsoApp app;
        RecordingWizual hub;
        ScriptedLogin login([&] { app.setParametrGlob(true); });
        QVERIFY(app.PrzelaczTrybSterowania(login, hub));
        QVERIFY(!app.PrzelaczTrybSterowania(login, hub));
        QCOMPARE(login.shown, 1);
        QVERIFY(!app.TrybSterowania);
        QCOMPARE(hub.argsOf("eZmianaTrybuSterowania"), (QList<QVariantList>{{true}, {false}}));
    }

    void loginClosedByItsCloseBoxCountsAsTheLastLoginOfTheRun()
    {
        clsoApp app;
        RecordingWizual hub;
        bool answer = true;
        ScriptedLogin login([&] {
            if (answer)
                app.setParametrGlob(true);
        });
        app.PrzelaczTrybSterowania(login, hub); // a real login
        app.PrzelaczTrybSterowania(login, hub); // back to normal
        answer = false;                         // now the window is only closed
        QVERIFY(app.PrzelaczTrybSterowania(login, hub));
        QVERIFY(app.TrybSterowania);
        QCOMPARE(login.shown, 2);
    }
};

ZORBEL_TEST_MAIN(ControlModeTest)
#include "tst_control_mode.moc"
