#pragma once

#include "StationFixture.h"
#include "TestEnv.h"

#include "ScreenWizual.h"
#include "fmGlowny.h"
#include "fmRegulatory.h"
#include "frmOptions.h"

#include "SimulatedLine.h"

#include "base/LoginPrompt.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTest>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

// The control mode's login, answered correctly.
struct AnsweringLogin final : LoginPrompt {
    explicit AnsweringLogin(clsoApp &app) : app(app) {}
    void showLogin() override { app.setParametrGlob(true); }
    clsoApp &app;
};

// A started station with controllers T1 and T2 (T1 current), its main window, the controller
// tree and the screen's hub; the sounds and the tree's pop-ups asked for are recorded.
// On the scripted line, or on the simulated one with T1 and T2 at their addresses.
struct UiRig {
    enum class Line { Scripted, Simulated };
    // `start`: the clock's time at the start (the clock does not jump later:
    // the polling would catch up on every tick in between).
    explicit UiRig(Line kind = Line::Scripted, ZDate start = {}) : s(prepare(kind, start))
    {
        f.createDatabase();
        f.addController(QStringLiteral("T1"), 1);
        f.addController(QStringLiteral("T2"), 2);
        s.StartUp();
        hub.bind(s);
        s.setProcessEnd([this](int) { ++ended; });
        frame.load();
        frame.showChild(tree = new fmRegulatory(s));
        tree->setPopupHandler([this](const QString &menu, const QPoint &) { popups << menu; });
        hub.attach(&frame, tree);
        hub.setPlayer([this](const QString &file) { played << file; });
        frame.show();
    }
    QAction *entry(const char *name) { return frame.entry(QString::fromLatin1(name)); }
    QStringList shown() const // the frame's windows, the tree first
    {
        QStringList names;
        for (QMdiSubWindow *w : frame.area().subWindowList())
            names << w->widget()->objectName();
        for (frmOptions *w : frame.findChildren<frmOptions *>())
            if (w->isVisible())
                names << QStringLiteral("frmOptions");
        return names;
    }
    QString prompt(int i) const { return f.dialogs.calls.value(i).prompt; }
    // A real click on the picture and text of the node of that key, in the
    // controller tree or the one given.
    void click(const char *key, Qt::MouseButton button = Qt::LeftButton, KeyedTree *in = nullptr)
    {
        KeyedTree *view = in ? in : tree->findChild<KeyedTree *>();
        QTreeWidgetItemIterator it(view);
        while (*it && KeyedTree::keyOf(*it) != QString::fromUtf8(key))
            ++it;
        view->scrollToItem(*it);
        QTest::mouseClick(view->viewport(), button, {}, view->visualItemRect(*it).center());
    }

    Station &prepare(Line kind, ZDate start)
    {
        if (!start.isZero())
            f.clock.set(start);
        if (kind == Line::Simulated) {
            simLine = std::make_unique<SimulatedLine>(f.clock);
            for (int adres : {1, 2}) {
                sim::ControllerConfig c;
                c.address = adres;
                simLine->bus().addController(c);
            }
            f.attachLine(*simLine, FakeEventPump::arrivalsOf(*simLine));
        }
        f.attachWizual(hub); // the station tells the hub
        return f.station();
    }

    TestEnv env;
    StationFixture f{QStringLiteral("zorbel.db")};
    StatusPanels &panels = f.panels;
    ScreenWizual hub{panels};
    std::unique_ptr<SimulatedLine> simLine;
    Station &s;
    AnsweringLogin login{s.oApp};
    fmGlowny frame{s, login};
    fmRegulatory *tree = nullptr;
    QStringList played, popups;
    int ended = 0;
};
