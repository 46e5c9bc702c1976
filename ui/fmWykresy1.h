#pragma once

#include "ChartWindow.h"

// The samples of one controller on one day: its energies or its tg fi.
class fmWykresy1 final : public ChartWindow {
    Q_OBJECT

public:
    explicit fmWykresy1(Station &station, QWidget *parent = nullptr);
    // As the common load, with the grid "Y" chosen.
    void load() override;

protected:
    bool draw(RowSet &rows, std::int16_t adres, const QString &kod) override;
    void step(int direction) override;
};
