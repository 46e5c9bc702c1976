#pragma once

#include <QString>
#include <array>
#include <functional>
#include <optional>
#include <vector>

// What a chart is told to draw, in the chart control's own terms: rows
// (points along X, each with a label) and columns (series), values set per
// cell, rows and columns counted from 1. A cell never set is a gap, not a
// zero. The screen draws it whenever repainting is on; tests read it back.
class ChartGrid {
public:
    int rowCount() const { return int(m_rows.size()); }
    // Rows added keep nothing; rows cut lose their values and labels.
    void setRowCount(int rows);
    int columnCount() const { return int(m_columns.size()); }
    void setColumnCount(int columns);
    bool repaint() const { return m_repaint; }
    void setRepaint(bool on);
    bool showLegend() const { return m_legend; }
    void setShowLegend(bool on);
    const QString &titleText() const { return m_title; }
    void setTitleText(const QString &title);
    // Axis 0 is X, 1 is Y.
    const QString &axisTitle(int axis) const { return m_axisTitles.at(std::size_t(axis)); }
    void setAxisTitle(int axis, const QString &title);

    // A value with its null flag: a flag other than 0 clears the cell.
    void SetData(int row, int column, double value, int nullFlag);
    std::optional<double> value(int row, int column) const;
    const QString &rowLabel(int row) const { return m_rows.at(std::size_t(row - 1)).label; }
    void setRowLabel(int row, const QString &label);
    const QString &columnLabel(int column) const { return m_columns.at(std::size_t(column - 1)).label; }
    void setColumnLabel(int column, const QString &label);
    double penWidth(int series) const { return m_columns.at(std::size_t(series - 1)).penWidth; }
    void setPenWidth(int series, double width);
    // Major grid pen of an axis: 0 none, 1 solid. Axis 0 draws the lines
    // across X, axis 2 those across Y.
    int majorGridStyle(int axis) const { return m_grid.at(std::size_t(axis)); }
    void setMajorGridStyle(int axis, int style);

    // Told after every change while repainting is on, and when it is turned on.
    void setChangeListener(std::function<void()> listener) { m_changed = std::move(listener); }

private:
    struct Row {
        QString label;
        std::vector<std::optional<double>> values; // one per column
    };
    struct Column {
        QString label;
        double penWidth = 1.0;
    };
    void changed() const;

    std::vector<Row> m_rows;
    std::vector<Column> m_columns;
    bool m_repaint = true;
    bool m_legend = false;
    QString m_title;
    std::array<QString, 3> m_axisTitles{};
    std::array<int, 3> m_grid{0, 1, 1}; // as designed: lines across Y only
    std::function<void()> m_changed;
};
