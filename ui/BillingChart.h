#pragma once

#include <QChartView>

class QLineSeries;
struct BillingStatement;

// A bill's daily tg φ against the tg φ0 line: a point for each day with
// active energy (the line broken at days without it), and tg φ0 as a
// stepped line where the tariff changes within the period.
class BillingChart final : public QChartView {
public:
    explicit BillingChart(QWidget *parent = nullptr);

    void show(const BillingStatement &statement);
    void clear();
    // The drawn series: the days' segments, then the tg φ0 line; for tests.
    QList<QLineSeries *> lines() const;

private:
    void addDays(const BillingStatement &s);
    void addThreshold(const BillingStatement &s);
    void addAxes(const BillingStatement &s);
};
