#include "ctlPrzel.h"

#include "Twips.h"

ctlPrzel::ctlPrzel(QWidget *parent) : PictureControl(parent)
{
    resize(twips::toPixels(255), twips::toPixels(285));
}

void ctlPrzel::setValue(bool value)
{
    m_value = value;
    PropertyChanged();
    showPicture(value ? Picture1() : Picture2());
    m_zmieniony = false;
}

void ctlPrzel::setZmieniony(bool zmieniony)
{
    m_zmieniony = zmieniony;
    PropertyChanged();
}

void ctlPrzel::mouseDoubleClickEvent(QMouseEvent *)
{
    if (!Enabled())
        return;
    setValue(!m_value);
    showPicture(m_value ? Picture1() : Picture2());
    // after Value, whose set has just cleared it
    setZmieniony(true);
}

QVariantMap ctlPrzel::WriteProperties() const
{
    QVariantMap bag = PictureControl::WriteProperties();
    storeUnlessDefault(bag, "Value", m_value, true);
    storeUnlessDefault(bag, "Zmieniony", m_zmieniony, false);
    return bag;
}

void ctlPrzel::ReadProperties(const QVariantMap &bag)
{
    PictureControl::ReadProperties(bag);
    m_value = bag.value(QStringLiteral("Value"), true).toBool();
    m_zmieniony = bag.value(QStringLiteral("Zmieniony"), false).toBool();
    // kept: the true picture whatever Value says, until the owner's first assignment
    showPicture(Picture1());
}
