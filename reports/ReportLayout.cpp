#include "reports/ReportLayout.h"

#include <algorithm>

namespace {

using F = ReportTable::Figure;
constexpr QRgb LightGrey = 0xE0E0E0; // 14737632, the grey of the footer's bands
const QString Energy = QStringLiteral("0,000");
const QString SignedEnergy = QStringLiteral("0,000;(0,000)");
const QString TgFi = QStringLiteral("0,00");
const QString Volts = QStringLiteral("0");
// between the columns of both layouts, clear of the texts of their heads, details and footers
// (a right-aligned figure's box may reach past one: its number stands at the box's right)
const QList<int> ColumnRules{1410, 2551, 3798, 4592, 6012, 6860, 8163};

ReportLayout::Section reportHeader(const char *title)
{
    return {QStringLiteral("RaportNagl"), 1350,
            {{QStringLiteral("Label2"), {0, 0, 1134, 227}, QStringLiteral("Wydruk z dnia ")},
             {QStringLiteral("Label3"), {1134, 0, 1440, 227}, QStringLiteral("%d")},
             {QStringLiteral("Label1"), {2268, 340, 2265, 330}, QString::fromUtf8(title)},
             {QStringLiteral("tytul"), {4535, 340, 3975, 330}, QString()},
             {QStringLiteral("podtytul"), {2268, 793, 5100, 330}, QString()}},
            {}, {}, {}};
}

ReportLayout::Section pageHeader(const char *first)
{
    return {QStringLiteral("Section2"), 570,
            {{QStringLiteral("Label4"), {113, 227, 1140, 225}, QString::fromUtf8(first)},
             {QStringLiteral("Label5"), {1474, 113, 1020, 450}, QStringLiteral("Energia czynna")},
             {QStringLiteral("Label6"), {2835, 113, 900, 450}, QStringLiteral("Energia bierna")},
             {QStringLiteral("Label7"), {4082, 226, 240, 225}, QStringLiteral("tg")},
             {QStringLiteral("Label8"), {4309, 226, 225, 225}, QStringLiteral("f"), true},
             {QStringLiteral("Label9"), {4649, 113, 1365, 450}, QStringLiteral("Energia bierna pojemnościowa")},
             {QStringLiteral("Label10"), {6123, 227, 780, 225}, QStringLiteral("Napięcie")},
             {QStringLiteral("Label11"), {6917, 227, 1245, 225}, QStringLiteral("Częstotliwość")},
             {QStringLiteral("Label12"), {8277, 113, 900, 450}, QStringLiteral("Prąd całkowity")}},
            {}, {}, {}};
}

ReportLayout::Section pageFooter(int height)
{
    return {QStringLiteral("Section3"), height,
            {{QStringLiteral("Label18"), {0, 227, 1020, 340}, QStringLiteral("Zorbel")},
             {QStringLiteral("Label16"), {7143, 227, 2040, 225}, QStringLiteral("strona %p/%P")}},
            {}, {}, {}};
}

// The four grey lines of the report footer with their captions.
ReportLayout::Section reportFooter(int height)
{
    ReportLayout::Section s{QStringLiteral("Section5"), height, {}, {}, {}, {}};
    const char *captions[] = {"suma", "min.", "maks.", "średnia"};
    const int captionTops[] = {0, 227, 454, 680};
    for (int i = 0; i < 4; ++i) {
        s.shapes.append({QStringLiteral("Shape%1").arg(i + 1), {0, 226 * i, 9184, 225}, LightGrey});
        s.labels.append({QStringLiteral("Label%1").arg(i < 3 ? 13 + i : 17), {113, captionTops[i], 1100, 225},
                         QString::fromUtf8(captions[i])});
    }
    return s;
}

// The footer's columns: left and width of each, then which lines each has.
struct FooterColumn {
    int left, width;
    const char *field;
    QString picture;
    bool sum, spread; // a "suma" line; the "min.", "maks." and "średnia" lines
};

void addFigures(ReportLayout::Section &s, const std::initializer_list<FooterColumn> &columns)
{
    const int tops[] = {0, 227, 454, 680};
    for (const FooterColumn &c : columns) {
        const QString field = QString::fromLatin1(c.field);
        if (c.sum)
            s.figures.append({{c.left, tops[0], c.width, 225}, F::Sum, field, c.picture});
        if (c.spread) {
            s.figures.append({{c.left, tops[1], c.width, 225}, F::Min, field, c.picture});
            s.figures.append({{c.left, tops[2], c.width, 225}, F::Max, field, c.picture});
            s.figures.append({{c.left, tops[3], c.width, 225}, F::Average, field, c.picture});
        }
    }
}

ReportLayout daily()
{
    ReportLayout l{QStringLiteral("RapDobowy"),
                   {reportHeader("Raport dobowy dla  "), pageHeader("Czas"), {}, pageFooter(568), reportFooter(1016)},
                   ColumnRules};
    ReportLayout::Section &detail = l.sections[ReportLayout::Section1];
    detail = {QStringLiteral("Section1"), 227, {}, {}, {}, {}};
    detail.fields = {{QStringLiteral("Text1"), {113, 0, 1125, 225}, QStringLiteral("data"), QStringLiteral("HH:mm:ss")},
                     {QStringLiteral("Text2"), {1474, 0, 1020, 227}, QStringLiteral("EnCzynna"), SignedEnergy},
                     {QStringLiteral("Text3"), {2721, 0, 1020, 225}, QStringLiteral("EnBierna"), Energy},
                     {QStringLiteral("Text4"), {3969, 0, 561, 225}, QStringLiteral("tgfi"), TgFi},
                     {QStringLiteral("Text5"), {4762, 0, 1132, 225}, QStringLiteral("EnBiernaPoj"), Energy},
                     {QStringLiteral("Text6"), {6123, 0, 681, 225}, QStringLiteral("Napiecie"), Volts},
                     {QStringLiteral("Text7"), {7030, 0, 1022, 225}, QStringLiteral("Czestotliwosc"), Energy},
                     {QStringLiteral("Text8"), {8277, 0, 802, 225}, QStringLiteral("PradCalk"), Energy}};
    addFigures(l.sections[ReportLayout::Section5], {{1361, 1110, "EnCzynna", Energy, true, false},
                                                    {2608, 1110, "EnBierna", Energy, true, false},
                                                    {3855, 680, "tgfi", TgFi, false, true},
                                                    {4649, 1238, "EnBiernaPoj", Energy, true, false},
                                                    {6009, 774, "Napiecie", Volts, false, true},
                                                    {7030, 1000, "Czestotliwosc", Energy, false, true},
                                                    {8164, 891, "PradCalk", Energy, false, true}});
    return l;
}

ReportLayout period()
{
    ReportLayout l{QStringLiteral("RapOkresowy"),
                   {reportHeader("Raport okresowy dla  "), pageHeader("Data"), {}, pageFooter(567), reportFooter(951)},
                   ColumnRules};
    ReportLayout::Section &detail = l.sections[ReportLayout::Section1];
    detail = {QStringLiteral("Section1"), 907, {}, {}, {}, {}};
    // the day arrives as text and prints as it stands, under "Data" and clear of the captions beside it
    detail.fields = {{QStringLiteral("Text1"), {113, 0, 794, 225}, QStringLiteral("data"), QStringLiteral("dd/MM/yyyy")}};
    const char *captions[] = {"min.", "maks.", "śr.", "suma"};
    for (int i = 0; i < 4; ++i)
        detail.labels.append({QStringLiteral("Label%1").arg(19 + i), {907, 227 * i, 450, 225}, QString::fromUtf8(captions[i])});
    struct Column {
        int left, width;
        const char *stem; // the line's field is stem + Min, Maks, Sr (or stem + Suma)
        QString picture;
        bool sum;
    };
    const Column columns[] = {{1474, 1020, "EnCzynna", SignedEnergy, true}, {2721, 1020, "EnBierna", Energy, true},
                              {3969, 555, "tgfi", TgFi, false},             {4762, 1140, "EnBiernaPoj", Energy, true},
                              {6123, 690, "Napiecie", Volts, false},        {7030, 1020, "Czestotliwosc", Energy, false},
                              {8277, 795, "PradCalk", Energy, false}};
    int n = 2;
    for (const Column &c : columns) {
        const QString stem = QString::fromLatin1(c.stem);
        const QStringList suffixes = c.sum ? QStringList{QStringLiteral("Suma")}
                                           : QStringList{QStringLiteral("Min"), QStringLiteral("Maks"), QStringLiteral("Sr")};
        const int firstTop = c.sum ? 680 : 0;
        for (int i = 0; i < suffixes.size(); ++i)
            detail.fields.append({QStringLiteral("Text%1").arg(n++), {c.left, firstTop + 227 * i, c.width, 225},
                                  stem + suffixes[i], c.picture});
    }
    // the footer: statistics of the daily sums, averages of the daily averages
    addFigures(l.sections[ReportLayout::Section5], {{1361, 1125, "EnCzynnaSuma", Energy, true, true},
                                                    {2608, 1125, "EnBiernaSuma", Energy, true, true},
                                                    {4649, 1230, "EnBiernaPojSuma", Energy, true, true}});
    ReportLayout::Section &footer = l.sections[ReportLayout::Section5];
    const struct {
        int left, width;
        const char *stem;
        QString picture;
    } spread[] = {{3855, 660, "tgfi", TgFi}, {6009, 765, "Napiecie", Volts}, {7030, 1006, "Czestotliwosc", Energy},
                  {8164, 907, "PradCalk", Energy}};
    for (const auto &c : spread) {
        const QString stem = QString::fromLatin1(c.stem);
        footer.figures.append({{c.left, 227, c.width, 225}, F::Min, stem + QStringLiteral("Min"), c.picture});
        footer.figures.append({{c.left, 454, c.width, 225}, F::Max, stem + QStringLiteral("Maks"), c.picture});
        footer.figures.append({{c.left, 680, c.width, 225}, F::Average, stem + QStringLiteral("Sr"), c.picture});
    }
    return l;
}

}

const ReportLayout &ReportLayout::RapDobowy()
{
    static const ReportLayout layout = daily();
    return layout;
}

const ReportLayout &ReportLayout::RapOkresowy()
{
    static const ReportLayout layout = period();
    return layout;
}

const ReportLayout &ReportLayout::of(ReportTable::Kind kind)
{
    return kind == ReportTable::Kind::Daily ? RapDobowy() : RapOkresowy();
}

QStringList ReportLayout::fields() const
{
    QStringList out;
    for (const Field &f : sections[Section1].fields)
        out << f.field;
    return out;
}

const ReportLayout::Label *ReportLayout::label(const QString &name) const
{
    for (const Section &s : sections) {
        const auto it = std::find_if(s.labels.cbegin(), s.labels.cend(),
                                     [&](const Label &l) { return l.name.compare(name, Qt::CaseInsensitive) == 0; });
        if (it != s.labels.cend())
            return &*it;
    }
    return nullptr;
}
