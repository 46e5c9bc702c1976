#pragma once

#include <QMainWindow>
#include <QTimer>
#include <cstdint>

class QLabel;
class QTreeWidget;
class QTreeWidgetItem;
class Station;
class StatusPanels;

// The station's main window while the full frame is being built: the
// controllers with their configuration and their last readings; selecting
// one makes it the current controller.
class ControllerListWindow final : public QMainWindow {
public:
    ControllerListWindow(Station &station, const StatusPanels &panels);

    void refreshController(std::int16_t Id);
    void refreshAlarms();
    void showLink(std::int16_t Stan);
    void showReading(std::int16_t Id, bool busy);

private:
    void fill();
    QTreeWidgetItem *itemOf(std::int16_t Id) const;
    void refreshStatus();

    Station &m_station;
    const StatusPanels &m_panels;
    QTreeWidget *m_list;
    QLabel *m_link;
    QLabel *m_alarms;
    QLabel *m_clock;
    QTimer m_statusTimer;
};
