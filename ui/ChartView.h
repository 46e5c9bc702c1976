#pragma once

#include <QChartView>

class ChartGrid;
class QLineSeries;

// Draws a ChartGrid on QtCharts whenever the grid says to repaint: a line
// per column, broken where a row has no value, the rows' labels along X
// (thinned so that they never overlap), grid lines as the grid's axes 0
// (across X) and 2 (across Y) say. Hovering a point shows its label and value.
class ChartView final : public QChartView {
public:
    explicit ChartView(ChartGrid &grid, QWidget *parent = nullptr);

    // Redraws from the grid now.
    void redraw();
    // What the view shows: series (line segments) of a column, for tests.
    QList<QLineSeries *> seriesOf(int column) const;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void addColumn(int column, const QColor &colour);
    void addAxes();
    void showPoint(const QPointF &point, bool state);

    ChartGrid &m_grid;
};
