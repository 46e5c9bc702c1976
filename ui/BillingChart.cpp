#include "BillingChart.h"

#include "reports/BillingStatement.h"

#include <QChart>
#include <QCategoryAxis>
#include <QLegendMarker>
#include <QLineSeries>
#include <QValueAxis>
#include <algorithm>

namespace {

const QColor DayColour(0, 90, 200), ThresholdColour(220, 60, 30);

// X counts days from the period's first: a day stretches over [n, n + 1),
// its point in the middle.
qreal startOf(const BillingStatement &s, QDate day)
{
    return qreal(s.first.daysTo(day));
}

}

BillingChart::BillingChart(QWidget *parent) : QChartView(new QChart, parent)
{
    setObjectName(QStringLiteral("wykTgFi"));
    setRenderHint(QPainter::Antialiasing);
    chart()->legend()->setAlignment(Qt::AlignBottom);
    setMinimumSize(320, 240);
}

void BillingChart::clear()
{
    QChart *c = chart();
    c->removeAllSeries();
    for (QAbstractAxis *axis : c->axes()) {
        c->removeAxis(axis);
        delete axis;
    }
    c->setTitle(QString());
}

void BillingChart::show(const BillingStatement &statement)
{
    clear();
    chart()->setTitle(QStringLiteral("tg φ dnia wobec tg φ0"));
    addDays(statement);
    addThreshold(statement);
    addAxes(statement);
}

// Segments of consecutive days with active energy; the first names the legend.
void BillingChart::addDays(const BillingStatement &s)
{
    QLineSeries *segment = nullptr;
    bool named = false;
    for (const BillingStatement::Day &d : s.days) {
        if (!d.charge.tgFi) {
            segment = nullptr;
            continue;
        }
        if (!segment) {
            segment = new QLineSeries;
            segment->setPen(QPen(DayColour, 2));
            segment->setPointsVisible(true);
            chart()->addSeries(segment);
            if (named)
                chart()->legend()->markers(segment).constFirst()->setVisible(false);
            segment->setName(QStringLiteral("tg φ dnia"));
            named = true;
        }
        segment->append(startOf(s, d.day) + 0.5, *d.charge.tgFi);
    }
}

void BillingChart::addThreshold(const BillingStatement &s)
{
    auto *line = new QLineSeries;
    line->setName(QStringLiteral("tg φ0"));
    line->setPen(QPen(ThresholdColour, 2, Qt::DashLine));
    for (const BillingStatement::Part &p : s.total.parts) {
        line->append(startOf(s, p.first), p.values.tgFi0);
        line->append(startOf(s, p.last.addDays(1)), p.values.tgFi0);
    }
    chart()->addSeries(line);
}

void BillingChart::addAxes(const BillingStatement &s)
{
    // a label at the start of every few days, at most a dozen
    auto *x = new QCategoryAxis;
    const int days = int(s.first.daysTo(s.last)) + 1;
    const int every = (days + 11) / 12;
    x->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    x->setStartValue(0);
    for (int n = 0; n < days; n += every)
        x->append(s.first.addDays(n).toString(QStringLiteral("dd.MM")), n);
    x->setRange(0, days);
    auto *y = new QValueAxis;
    y->setLabelFormat(QStringLiteral("%.2f"));
    y->setTitleText(QStringLiteral("tg φ"));
    qreal top = 0;
    for (QLineSeries *series : lines())
        for (const QPointF &p : series->points())
            top = std::max(top, p.y());
    y->setRange(0, top > 0 ? top * 1.15 : 1);
    y->applyNiceNumbers();
    chart()->addAxis(x, Qt::AlignBottom);
    chart()->addAxis(y, Qt::AlignLeft);
    for (QLineSeries *series : lines()) {
        series->attachAxis(x);
        series->attachAxis(y);
    }
}

QList<QLineSeries *> BillingChart::lines() const
{
    QList<QLineSeries *> out;
    for (QAbstractSeries *series : chart()->series())
        out << static_cast<QLineSeries *>(series);
    return out;
}
