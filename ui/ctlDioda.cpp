#include "ctlDioda.h"

#include "OleColor.h"
#include "PictureControl.h"

#include <QPainter>

ctlDioda::ctlDioda(QWidget *parent) : QWidget(parent) {}

void ctlDioda::setZapalKolor(std::uint32_t colour)
{
    m_zapalKolor = colour;
    m_changed = true;
}

void ctlDioda::setZgasKolor(std::uint32_t colour)
{
    m_zgasKolor = colour;
    m_changed = true;
}

void ctlDioda::setStan(bool stan)
{
    if (stan != m_stan) {
        m_fill = stan ? m_zapalKolor : m_zgasKolor;
        update();
    }
    m_stan = stan;
    m_changed = true;
}

void ctlDioda::setForeColor(std::uint32_t colour)
{
    m_foreColor = colour;
    m_changed = true;
    QPalette p = palette();
    p.setColor(QPalette::WindowText, oleColor(colour));
    setPalette(p);
}

QColor ctlDioda::BackColor() const
{
    return palette().color(backgroundRole());
}

QVariantMap ctlDioda::WriteProperties() const
{
    QVariantMap bag;
    storeUnlessDefault(bag, "ZapalKolor", m_zapalKolor, 0u);
    storeUnlessDefault(bag, "ZgasKolor", m_zgasKolor, 0u);
    storeUnlessDefault(bag, "Stan", m_stan, false);
    storeUnlessDefault(bag, "ForeColor", m_foreColor, WindowText);
    return bag;
}

void ctlDioda::ReadProperties(const QVariantMap &bag)
{
    m_zapalKolor = bag.value(QStringLiteral("ZapalKolor"), 0u).toUInt();
    m_zgasKolor = bag.value(QStringLiteral("ZgasKolor"), 0u).toUInt();
    m_stan = bag.value(QStringLiteral("Stan"), false).toBool();
    setForeColor(bag.value(QStringLiteral("ForeColor"), WindowText).toUInt());
}

void ctlDioda::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::black);
    painter.setBrush(oleColor(m_fill));
    const int side = qMin(width(), height()) - 1;
    painter.drawEllipse(QRectF(0.5, 0.5, side, side));
}
