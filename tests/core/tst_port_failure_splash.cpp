#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "station/PortOpening.h"

#include <QTest>

namespace {

// Message boxes that note, for each, whether the start window was still up.
class WatchingDialogs final : public Dialogs {
public:
    explicit WatchingDialogs(const RecordingSplash &splash) : m_splash(splash) {}
    int MsgBox(const QString &, int, const QString &) override
    {
        splashUp << !m_splash.closed;
        return Ok;
    }
    QList<bool> splashUp;

private:
    const RecordingSplash &m_splash;
};

}

class PortFailureSplashTest : public QObject {
    Q_OBJECT
private slots:
    void theStartWindowGoesBeforeTheFirstPortMessage_data()
    {
        QTest::addColumn<int>("failures");
        QTest::addColumn<bool>("closed");
        QTest::newRow("port opens at once: the start goes on under it") << 0 << false;
        QTest::newRow("port fails twice") << 2 << true;
    }
    void theStartWindowGoesBeforeTheFirstPortMessage()
    {
        QFETCH(int, failures);
        QFETCH(bool, closed);
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        WatchingDialogs dialogs(f.splash);
        Station station(StationServices{f.clock, f.settings, dialogs, f.splash, f.line, f.pump, f.wizual, f.panels});
        f.line.failOpenWith(failures > 0 ? QStringLiteral("zajęty") : QString());
        int asked = 0;
        openPortWithOperatorHelp(station, [&] {
            if (++asked == failures)
                f.line.failOpenWith(QString());
        });
        QCOMPARE(f.splash.closed, closed);
        QCOMPARE(dialogs.splashUp, QList<bool>(failures, false));
    }
};

ZORBEL_TEST_MAIN(PortFailureSplashTest)
#include "tst_port_failure_splash.moc"
