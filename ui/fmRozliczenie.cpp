#include "fmRozliczenie.h"

#include "BillingChart.h"
#include "BillingSectionPage.h"
#include "FormControls.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "reports/BillingCsv.h"
#include "reports/BillingPrint.h"
#include "reports/ReportQueries.h"
#include "station/Station.h"

#include <QComboBox>
#include <algorithm>
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QSet>
#include <QSplitter>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

// The scope combo's data: a controller's address, or an object's name.
constexpr int ObjectRole = Qt::UserRole + 1;
const QString ObjectTag = QStringLiteral("S");

}

fmRozliczenie::fmRozliczenie(Station &station, ControllerList controllers, DailyChart dailyChart, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint),
      m_station(station), m_controllers(std::move(controllers)), m_dailyChart(std::move(dailyChart))
{
    setObjectName(QStringLiteral("fmRozliczenie"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Rozliczenie energii biernej"));
    auto *column = new QVBoxLayout(this);
    column->addWidget(choiceStrip());
    column->addWidget(body(), 1);
    setGeometry(10, 10, 980, 600);
    clear();
}

QWidget *fmRozliczenie::choiceStrip()
{
    auto *strip = new QWidget(this);
    auto *row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    m_scope = new QComboBox(strip);
    m_scope->setObjectName(QStringLiteral("cmbZakres"));
    m_scope->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_month = form::dateEdit(strip, "dtMiesiac");
    m_month->setDisplayFormat(QStringLiteral("MM.yyyy"));
    m_first = form::dateEdit(strip, "dtOd");
    m_last = form::dateEdit(strip, "dtDo");
    m_compute = form::button(strip, "btnOblicz", QStringLiteral("&Oblicz"));
    m_pdf = form::button(strip, "btnPdf", QStringLiteral("PDF…"));
    m_csv = form::button(strip, "btnCsv", QStringLiteral("CSV…"));
    row->addWidget(form::label(strip, "lblZakres", QStringLiteral("Rozliczenie dla:")));
    row->addWidget(m_scope);
    row->addWidget(form::label(strip, "lblMiesiac", QStringLiteral("miesiąc:")));
    row->addWidget(m_month);
    row->addWidget(form::label(strip, "lblOkres", QStringLiteral("okres od:")));
    row->addWidget(m_first);
    row->addWidget(form::label(strip, "lblDo", QStringLiteral("do:")));
    row->addWidget(m_last);
    row->addWidget(m_compute);
    row->addStretch();
    connect(m_month, &QDateTimeEdit::dateChanged, this, [this](QDate d) { monthChosen(d); });
    connect(m_compute, &QPushButton::clicked, this, [this] { btnObliczClick(); });
    connect(m_pdf, &QPushButton::clicked, this, [this] { savePdf(); });
    connect(m_csv, &QPushButton::clicked, this, [this] { saveCsv(); });
    return strip;
}

QWidget *fmRozliczenie::body()
{
    auto *box = new QWidget(this);
    auto *column = new QVBoxLayout(box);
    column->setContentsMargins(0, 0, 0, 0);
    auto *headingRow = new QHBoxLayout;
    m_heading = form::label(box, "lblNaglowek", QString());
    headingRow->addWidget(m_heading, 1);
    headingRow->addWidget(m_pdf);
    headingRow->addWidget(m_csv);
    m_result = form::label(box, "lblWynik", QString());
    m_result->setTextFormat(Qt::RichText);
    m_result->setWordWrap(true);
    m_notes = form::label(box, "lblUwagi", QString());
    m_notes->setWordWrap(true);
    m_notes->setStyleSheet(QStringLiteral("color: #a00000;"));
    // the tables over the chart: both want the width, the tables for their columns, the chart for the days
    auto *split = new QSplitter(Qt::Vertical, box);
    m_pages = new QTabWidget(split);
    m_pages->setObjectName(QStringLiteral("tabRozliczenie"));
    m_chart = new BillingChart(split);
    split->setSizes({250, 220});
    column->addLayout(headingRow);
    column->addWidget(m_result);
    column->addWidget(m_notes);
    column->addWidget(split, 1);
    return box;
}

void fmRozliczenie::load()
{
    for (const auto &r : m_station.Regulatory)
        m_scope->addItem(r->Kod, int(r->adres));
    const QDate today = m_station.now().date();
    m_month->setDate(QDate(today.year(), today.month(), 1));
    monthChosen(m_month->date());
    chooseCurrent();
}

void fmRozliczenie::chooseCurrent()
{
    const int last = m_scope->count() - 1;
    if (last >= 0 && m_scope->itemData(last, ObjectRole).isValid())
        m_scope->removeItem(last); // one object at a time: the tree's current one
    const clsoApp &app = m_station.oApp;
    if (app.AktTypEl == ObjectTag && !app.AktElStruktury.isEmpty()) {
        m_scope->addItem(QStringLiteral("obiekt: %1").arg(app.AktElStruktury));
        m_scope->setItemData(m_scope->count() - 1, app.AktElStruktury, ObjectRole);
        m_scope->setCurrentIndex(m_scope->count() - 1);
    } else if (m_scope->count() > 0) {
        m_scope->setCurrentIndex(app.NrAktRegulatora - 1);
    }
}

void fmRozliczenie::monthChosen(QDate month)
{
    const QDate first(month.year(), month.month(), 1);
    m_first->setDate(first);
    m_last->setDate(first.addMonths(1).addDays(-1));
}

QTableWidget *fmRozliczenie::table(const char *name) const
{
    return m_pages->findChild<QTableWidget *>(QLatin1String(name));
}

void fmRozliczenie::btnObliczClick()
{
    clear();
    form::guarded(m_station.services.dialogs, [this] { compute(); });
}

// The scope chosen, or none when there is nothing to bill (said in a message).
std::optional<fmRozliczenie::Target> fmRozliczenie::target()
{
    Dialogs &dialogs = m_station.services.dialogs;
    if (m_first->date() > m_last->date()) {
        dialogs.MsgBox(QStringLiteral("Początek okresu jest późniejszy niż jego koniec."), Dialogs::Exclamation);
        return std::nullopt;
    }
    const QString object = m_scope->currentData(ObjectRole).toString();
    if (object.isEmpty()) {
        const QVariant adres = m_scope->currentData();
        if (!adres.isValid())
            throw RunTimeError::invalidPropertyArrayIndex();
        return Target{{std::int16_t(adres.toInt()), {}}, QStringLiteral("Regulator '%1'").arg(m_scope->currentText())};
    }
    const QString condition = ReportQueries::condition(m_controllers(object));
    if (condition.isEmpty()) {
        dialogs.MsgBox(QStringLiteral("Obiekt %1 nie ma regulatorów: nie ma czego rozliczyć.").arg(object),
                       Dialogs::Information);
        return std::nullopt;
    }
    return Target{{std::nullopt, condition}, QStringLiteral("Obiekt '%1'").arg(object)};
}

void fmRozliczenie::compute()
{
    // the tariff first: a malformed value stops before the archive is read
    const ReactiveTariff tariff = ReactiveTariff::read(m_station.services.settings);
    const std::optional<Target> t = target();
    if (!t)
        return;
    m_statement = BillingStatement::compute(m_station.connection(), t->scope, t->title, m_first->date(),
                                            m_last->date(), m_station.now(), tariff);
    m_billed = t->scope;
    showStatement(*m_statement);
}

void fmRozliczenie::clear()
{
    m_statement.reset();
    for (QLabel *l : {m_heading, m_result, m_notes})
        l->clear();
    while (m_pages->count() > 0) {
        QWidget *page = m_pages->widget(0);
        m_pages->removeTab(0);
        delete page;
    }
    m_chart->clear();
    m_pdf->setEnabled(false);
    m_csv->setEnabled(false);
}

void fmRozliczenie::showStatement(const BillingStatement &s)
{
    m_heading->setText(BillingText::subtitle(s));
    showSummary(s);
    m_notes->setText(s.notes.join(QLatin1Char('\n')));
    addPages(s);
    m_chart->show(s);
    m_pdf->setEnabled(true);
    m_csv->setEnabled(true);
}

// The figures of the bill's sum, tg φ red where it ran above tg φ0.
void fmRozliczenie::showSummary(const BillingStatement &s)
{
    const BillingStatement::Line &t = s.total;
    QStringList tg0;
    bool above = false;
    for (const BillingStatement::Part &p : t.parts) {
        tg0 << BillingText::number(p.values.tgFi0, 2);
        above = above || (p.charge.tgFi && *p.charge.tgFi > p.values.tgFi0);
    }
    const QString tg = BillingText::tgFi(t.tgFi);
    m_result->setText(
        QStringLiteral("<big>Energia czynna A: <b>%1 kWh</b> &nbsp;&nbsp; bierna indukcyjna: <b>%2 kvarh</b> "
                       "&nbsp;&nbsp; bierna pojemnościowa: <b>%3 kvarh</b><br>tg φ okresu: <b%4>%5</b> (tg φ0 %6) "
                       "&nbsp;&nbsp; nadwyżka: <b>%7 kvarh</b> &nbsp;&nbsp; opłata: <b>%8</b></big>")
            .arg(BillingText::number(t.sums.active, 1), BillingText::number(t.sums.inductive, 1),
                 BillingText::number(t.sums.capacitive, 1),
                 above ? QStringLiteral(" style=\"color:#c00000\"") : QString(), tg,
                 tg0.join(QStringLiteral(" / ")), BillingText::number(t.excess, 1), BillingText::fee(t.fee)));
}

void fmRozliczenie::addPages(const BillingStatement &s)
{
    const std::vector<BillingText::Section> sections = BillingText::sections(s);
    using P = BillingText::Part;
    m_pages->addTab(BillingSectionPage::make(sections[P::Energies], "tblEnergie", m_pages),
                    QStringLiteral("Energie okresu"));
    addDayPage(BillingText::dailySeries(s), "tblDni", QStringLiteral("Dni okresu"), s.days);
    markGaps(s);
    addDayPage(sections[P::WorstByExcess], "tblNadwyzka", QStringLiteral("10 dni: największa nadwyżka"),
               s.worstByExcess);
    addDayPage(sections[P::WorstByFee], "tblOplata", QStringLiteral("10 dni: największa opłata"), s.worstByFee);
    m_pages->addTab(BillingSectionPage::make(sections[P::Gaps], "tblBraki", m_pages),
                    QStringLiteral("Braki w archiwum"));
    m_pages->addTab(BillingSectionPage::make(sections[P::Tariff], "tblTaryfa", m_pages), QStringLiteral("Taryfa"));
}

// A page of days, each row opening its day's chart (a double click or Enter).
void fmRozliczenie::addDayPage(const BillingText::Section &section, const char *name, const QString &tab,
                               const std::vector<BillingStatement::Day> &days)
{
    QWidget *page = BillingSectionPage::make(section, name, m_pages);
    m_pages->addTab(page, tab);
    QTableWidget *rows = BillingSectionPage::tableOf(page);
    if (!rows)
        return;
    QList<QDate> dates;
    for (const BillingStatement::Day &d : days)
        dates << d.day;
    rows->setToolTip(QStringLiteral("Enter lub podwójne kliknięcie: wykres dobowy tego dnia"));
    connect(rows, &QTableWidget::activated, this, [this, dates](const QModelIndex &i) { openDay(dates.value(i.row())); });
}

void fmRozliczenie::markGaps(const BillingStatement &s)
{
    QSet<QDate> gapDays;
    for (const BillingStatement::Gap &g : s.gaps)
        gapDays.insert(g.day);
    QTableWidget *rows = table("tblDni");
    for (int r = 0; rows && r < rows->rowCount(); ++r)
        if (gapDays.contains(s.days[size_t(r)].day))
            for (int c = 0; c < rows->columnCount(); ++c) {
                rows->item(r, c)->setForeground(QColor(200, 0, 0));
                rows->item(r, c)->setToolTip(QStringLiteral("Braki w archiwum tego dnia"));
            }
}

void fmRozliczenie::openDay(QDate day)
{
    form::guarded(m_station.services.dialogs, [this, day] { m_dailyChart(controllerOfDay(day), day); });
}

// A controller's own; for an object, its controller with the largest excess
// that day (the first of them on a tie), from the bill of that day alone.
std::int16_t fmRozliczenie::controllerOfDay(QDate day)
{
    const BillingStatement &s = *m_statement;
    const BillingStatement one =
        BillingStatement::compute(m_station.connection(), m_billed, s.scope, day, day, s.computedAt, s.tariff);
    const auto largest = std::max_element(one.controllers.begin(), one.controllers.end(),
                                          [](const auto &a, const auto &b) { return a.excess < b.excess; });
    if (largest == one.controllers.end())
        throw RunTimeError::invalidPropertyArrayIndex();
    return m_station.Regulatory.Item(largest->kod).adres;
}

QString fmRozliczenie::askPath(const char *extension, const QString &filter) const
{
    QString name = QStringLiteral("rozliczenie %1 %2 %3")
                       .arg(m_statement->scope, m_statement->first.toString(Qt::ISODate),
                            m_statement->last.toString(Qt::ISODate));
    name.remove(u'\'').replace(QRegularExpression(QStringLiteral("\\s+")), QStringLiteral("_"));
    return m_station.services.dialogs.saveFileName(windowTitle(), name + QLatin1Char('.') + QLatin1String(extension),
                                                   filter);
}

void fmRozliczenie::savePdf()
{
    if (!m_statement)
        return;
    const QString path = askPath("pdf", QStringLiteral("PDF (*.pdf)"));
    if (!path.isEmpty())
        form::guarded(m_station.services.dialogs, [&] { BillingPrint::savePdf(*m_statement, path); });
}

void fmRozliczenie::saveCsv()
{
    if (!m_statement)
        return;
    const QString path = askPath("csv", QStringLiteral("CSV (*.csv)"));
    if (!path.isEmpty())
        form::guarded(m_station.services.dialogs, [&] { BillingCsv::save(*m_statement, path); });
}
