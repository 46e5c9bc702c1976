#include "ControllerListWindow.h"

#include "core/NumberForm.h"
#include "core/Station.h"
#include "model/StatusPanels.h"

#include <QHeaderView>
#include <QLabel>
#include <QStatusBar>
#include <QTreeWidget>

namespace {

enum Column { Kod, Adres, Aktywny, NapPomiar, Przekladnia, Czestosc, Napiecie, PradBierny, PradCalk, TgFi, Okres,
              Ostatni, Nastepny, ColumnCount };

QString when(ZDate d)
{
    return d.isZero() ? QStringLiteral("—") : d.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

QString value(float v, int decimals)
{
    return QString::number(double(v), 'f', decimals);
}

}

ControllerListWindow::ControllerListWindow(Station &station, const StatusPanels &panels)
    : m_station(station), m_panels(panels), m_list(new QTreeWidget(this)), m_link(new QLabel(this)),
      m_alarms(new QLabel(this)), m_clock(new QLabel(this))
{
    setWindowTitle(QStringLiteral("Zorbel"));
    m_list->setColumnCount(ColumnCount);
    m_list->setHeaderLabels({QStringLiteral("Kod"), QStringLiteral("Adres"), QStringLiteral("Aktywny"),
                             QStringLiteral("Napięcie pomiarowe"), QStringLiteral("Przekładnia"),
                             QStringLiteral("Częstość odczytu"), QStringLiteral("U [V]"), QStringLiteral("Ib [A]"),
                             QStringLiteral("I [A]"), QStringLiteral("tg fi"), QStringLiteral("f [Hz]"),
                             QStringLiteral("Ostatni odczyt"), QStringLiteral("Następny odczyt")});
    m_list->setRootIsDecorated(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setCentralWidget(m_list);
    fill();
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (item)
            m_station.oApp.NrAktRegulatora = std::int16_t(item->data(0, Qt::UserRole).toInt());
    });
    statusBar()->addWidget(new QLabel(QStringLiteral("Regulatorów: %1").arg(m_station.oApp.IloscRegulatorow), this));
    statusBar()->addWidget(m_link);
    statusBar()->addWidget(m_alarms);
    statusBar()->addPermanentWidget(m_clock);
    refreshAlarms();
    showLink(0);
    m_statusTimer.setInterval(250);
    connect(&m_statusTimer, &QTimer::timeout, this, [this] { refreshStatus(); });
    m_statusTimer.start();
    resize(1180, 420);
}

void ControllerListWindow::fill()
{
    for (const auto &r : m_station.Regulatory) {
        auto *item = new QTreeWidgetItem(m_list);
        item->setData(0, Qt::UserRole, r->Id);
        item->setText(Kod, r->Kod);
        item->setText(Adres, QString::number(r->adres));
        item->setText(Aktywny, r->aktywny() ? QStringLiteral("tak") : QStringLiteral("nie"));
        item->setText(NapPomiar, QStringLiteral("%1 V").arg(r->NapieciePomiar));
        item->setText(Przekladnia, numberForm(r->Przekladnia).trimmed());
        item->setText(Czestosc, QStringLiteral("%1 min").arg(r->CzestOdczytu));
        for (int c = Napiecie; c <= Okres; ++c)
            item->setTextAlignment(c, Qt::AlignRight | Qt::AlignVCenter);
        refreshController(r->Id);
    }
}

QTreeWidgetItem *ControllerListWindow::itemOf(std::int16_t Id) const
{
    for (int i = 0; i < m_list->topLevelItemCount(); ++i)
        if (m_list->topLevelItem(i)->data(0, Qt::UserRole).toInt() == Id)
            return m_list->topLevelItem(i);
    return nullptr;
}

void ControllerListWindow::refreshController(std::int16_t Id)
{
    QTreeWidgetItem *item = itemOf(Id);
    if (!item)
        return;
    const clRegulator &r = m_station.Regulatory.Item(Id);
    item->setText(Napiecie, value(r.Napiecie, 1));
    item->setText(PradBierny, value(r.PradBierny, 1));
    item->setText(PradCalk, value(r.PradCalk, 1));
    item->setText(TgFi, value(r.TgFi, 3));
    item->setText(Okres, value(r.Okres, 2));
    item->setText(Ostatni, when(r.OstatniOdczyt));
    item->setText(Nastepny, when(r.NastepnyOdczyt));
}

void ControllerListWindow::refreshAlarms()
{
    const clsoApp &app = m_station.oApp;
    m_alarms->setText(QStringLiteral("Alarmy aktywne: %1, niepotwierdzone: %2")
                          .arg(app.IloscAktywnychAlarmow)
                          .arg(app.IloscNiePotwAlarmow));
    for (int i = 1; i <= m_station.fmAlarmyN.rowCount(); ++i) {
        const auto &row = m_station.fmAlarmyN.row(i);
        const QString kod = row.subItems[1];
        for (int j = 0; j < m_list->topLevelItemCount(); ++j) {
            QTreeWidgetItem *item = m_list->topLevelItem(j);
            if (item->text(Kod) == kod)
                item->setForeground(Kod, row.subItems[6] == QLatin1String("A") ? Qt::red : palette().text().color());
        }
    }
}

void ControllerListWindow::showLink(std::int16_t Stan)
{
    static const char *const texts[] = {"łącze: gotowe", "łącze: transmisja", "łącze: błąd", "łącze"};
    m_link->setText(QString::fromUtf8(texts[Stan >= 0 && Stan <= 3 ? Stan : 3]));
}

void ControllerListWindow::showReading(std::int16_t Id, bool busy)
{
    if (QTreeWidgetItem *item = itemOf(Id)) {
        QFont f = item->font(Kod);
        f.setBold(busy);
        item->setFont(Kod, f);
    }
    if (!busy)
        refreshController(Id);
}

void ControllerListWindow::refreshStatus()
{
    m_clock->setText(m_panels.text(6));
}
