#include "ctlDioda3d.h"

#include <QMouseEvent>

ctlDioda3d::ctlDioda3d(QWidget *parent) : PictureControl(parent) {}

void ctlDioda3d::setZapalona(const QVariant &zapalona)
{
    m_zapalona = zapalona;
    PropertyChanged();
    showPicture(zapalona.toBool() ? Picture2() : Picture1());
    Refresh();
}

void ctlDioda3d::setSelected(bool selected)
{
    if (!Enabled())
        return;
    m_selected = selected;
    PropertyChanged();
    setBorderStyle(selected ? 1 : 0);
}

// a click is a press and a release over the lamp
void ctlDioda3d::mousePressEvent(QMouseEvent *event)
{
    m_pressed = event->button() == Qt::LeftButton;
}

void ctlDioda3d::mouseReleaseEvent(QMouseEvent *event)
{
    const bool click = m_pressed && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint());
    m_pressed = false;
    if (click && Enabled())
        setSelected(!m_selected);
}

QVariantMap ctlDioda3d::WriteProperties() const
{
    QVariantMap bag = PictureControl::WriteProperties();
    if (!(m_zapalona == QVariant(0)))
        bag.insert(QStringLiteral("Zapalona"), m_zapalona);
    if (!Picture().isNull())
        bag.insert(QStringLiteral("Picture"), Picture());
    storeUnlessDefault(bag, "Selected", m_selected, false);
    return bag;
}

void ctlDioda3d::ReadProperties(const QVariantMap &bag)
{
    PictureControl::ReadProperties(bag);
    m_zapalona = bag.value(QStringLiteral("Zapalona"), 0);
    m_selected = bag.value(QStringLiteral("Selected"), false).toBool();
    showPicture(bag.value(QStringLiteral("Picture")).value<QPixmap>());
}
