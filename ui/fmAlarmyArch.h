#pragma once

#include "reports/AlarmHistory.h"

#include <QWidget>
#include <memory>

class QComboBox;
class QDateTimeEdit;
class QGroupBox;
class QPushButton;
class QTreeWidget;
class RowSet;
class Station;

// The alarms of one controller on one day, read back from the archive, so
// that alarms of earlier runs can be seen; it only reads. What the list
// shows can be printed and saved as PDF or CSV.
class fmAlarmyArch final : public QWidget {
    Q_OBJECT

public:
    explicit fmAlarmyArch(Station &station, QWidget *parent = nullptr);
    ~fmAlarmyArch() override;

    // The load: the controllers into the list to choose from, today's date.
    void load();
    // Fills the list for the chosen controller and day. A query that fails
    // is a run-time error and the list stays as it was.
    void WczytajAlarmy();

    QTreeWidget *lstAlarmy() const { return m_list; }
    QDateTimeEdit *dtData() const { return m_date; }
    QComboBox *cmbRegul() const { return m_controllers; }
    // What the list shows, as printed and exported.
    const AlarmHistory &shown() const { return m_shown; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void placeTools();
    void placeExportButtons();
    QPushButton *toolButton(QWidget *parent, const char *name, const QString &caption, int left, int width);
    void stepDay(int days);
    void addRow();
    // Runs an operator's command; a run-time error ends it with its message.
    void guarded(const std::function<void()> &command);
    void print();
    void saveAs(const QString &filter, const QString &suffix, void (*save)(const AlarmHistory &, const QString &));

    Station &m_station;
    QTreeWidget *m_list;
    QGroupBox *m_tools;
    QDateTimeEdit *m_date = nullptr;
    QComboBox *m_controllers = nullptr;
    QWidget *m_exports = nullptr;
    std::unique_ptr<RowSet> m_rows;
    AlarmHistory m_shown;
};
