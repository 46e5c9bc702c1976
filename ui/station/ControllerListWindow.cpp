#include "ControllerListWindow.h"

#include "core/NumberForm.h"
#include "core/Station.h"

#include <QHeaderView>
#include <QStatusBar>
#include <QTreeWidget>

ControllerListWindow::ControllerListWindow(Station &station) : m_station(station), m_list(new QTreeWidget(this))
{
    setWindowTitle(QStringLiteral("Zorbel"));
    m_list->setHeaderLabels({QStringLiteral("Kod"), QStringLiteral("Adres"), QStringLiteral("Alarmy"),
                             QStringLiteral("Napięcie pomiarowe"), QStringLiteral("Przekładnia"),
                             QStringLiteral("Częstość odczytu"), QStringLiteral("Ostatni odczyt")});
    m_list->setRootIsDecorated(false);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setCentralWidget(m_list);
    fill();
    connect(m_list, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *item) {
        if (item)
            m_station.oApp.NrAktRegulatora = std::int16_t(item->data(0, Qt::UserRole).toInt());
    });
    statusBar()->showMessage(QStringLiteral("Regulatorów: %1").arg(m_station.oApp.IloscRegulatorow));
    resize(900, 420);
}

void ControllerListWindow::fill()
{
    for (const auto &r : m_station.Regulatory) {
        auto *item = new QTreeWidgetItem(m_list);
        item->setText(0, r->Kod);
        item->setText(1, QString::number(r->adres));
        item->setText(2, r->aktywny() ? QStringLiteral("włączone") : QStringLiteral("wyłączone"));
        item->setText(3, QStringLiteral("%1 V").arg(r->NapieciePomiar));
        item->setText(4, numberForm(r->Przekladnia).trimmed());
        item->setText(5, QStringLiteral("%1 min").arg(r->CzestOdczytu));
        item->setText(6, r->OstatniOdczyt.isZero() ? QStringLiteral("—")
                                                   : r->OstatniOdczyt.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")));
        item->setData(0, Qt::UserRole, r->Id);
    }
}
