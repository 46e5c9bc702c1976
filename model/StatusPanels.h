#pragma once

#include <QObject>
#include <QString>
#include <array>

// The six panels of the main window's status bar as the station fills them:
// 1 the work in progress, 2 the monitoring lamp, 3 the alarm sign, 4 the
// link lamp, 5 the operating mode, 6 the clock. The polling and the event
// hub write them; the status bar shows them.
class StatusPanels : public QObject {
    Q_OBJECT
public:
    // What a panel's picture shows; None is an empty picture.
    enum class Picture { None, DarkLamp, LitLamp, AlarmFlash, ControlMode };

    struct Panel {
        QString text;
        QString toolTip;
        Picture picture = Picture::None;
    };
    // The panels, numbered from 1 as on the screen.
    enum Number : int { Work = 1, MonitoringLamp, AlarmSign, LinkLamp, Mode, Clock };
    static constexpr int Count = 6;

    // Panels are numbered from 1, as on the screen.
    const Panel &panel(int n) const { return m_panels.at(std::size_t(n - 1)); }
    QString text(int n) const { return panel(n).text; }
    Picture picture(int n) const { return panel(n).picture; }

    void setText(int n, const QString &text);
    void setToolTip(int n, const QString &toolTip);
    void setPicture(int n, Picture picture);

    // A notice of the station's own beside the six panels (the month's
    // reactive energy running above the contract); empty: none.
    const Panel &notice() const { return m_notice; }
    void setNotice(const QString &text, const QString &toolTip);

signals:
    void panelChanged(int n);
    void noticeChanged();

private:
    Panel &at(int n) { return m_panels.at(std::size_t(n - 1)); }

    std::array<Panel, Count> m_panels{};
    Panel m_notice;
};
