#pragma once

#include <QWidget>

class ActiveAlarmList;
class Dialogs;
class QTreeWidget;

// The alarm window: every alarm of the run, red while active, bold until
// confirmed, dimmed once over; a double click confirms. It shows the alarm
// list and has no close box: alarms are not to be put away.
class fmAlarmyN final : public QWidget {
public:
    fmAlarmyN(ActiveAlarmList &alarms, Dialogs &dialogs, QWidget *parent = nullptr);

    // Redraws the rows from the list.
    void refresh();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void confirmCurrent();

    ActiveAlarmList &m_alarms;
    Dialogs &m_dialogs;
    QTreeWidget *m_list;
    QWidget *m_legend;
};
