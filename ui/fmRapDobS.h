#pragma once

#include "ReportDialog.h"

// Asks for the daily report of the structure's current object.
class fmRapDobS final : public ReportDialog {
    Q_OBJECT

public:
    fmRapDobS(Station &station, Raporty &raporty, QWidget *parent = nullptr)
        : ReportDialog(station, raporty, "fmRapDobS", Target::Object, Span::Day, parent)
    {
    }

protected:
    void makeReport() override;
};
