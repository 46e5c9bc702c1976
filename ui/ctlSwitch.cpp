#include "ctlSwitch.h"

#include "Twips.h"

ctlSwitch::ctlSwitch(QWidget *parent) : PictureControl(parent)
{
    resize(twips::toPixels(345), twips::toPixels(360));
}

void ctlSwitch::setValue(bool value)
{
    m_value = value;
    PropertyChanged();
    showPicture(value ? Picture1() : Picture2());
}

void ctlSwitch::mouseDoubleClickEvent(QMouseEvent *)
{
    setValue(!m_value);
}

QVariantMap ctlSwitch::WriteProperties() const
{
    QVariantMap bag = PictureControl::WriteProperties();
    storeUnlessDefault(bag, "Value", m_value, true);
    if (!Picture().isNull())
        bag.insert(QStringLiteral("Picture"), Picture());
    return bag;
}

void ctlSwitch::ReadProperties(const QVariantMap &bag)
{
    PictureControl::ReadProperties(bag);
    m_value = bag.value(QStringLiteral("Value"), true).toBool();
    showPicture(bag.value(QStringLiteral("Picture")).value<QPixmap>());
}
