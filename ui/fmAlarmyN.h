#pragma once

#include "model/ActiveAlarmList.h"

#include <QWidget>

class Dialogs;
class QTreeWidget;
class QTreeWidgetItem;

// The alarm window: every alarm of the run, red while active, bold until
// confirmed, dimmed once over; a double click confirms. It shows the alarm
// list and has no close box: alarms are not to be put away.
class fmAlarmyN final : public QWidget {
public:
    fmAlarmyN(ActiveAlarmList &alarms, Dialogs &dialogs, QWidget *parent = nullptr);

    // Brings the rows in line with the list, each in its place.
    void refresh();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void confirmCurrent();
    static void showRow(QTreeWidgetItem *item, const ActiveAlarmList::Row &r);

    ActiveAlarmList &m_alarms;
    Dialogs &m_dialogs;
    QTreeWidget *m_list;
    QWidget *m_legend;
};
