#include "fmWykresy2.h"

#include "reports/PeriodChart.h"
#include "station/Station.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QHBoxLayout>

fmWykresy2::fmWykresy2(Station &station, QWidget *parent)
    : ChartWindow(station, "fmWykresy2", QStringLiteral("Wykres okresowy"),
                  {"początkowa data wykresu", "poprzedni miesiąc", "następny miesiąc", "generowanie wykresu"}, parent),
      m_last(dateEdit("dtDataDo", "końcowa data wykresu"))
{
    toolStrip().insertWidget(2, m_last);
}

void fmWykresy2::load()
{
    ChartWindow::load();
    m_last->setDateTime(station().now().toDateTime());
}

bool fmWykresy2::draw(RowSet &rows, std::int16_t adres, const QString &kod)
{
    return PeriodChart::draw(rows, chartGrid(), adres, kod, dtData()->date(), m_last->date(),
                             ChartQuantity(cmbWyswietl()->currentIndex()));
}

// A month each, each date by itself: 31 January goes to the end of February.
void fmWykresy2::step(int direction)
{
    dtData()->setDateTime(dtData()->dateTime().addMonths(direction));
    m_last->setDateTime(m_last->dateTime().addMonths(direction));
    btnWykreslClick();
}
