#pragma once

#include "ReportDialog.h"

// Asks for the daily report of a controller.
class fmRapDob final : public ReportDialog {
    Q_OBJECT

public:
    fmRapDob(Station &station, Raporty &raporty, QWidget *parent = nullptr)
        : ReportDialog(station, raporty, "fmRapDob", Target::Controller, Span::Day, parent)
    {
    }

protected:
    void makeReport() override;
};
