#pragma once

#include "reports/ChartGrid.h"

#include <QWidget>
#include <memory>

class ChartView;
class QCheckBox;
class QComboBox;
class QDateTimeEdit;
class QHBoxLayout;
class QPushButton;
class RowSet;
class Station;

// What the daily and the period chart windows share: the chart over the
// tool strip at the foot (controller, day, arrows, draw, quantity, grid,
// legend, picture and print). Choosing a controller, a date or a quantity
// draws nothing until a button is pressed.
class ChartWindow : public QWidget {
    Q_OBJECT

public:
    ~ChartWindow() override;

    // The load: controllers, quantity, today's date; nothing is drawn.
    virtual void load();
    // The click of "draw": one run; a run-time error ends it in a message box.
    void btnWykreslClick();

    const ChartGrid &grid() const { return m_grid; }
    ChartView *view() const { return m_view; }
    QComboBox *cmbRegul() const { return m_controllers; }
    QDateTimeEdit *dtData() const { return m_date; }
    QComboBox *cmbWyswietl() const { return m_quantity; }
    QComboBox *cmbSiatka() const { return m_gridChoice; }
    QCheckBox *chkLegenda() const { return m_legend; }

protected:
    struct Tips {
        const char *date, *back, *forward, *draw;
    };
    ChartWindow(Station &station, const char *name, const QString &caption, const Tips &tips, QWidget *parent);

    // Draws for the chosen controller and dates; false when nothing came.
    virtual bool draw(RowSet &rows, std::int16_t adres, const QString &kod) = 0;
    // The arrows: a step back (-1) or on (+1) of the window's dates.
    virtual void step(int direction) = 0;
    // Room in the tool strip for a window's own controls, after the date.
    QHBoxLayout &toolStrip() const { return *m_strip; }
    Station &station() const { return m_station; }
    ChartGrid &chartGrid() { return m_grid; }
    QDateTimeEdit *dateEdit(const char *name, const char *tip);
    void resizeEvent(QResizeEvent *event) override;

private:
    void placeTools(const Tips &tips);
    void placeExtras();
    QPushButton *stripButton(const char *name, const QString &caption, const char *tip);
    void applyGrid(const QString &choice);
    void savePicture();
    void print();

    Station &m_station;
    ChartGrid m_grid;
    ChartView *m_view;
    QWidget *m_tools;
    QHBoxLayout *m_strip;
    QComboBox *m_controllers = nullptr;
    QDateTimeEdit *m_date = nullptr;
    QPushButton *m_drawButton = nullptr;
    QComboBox *m_quantity = nullptr;
    QComboBox *m_gridChoice = nullptr;
    QCheckBox *m_legend = nullptr;
    std::unique_ptr<RowSet> m_rows;
};
