#include "fmWykresy1.h"

#include "reports/DailyChart.h"

#include <QComboBox>
#include <QDateTimeEdit>

fmWykresy1::fmWykresy1(Station &station, QWidget *parent)
    : ChartWindow(station, "fmWykresy1", QStringLiteral("Wykres dobowy"),
                  {"data wykresu", "poprzednia doba", "następna doba", "generuj wykres"}, parent)
{
}

void fmWykresy1::load()
{
    ChartWindow::load();
    cmbSiatka()->setCurrentIndex(2); // "Y", which sets the grid
}

bool fmWykresy1::draw(RowSet &rows, std::int16_t adres, const QString &kod)
{
    return DailyChart::draw(rows, chartGrid(), adres, kod, dtData()->date(),
                            ChartQuantity(cmbWyswietl()->currentIndex()));
}

void fmWykresy1::step(int direction)
{
    dtData()->setDateTime(dtData()->dateTime().addDays(direction));
    btnWykreslClick();
}
