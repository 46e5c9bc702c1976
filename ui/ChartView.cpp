#include "ChartView.h"

#include "reports/ChartGrid.h"

#include <QCategoryAxis>
#include <QChart>
#include <QLegendMarker>
#include <QLineSeries>
#include <QToolTip>
#include <QValueAxis>
#include <cmath>
#include <optional>

namespace {

const QColor Colours[] = {QColor(0, 90, 200), QColor(220, 60, 30), QColor(30, 150, 60)};
// The range of the values drawn, or none.
std::optional<std::pair<double, double>> valueRange(const ChartGrid &g)
{
    std::optional<std::pair<double, double>> range;
    for (int row = 1; row <= g.rowCount(); ++row)
        for (int column = 1; column <= g.columnCount(); ++column)
            if (const std::optional<double> v = g.value(row, column))
                range = range ? std::pair{std::min(range->first, *v), std::max(range->second, *v)} : std::pair{*v, *v};
    return range;
}

}

ChartView::ChartView(ChartGrid &grid, QWidget *parent) : QChartView(new QChart, parent), m_grid(grid)
{
    setObjectName(QStringLiteral("Wykres"));
    setRenderHint(QPainter::Antialiasing);
    chart()->legend()->setAlignment(Qt::AlignBottom);
    chart()->legend()->hide();
    m_grid.setChangeListener([this] { redraw(); });
}

void ChartView::redraw()
{
    QChart *c = chart();
    c->removeAllSeries();
    for (QAbstractAxis *axis : c->axes()) {
        c->removeAxis(axis);
        delete axis;
    }
    c->setTitle(m_grid.titleText());
    c->legend()->setVisible(m_grid.showLegend());
    for (int column = 1; column <= m_grid.columnCount(); ++column)
        addColumn(column, Colours[(column - 1) % 3]);
    addAxes();
}

// Segments of consecutive values; the first one carries the legend.
void ChartView::addColumn(int column, const QColor &colour)
{
    QLineSeries *segment = nullptr;
    const QPen pen(colour, m_grid.penWidth(column));
    for (int row = 1; row <= m_grid.rowCount(); ++row) {
        const std::optional<double> v = m_grid.value(row, column);
        if (!v) {
            segment = nullptr; // a gap, not a zero
            continue;
        }
        if (!segment) {
            segment = new QLineSeries;
            segment->setName(m_grid.columnLabel(column));
            segment->setProperty("column", column);
            segment->setPen(pen);
            segment->setPointsVisible(m_grid.rowCount() <= 100);
            connect(segment, &QLineSeries::hovered, this, &ChartView::showPoint);
            chart()->addSeries(segment);
            if (seriesOf(column).size() > 1)
                chart()->legend()->markers(segment).constFirst()->setVisible(false);
        }
        segment->append(row, *v);
    }
}

void ChartView::addAxes()
{
    auto *x = new QCategoryAxis;
    x->setTitleText(m_grid.axisTitle(0));
    x->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
    const int rows = m_grid.rowCount();
    int labelWidth = 0; // what the longest label needs beside its neighbour
    for (int row = 1; row <= rows; ++row)
        labelWidth = std::max(labelWidth, QFontMetrics(x->labelsFont()).horizontalAdvance(m_grid.rowLabel(row)) + 16);
    const int room = std::max(1, int(chart()->plotArea().width()) / std::max(1, labelWidth));
    const int step = std::max(1, int(std::ceil(double(rows) / room)));
    for (int row = 1; row <= rows; row += step)
        x->append(m_grid.rowLabel(row), row); // a label twice (an hour that repeats in autumn) shows once
    x->setRange(0.5, std::max(1, rows) + 0.5);
    x->setGridLineVisible(m_grid.majorGridStyle(0) != 0);
    auto *y = new QValueAxis;
    y->setTitleText(m_grid.axisTitle(1));
    y->setGridLineVisible(m_grid.majorGridStyle(2) != 0);
    chart()->addAxis(x, Qt::AlignBottom);
    chart()->addAxis(y, Qt::AlignLeft);
    for (QAbstractSeries *s : chart()->series()) {
        s->attachAxis(x);
        s->attachAxis(y);
    }
    // from zero, or from below it, to the largest value
    const auto range = valueRange(m_grid);
    const double low = range ? std::min(0.0, range->first) : 0.0;
    const double high = range ? std::max(range->second, low + 1e-9) : 1.0;
    y->setRange(low, high);
    y->applyNiceNumbers();
}

QList<QLineSeries *> ChartView::seriesOf(int column) const
{
    QList<QLineSeries *> out;
    for (QAbstractSeries *s : chart()->series())
        if (s->property("column").toInt() == column)
            out << static_cast<QLineSeries *>(s);
    return out;
}

void ChartView::showPoint(const QPointF &point, bool state)
{
    const int row = int(std::lround(point.x()));
    if (!state || row < 1 || row > m_grid.rowCount()) {
        QToolTip::hideText();
        return;
    }
    QToolTip::showText(QCursor::pos(), m_grid.rowLabel(row) + QStringLiteral(": ") + QString::number(point.y(), 'f', 3), this);
}

// The labels are thinned for the width the chart has.
void ChartView::resizeEvent(QResizeEvent *event)
{
    QChartView::resizeEvent(event);
    if (m_grid.repaint())
        redraw();
}
