#pragma once

#include "reports/ReportTable.h"

#include <QList>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <array>

// A printed report as bands, the way its designer drew it: report header,
// page header, detail (once per row), page footer, report footer. Positions
// are twips from the band's top left corner. The layout holds no logic but
// its bindings: a detail field names a column of the table, a footer figure
// a statistic of a column over all rows.
struct ReportLayout {
    enum Band { RaportNagl, Section2, Section1, Section3, Section5, BandCount }; // in printing order

    struct Box {
        int left, top, width, height;
    };
    // Fixed text. Two texts are filled in when printed: "%d" the printing
    // date, "%p/%P" in "strona %p/%P" the page and the page count; the
    // controls "tytul" and "podtytul" take the table's header texts.
    struct Label {
        QString name;
        Box box;
        QString text;
        bool symbolFont = false; // the Symbol font: "f" prints as the Greek phi
    };
    struct Field { // a column of the current row
        QString name;
        Box box;
        QString field;
        QString picture;
    };
    struct Figure { // a statistic of a column over all rows
        Box box;
        ReportTable::Figure figure;
        QString field;
        QString picture;
    };
    struct Shape { // a filled band
        QString name;
        Box box;
        QRgb colour;
    };
    struct Section {
        QString name;
        int height = 0;
        QList<Label> labels;
        QList<Field> fields;
        QList<Figure> figures;
        QList<Shape> shapes;
    };

    QString name;
    std::array<Section, BandCount> sections;
    // Where thin lines part the columns, twips from the left: down the page
    // header, every detail and the report footer's lines, clear of every text.
    QList<int> columnRules;

    static const ReportLayout &RapDobowy();
    static const ReportLayout &RapOkresowy();
    static const ReportLayout &of(ReportTable::Kind kind);

    // The columns the detail binds, in the order of its fields.
    QStringList fields() const;
    // A control by name, without regard to case; null when there is none.
    const Label *label(const QString &name) const;
};
