#pragma once

#include <QMainWindow>

class Station;
class QTreeWidget;

// The station's main window while the full frame is being built: the
// loaded controllers with their configuration; selecting one makes it the
// current controller.
class ControllerListWindow final : public QMainWindow {
public:
    explicit ControllerListWindow(Station &station);

private:
    void fill();

    Station &m_station;
    QTreeWidget *m_list;
};
