#pragma once

#include <QWidget>
#include <cstdint>

class QComboBox;
class QDateTimeEdit;
class QLabel;
class QPushButton;
class Raporty;
class Station;

// What the four report dialogs share: the controller to choose (or the
// object the report is for), the day or the range of days, "&Ok" that makes
// the report and leaves the dialog open for the next one, "&Zamknij".
class ReportDialog : public QWidget {
    Q_OBJECT

public:
    // The load: controllers and dates as the dialog starts with them.
    void load();
    // "&Ok": one report; a run-time error ends it in a message box.
    void Command1Click();

    QComboBox *cmbRegul() const { return m_controllers; }
    QLabel *lblStrukt() const { return m_object; }
    QDateTimeEdit *dtData() const { return m_first; }
    QDateTimeEdit *dtDataDo() const { return m_last; }
    QPushButton *Command1() const { return m_ok; }
    QPushButton *Command2() const { return m_close; }

protected:
    enum class Target { Controller, Object };
    enum class Span { Day, Range };
    ReportDialog(Station &station, Raporty &raporty, const char *name, Target target, Span span, QWidget *parent);

    virtual void makeReport() = 0;
    Station &station() const { return m_station; }
    Raporty &raporty() const { return m_raporty; }
    // The chosen controller's Id; none chosen is a run-time error.
    std::int16_t selectedId() const;

private:
    QWidget *targetRow(Target target);
    QWidget *datesRow(Span span);

    Station &m_station;
    Raporty &m_raporty;
    QComboBox *m_controllers = nullptr;
    QLabel *m_object = nullptr;
    QDateTimeEdit *m_first = nullptr;
    QDateTimeEdit *m_last = nullptr;
    QPushButton *m_ok;
    QPushButton *m_close;
};
