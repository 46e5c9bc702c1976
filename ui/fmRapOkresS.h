#pragma once

#include "ReportDialog.h"

// Asks for the period report of the structure's current object.
class fmRapOkresS final : public ReportDialog {
    Q_OBJECT

public:
    fmRapOkresS(Station &station, Raporty &raporty, QWidget *parent = nullptr)
        : ReportDialog(station, raporty, "fmRapOkresS", Target::Object, Span::Range, parent)
    {
    }

protected:
    void makeReport() override;
};
