#include "fmAlarmyN.h"

#include "StationImages.h"
#include "Twips.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "model/ActiveAlarmList.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>

namespace {

constexpr int MinWidth = 11325;
constexpr int MinHeight = 1755;

QLabel *legendLabel(QWidget *frame, int top, const char *caption, bool red, bool bold)
{
    auto *l = new QLabel(QString::fromUtf8(caption), frame);
    l->setGeometry(twips::rect(90, top, 2535, 240));
    l->setStyleSheet(QStringLiteral("color: %1; font-weight: %2;")
                         .arg(red ? QStringLiteral("#ff0000") : QStringLiteral("#000000"),
                              bold ? QStringLiteral("bold") : QStringLiteral("normal")));
    return l;
}

}

fmAlarmyN::fmAlarmyN(ActiveAlarmList &alarms, Dialogs &dialogs, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint), m_alarms(alarms),
      m_dialogs(dialogs), m_list(new QTreeWidget(this)), m_legend(new QGroupBox(QStringLiteral("Legenda"), this))
{
    setWindowTitle(QStringLiteral("Alarmy"));
    // the layout is fixed in twips: the small face of the desktop's dialogs fits it
    QFont small = font();
    small.setPointSizeF(7.5);
    setFont(small);
    setWindowIcon(StationImages::mainImages().image(QStringLiteral("blysk1")));
    m_list->setGeometry(twips::rect(0, 0, 8535, 1335));
    m_list->setRootIsDecorated(false);
    m_list->setHeaderLabels({QStringLiteral("Czas"), QStringLiteral("Regulator"), QStringLiteral("Tresc alarmu")});
    m_list->setColumnWidth(0, twips::toPixels(2200));
    m_list->setColumnWidth(1, twips::toPixels(1000));
    m_list->setColumnWidth(2, twips::toPixels(5200));
    m_legend->setGeometry(twips::rect(8520, 0, 2655, 1335));
    legendLabel(m_legend, 240, "aktywny, niepotwierdzony", true, true);
    legendLabel(m_legend, 480, "aktywny, potwierdzony", true, false);
    legendLabel(m_legend, 720, "nieaktywny, potwierdzony", false, false);
    legendLabel(m_legend, 960, "nieaktywny, niepotwierdzony", false, true);
    setMinimumSize(twips::toPixels(MinWidth), twips::toPixels(MinHeight));
    setGeometry(twips::rect(0, 5450, MinWidth, MinHeight));
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { confirmCurrent(); });
    refresh();
}

void fmAlarmyN::refresh()
{
    // rows are changed in place, so the selection and the scroll stay
    const int count = m_alarms.rowCount();
    while (m_list->topLevelItemCount() > count)
        delete m_list->takeTopLevelItem(m_list->topLevelItemCount() - 1);
    for (int i = 1; i <= count; ++i) {
        QTreeWidgetItem *item = m_list->topLevelItem(i - 1);
        if (!item)
            item = new QTreeWidgetItem(m_list);
        showRow(item, m_alarms.row(i));
    }
}

void fmAlarmyN::showRow(QTreeWidgetItem *item, const ActiveAlarmList::Row &r)
{
    item->setText(0, r.text);
    item->setText(1, r.subItems[1]);
    item->setText(2, r.subItems[2]);
    const QIcon icon = r.icon == 1 ? StationImages::lostLink() : StationImages::limitExceeded();
    item->setIcon(0, r.icon != 0 ? QIcon(icon.pixmap(16, 16, r.ghosted ? QIcon::Disabled : QIcon::Normal)) : QIcon());
    for (int c = 0; c < 3; ++c) {
        QFont f = item->font(c);
        f.setBold(r.bold);
        item->setFont(c, f);
        item->setForeground(c, r.red ? QColor(255, 0, 0) : QColor(0, 0, 0));
    }
}

void fmAlarmyN::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_list->setGeometry(0, 0, m_list->width(), height());
}

void fmAlarmyN::confirmCurrent()
{
    const int index = m_list->indexOfTopLevelItem(m_list->currentItem()) + 1;
    if (index < 1)
        return;
    try {
        m_alarms.Potwierdz(index);
    } catch (const RunTimeError &e) {
        m_dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
    }
    refresh();
}
