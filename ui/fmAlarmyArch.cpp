#include "fmAlarmyArch.h"

#include "FormControls.h"
#include "Twips.h"

#include "base/Dialogs.h"
#include "db/AlarmArchive.h"
#include "db/RowSet.h"
#include "reports/AlarmCsv.h"
#include "reports/AlarmPrint.h"
#include "station/Station.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QGroupBox>
#include <QHeaderView>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTreeWidget>

namespace {

constexpr int Width = 10600;
constexpr int InnerHeight = 5720;
const QString ListDate = QStringLiteral("dd/MM/yy HH:mm:ss"); // a two-digit year in this list

// A date column as the list shows it: empty when NULL.
QString dateCell(const QVariant &field, ZDate *date)
{
    *date = field.isNull() ? ZDate() : ZDate::fromVariant(field);
    return field.isNull() ? QString() : date->toString(ListDate);
}

}

fmAlarmyArch::fmAlarmyArch(Station &station, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowMaximizeButtonHint),
      m_station(station), m_list(new QTreeWidget(this)), m_tools(new QGroupBox(this))
{
    setObjectName(QStringLiteral("fmAlarmyArch"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Archiwum alarmów"));
    QFont small = font();
    small.setPointSizeF(7.5);
    setFont(small);
    m_list->setObjectName(QStringLiteral("lstAlarmy"));
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({QStringLiteral("Data powstania"), QStringLiteral("Kod regulatora"),
                             QStringLiteral("Tresc alarmu"), QStringLiteral("Data potwierdzenia"),
                             QStringLiteral("Data dezaktywacji")});
    const int widths[5] = {1440, 1300, 4550, 1500, 1500};
    // a date column is never narrower than a date in the face in use
    const int date = m_list->fontMetrics().horizontalAdvance(QStringLiteral("00/00/00 00:00:00")) + 12;
    for (int c = 0; c < 5; ++c)
        m_list->setColumnWidth(c, c == 1 || c == 2 ? twips::toPixels(widths[c]) : std::max(date, twips::toPixels(widths[c])));
    m_list->setGeometry(twips::rect(0, 0, 9315, 5175));
    placeTools();
    placeExportButtons();
}

fmAlarmyArch::~fmAlarmyArch() = default;

void fmAlarmyArch::placeTools()
{
    m_tools->setObjectName(QStringLiteral("fmTools"));
    m_tools->setGeometry(twips::rect(0, 5160, 5955, 555));
    m_date = new QDateTimeEdit(m_tools);
    m_date->setObjectName(QStringLiteral("dtData"));
    m_date->setDisplayFormat(QStringLiteral("dd.MM.yyyy"));
    m_date->setCalendarPopup(true);
    m_date->setGeometry(twips::rect(120, 180, 1275, 315));
    // the tips of the chart windows: here the arrows step by a day and the date is the day shown
    m_date->setToolTip(QStringLiteral("początkowa data wykresu"));
    m_controllers = new QComboBox(m_tools);
    m_controllers->setObjectName(QStringLiteral("cmbRegul"));
    m_controllers->setGeometry(twips::rect(1560, 180, 1395, 315));
    m_controllers->setToolTip(QStringLiteral("kod regulatora"));
    toolButton(m_tools, "btnLewo", QStringLiteral("<"), 3180, 375)->setToolTip(QStringLiteral("poprzedni miesiąc"));
    toolButton(m_tools, "btnPrawo", QStringLiteral(">"), 3660, 375)->setToolTip(QStringLiteral("następny miesiąc"));
    toolButton(m_tools, "cmdOdswiez", QStringLiteral("&Odśwież"), 4980, 855);
    connect(m_tools->findChild<QPushButton *>(QStringLiteral("btnLewo")), &QPushButton::clicked, this, [this] { stepDay(-1); });
    connect(m_tools->findChild<QPushButton *>(QStringLiteral("btnPrawo")), &QPushButton::clicked, this, [this] { stepDay(1); });
    connect(m_tools->findChild<QPushButton *>(QStringLiteral("cmdOdswiez")), &QPushButton::clicked, this,
            [this] { guarded([this] { WczytajAlarmy(); }); });
}

// Print and the two exports of what the list shows, beside the tools.
void fmAlarmyArch::placeExportButtons()
{
    m_exports = new QWidget(this);
    m_exports->setObjectName(QStringLiteral("fmExport"));
    m_exports->setGeometry(twips::rect(6060, 5160, 3255, 555));
    m_exports->setEnabled(false); // until a day is loaded
    connect(toolButton(m_exports, "cmdDrukuj", QStringLiteral("Drukuj…"), 0, 1035), &QPushButton::clicked, this,
            [this] { guarded([this] { print(); }); });
    connect(toolButton(m_exports, "cmdPdf", QStringLiteral("PDF…"), 1110, 1035), &QPushButton::clicked, this,
            [this] { saveAs(QStringLiteral("PDF (*.pdf)"), QStringLiteral("pdf"), &AlarmPrint::savePdf); });
    connect(toolButton(m_exports, "cmdCsv", QStringLiteral("CSV…"), 2220, 1035), &QPushButton::clicked, this,
            [this] { saveAs(QStringLiteral("CSV (*.csv)"), QStringLiteral("csv"), &AlarmCsv::save); });
}

QPushButton *fmAlarmyArch::toolButton(QWidget *parent, const char *name, const QString &caption, int left, int width)
{
    QPushButton *b = form::button(parent, name, caption);
    b->setGeometry(twips::rect(left, 180, width, 315));
    return b;
}

void fmAlarmyArch::load()
{
    for (const auto &r : m_station.Regulatory)
        m_controllers->addItem(r->Kod, int(r->adres));
    // kept: the position in the list is taken for the controller's Id
    if (m_controllers->count() >= 1)
        m_controllers->setCurrentIndex(m_station.oApp.NrAktRegulatora - 1);
    m_date->setDateTime(m_station.now().toDateTime());
    m_rows = std::make_unique<RowSet>(m_station.connection());
    setGeometry(twips::toPixels(4050), 0, twips::toPixels(Width), twips::toPixels(InnerHeight)); // beside the tree
}

void fmAlarmyArch::WczytajAlarmy()
{
    if (m_rows->isOpen())
        m_rows->close();
    const QDate day = m_date->date();
    const ZDate from = ZDate::startOf(day);
    m_rows->open(AlarmArchive::query(m_controllers->currentText(), from, from.addDays(1)));
    // cleared only now: a query that fails leaves the list as it was
    m_list->clear();
    m_shown = AlarmHistory{m_controllers->currentText(), day, day, {}};
    m_exports->setEnabled(true);
    for (m_rows->MoveFirst(); !m_rows->EOF_(); m_rows->MoveNext())
        addRow();
}

void fmAlarmyArch::addRow()
{
    AlarmHistory::Row row;
    row.kod = m_rows->field(QStringLiteral("kod_regul")).toString();
    row.text = m_rows->field(QStringLiteral("tresc")).toString();
    const QStringList cells{dateCell(m_rows->field(QStringLiteral("Data")), &row.raised), row.kod, row.text,
                            dateCell(m_rows->field(QStringLiteral("data_potw")), &row.confirmed),
                            dateCell(m_rows->field(QStringLiteral("Data_dezakt")), &row.deactivated)};
    new QTreeWidgetItem(m_list, cells);
    m_shown.rows.push_back(row);
}

void fmAlarmyArch::stepDay(int days)
{
    m_date->setDateTime(m_date->dateTime().addDays(days));
    guarded([this] { WczytajAlarmy(); });
}

void fmAlarmyArch::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_list->setGeometry(0, 0, width(), std::max(0, height() - twips::toPixels(500)));
    m_tools->move(0, height() - twips::toPixels(550));
    m_exports->move(m_exports->x(), height() - twips::toPixels(550));
}

void fmAlarmyArch::closeEvent(QCloseEvent *event)
{
    if (m_rows && m_rows->isOpen())
        m_rows->close();
    QWidget::closeEvent(event);
}

void fmAlarmyArch::guarded(const std::function<void()> &command)
{
    form::guarded(m_station.services.dialogs, command);
}

void fmAlarmyArch::print()
{
    QPrinter printer(QPrinter::HighResolution);
    AlarmPrint::setUpPage(printer);
    printer.setDocName(m_shown.title());
    QPrintPreviewDialog preview(&printer, this);
    preview.setWindowTitle(m_shown.title());
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter *p) {
        QPainter painter(p);
        AlarmPrint::paint(m_shown, painter, *p);
    });
    preview.exec();
}

void fmAlarmyArch::saveAs(const QString &filter, const QString &suffix, void (*save)(const AlarmHistory &, const QString &))
{
    const QString suggested = QStringLiteral("alarmy_%1_%2.%3").arg(m_shown.kod, m_shown.first.toString(Qt::ISODate), suffix);
    const QString path = m_station.services.dialogs.saveFileName(m_shown.title(), suggested, filter);
    if (!path.isEmpty())
        guarded([&] { save(m_shown, path); });
}
