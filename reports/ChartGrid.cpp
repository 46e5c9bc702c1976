#include "reports/ChartGrid.h"

#include "base/RunTimeError.h"

namespace {

void checkIndex(int index, int count)
{
    if (index < 1 || index > count)
        throw RunTimeError::subscriptOutOfRange();
}

}

void ChartGrid::setRowCount(int rows)
{
    m_rows.resize(std::size_t(std::max(0, rows)), Row{{}, std::vector<std::optional<double>>(m_columns.size())});
    changed();
}

void ChartGrid::setColumnCount(int columns)
{
    m_columns.resize(std::size_t(std::max(0, columns)));
    for (Row &r : m_rows)
        r.values.resize(m_columns.size());
    changed();
}

void ChartGrid::setRepaint(bool on)
{
    m_repaint = on;
    changed();
}

void ChartGrid::setShowLegend(bool on)
{
    m_legend = on;
    changed();
}

void ChartGrid::setTitleText(const QString &title)
{
    m_title = title;
    changed();
}

void ChartGrid::setAxisTitle(int axis, const QString &title)
{
    m_axisTitles.at(std::size_t(axis)) = title;
    changed();
}

void ChartGrid::SetData(int row, int column, double value, int nullFlag)
{
    checkIndex(row, rowCount());
    checkIndex(column, columnCount());
    m_rows[std::size_t(row - 1)].values[std::size_t(column - 1)] = nullFlag == 0 ? std::optional<double>(value) : std::nullopt;
    changed();
}

std::optional<double> ChartGrid::value(int row, int column) const
{
    checkIndex(row, rowCount());
    checkIndex(column, columnCount());
    return m_rows[std::size_t(row - 1)].values[std::size_t(column - 1)];
}

void ChartGrid::setRowLabel(int row, const QString &label)
{
    checkIndex(row, rowCount());
    m_rows[std::size_t(row - 1)].label = label;
    changed();
}

void ChartGrid::setColumnLabel(int column, const QString &label)
{
    checkIndex(column, columnCount());
    m_columns[std::size_t(column - 1)].label = label;
    changed();
}

void ChartGrid::setPenWidth(int series, double width)
{
    checkIndex(series, columnCount());
    m_columns[std::size_t(series - 1)].penWidth = width;
    changed();
}

void ChartGrid::setMajorGridStyle(int axis, int style)
{
    m_grid.at(std::size_t(axis)) = style;
    changed();
}

void ChartGrid::changed() const
{
    if (m_repaint && m_changed)
        m_changed();
}
