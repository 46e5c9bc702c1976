#include "PictureControl.h"

#include "OleColor.h"

#include <QPainter>

PictureControl::PictureControl(QWidget *parent) : QWidget(parent) {}

void PictureControl::setBackColor(std::uint32_t colour)
{
    m_backColor = colour;
    PropertyChanged();
    update();
}

void PictureControl::setForeColor(std::uint32_t colour)
{
    m_foreColor = colour;
    PropertyChanged();
}

void PictureControl::setEnabled(bool enabled)
{
    m_enabled = enabled;
    PropertyChanged();
}

void PictureControl::setFont(const QFont &font)
{
    QWidget::setFont(font);
    PropertyChanged();
}

void PictureControl::setBackStyle(std::int16_t style)
{
    m_backStyle = style;
    PropertyChanged();
    update();
}

void PictureControl::setBorderStyle(std::int16_t style)
{
    m_borderStyle = style;
    PropertyChanged();
    update();
}

void PictureControl::setPicture1(const QPixmap &picture)
{
    m_picture1 = picture;
    PropertyChanged();
}

void PictureControl::setPicture2(const QPixmap &picture)
{
    m_picture2 = picture;
    PropertyChanged();
}

void PictureControl::showPicture(const QPixmap &picture)
{
    m_shown = picture;
    update();
}

QVariantMap PictureControl::WriteProperties() const
{
    QVariantMap bag;
    storeUnlessDefault(bag, "BackColor", m_backColor, 0u);
    storeUnlessDefault(bag, "ForeColor", m_foreColor, 0u);
    storeUnlessDefault(bag, "Enabled", m_enabled, false);
    bag.insert(QStringLiteral("Font"), font());
    storeUnlessDefault(bag, "BackStyle", m_backStyle, std::int16_t(0));
    storeUnlessDefault(bag, "BorderStyle", m_borderStyle, std::int16_t(0));
    if (!m_picture1.isNull())
        bag.insert(QStringLiteral("Picture1"), m_picture1);
    if (!m_picture2.isNull())
        bag.insert(QStringLiteral("Picture2"), m_picture2);
    return bag;
}

void PictureControl::ReadProperties(const QVariantMap &bag)
{
    m_backColor = bag.value(QStringLiteral("BackColor"), 0u).toUInt();
    m_foreColor = bag.value(QStringLiteral("ForeColor"), 0u).toUInt();
    m_enabled = bag.value(QStringLiteral("Enabled"), false).toBool();
    if (bag.contains(QStringLiteral("Font")))
        QWidget::setFont(bag.value(QStringLiteral("Font")).value<QFont>());
    m_backStyle = std::int16_t(bag.value(QStringLiteral("BackStyle"), 0).toInt());
    m_borderStyle = std::int16_t(bag.value(QStringLiteral("BorderStyle"), 0).toInt());
    m_picture1 = bag.value(QStringLiteral("Picture1")).value<QPixmap>();
    m_picture2 = bag.value(QStringLiteral("Picture2")).value<QPixmap>();
    update();
}

void PictureControl::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_backStyle == 1)
        painter.fillRect(rect(), oleColor(m_backColor));
    const int inset = m_borderStyle == 1 ? 1 : 0;
    if (!m_shown.isNull())
        painter.drawPixmap(inset, inset, m_shown);
    if (inset) {
        painter.setPen(Qt::black);
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}
