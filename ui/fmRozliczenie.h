#pragma once

#include "reports/BillingStatement.h"
#include "reports/BillingText.h"

#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>

class BillingChart;
class QComboBox;
class QDateTimeEdit;
class QLabel;
class QPushButton;
class QTabWidget;
class QTableWidget;
class Station;

// The bill of reactive energy of a controller or of an object of the
// structure for a period: the choice strip, then the bill's figures as
// BillingText words them, the daily tg φ chart, PDF and CSV. It only shows:
// BillingStatement computes. A day of a day table opens its daily chart.
class fmRozliczenie final : public QWidget {
    Q_OBJECT

public:
    // The object's controllers as the structure tree lists them ("'A','B'").
    using ControllerList = std::function<QString(const QString &name)>;
    // Opens the daily chart of a controller (by address) on a day.
    using DailyChart = std::function<void(std::int16_t adres, QDate day)>;

    fmRozliczenie(Station &station, ControllerList controllers, DailyChart dailyChart, QWidget *parent = nullptr);

    // The load: the station's controllers, the month of the station's clock.
    void load();
    // Chooses the structure's current element: its object, else the current controller.
    void chooseCurrent();
    // "Oblicz": the bill anew; a failure leaves no figures and says why.
    void btnObliczClick();
    void savePdf();
    void saveCsv();

    const std::optional<BillingStatement> &statement() const { return m_statement; }
    QComboBox *cmbZakres() const { return m_scope; }
    QDateTimeEdit *dtMiesiac() const { return m_month; }
    QDateTimeEdit *dtOd() const { return m_first; }
    QDateTimeEdit *dtDo() const { return m_last; }
    QLabel *lblWynik() const { return m_result; }
    BillingChart *chart() const { return m_chart; }
    // The table of a day list: "tblDni", "tblNadwyzka", "tblOplata"; null before a bill.
    QTableWidget *table(const char *name) const;

private:
    struct Target {
        BillingQuery::Scope scope;
        QString title;
    };
    QWidget *choiceStrip();
    QWidget *body();
    void monthChosen(QDate month);
    std::optional<Target> target();
    void compute();
    void clear();
    void showStatement(const BillingStatement &s);
    void showSummary(const BillingStatement &s);
    void addPages(const BillingStatement &s);
    void addDayPage(const BillingText::Section &section, const char *name, const QString &tab,
                    const std::vector<BillingStatement::Day> &days);
    void markGaps(const BillingStatement &s);
    void openDay(QDate day);
    std::int16_t controllerOfDay(QDate day);
    QString askPath(const char *extension, const QString &filter) const;

    Station &m_station;
    ControllerList m_controllers;
    DailyChart m_dailyChart;
    QComboBox *m_scope = nullptr;
    QDateTimeEdit *m_month = nullptr;
    QDateTimeEdit *m_first = nullptr;
    QDateTimeEdit *m_last = nullptr;
    QPushButton *m_compute = nullptr;
    QPushButton *m_pdf = nullptr;
    QPushButton *m_csv = nullptr;
    QLabel *m_heading = nullptr;
    QLabel *m_result = nullptr;
    QLabel *m_notes = nullptr;
    QTabWidget *m_pages = nullptr;
    BillingChart *m_chart = nullptr;
    std::optional<BillingStatement> m_statement;
    BillingQuery::Scope m_billed; // the scope of m_statement
};
