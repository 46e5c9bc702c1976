#pragma once

#include "ReportDialog.h"

// Asks for the period report of a controller.
class fmRapOkres final : public ReportDialog {
    Q_OBJECT

public:
    fmRapOkres(Station &station, Raporty &raporty, QWidget *parent = nullptr)
        : ReportDialog(station, raporty, "fmRapOkres", Target::Controller, Span::Range, parent)
    {
    }

protected:
    void makeReport() override;
};
