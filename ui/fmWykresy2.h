#pragma once

#include "ChartWindow.h"

// One point a day for one controller over a range of days.
class fmWykresy2 final : public ChartWindow {
    Q_OBJECT

public:
    explicit fmWykresy2(Station &station, QWidget *parent = nullptr);
    // As the common load, with both dates today and the grid as designed.
    void load() override;

    QDateTimeEdit *dtDataDo() const { return m_last; }

protected:
    bool draw(RowSet &rows, std::int16_t adres, const QString &kod) override;
    void step(int direction) override;

private:
    QDateTimeEdit *m_last;
};
