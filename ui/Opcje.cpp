#include "Opcje.h"

#include "FormControls.h"
#include "ctlDioda.h"

#include "base/Conversions.h"

#include <QLabel>
#include <QLineEdit>

namespace {

QLineEdit *colourBox(QWidget *page, const char *name, int top)
{
    auto *box = new QLineEdit(page);
    box->setObjectName(QLatin1String(name));
    box->setGeometry(6, top + 16, 180, 22);
    return box;
}

std::uint32_t colourOf(const QLineEdit *box)
{
    // a colour is a signed 32-bit number: above its range the overflow
    return std::uint32_t(conv::toInt32(QVariant(box->text())));
}

}

Opcje::Opcje(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("Opcje"));
    form::label(this, "lblZapalKolor", QStringLiteral("ZapalKolor:"))->setGeometry(6, 6, 180, 16);
    m_zapal = colourBox(this, "txtZapalKolor", 6);
    form::label(this, "lblZgasKolor", QStringLiteral("ZgasKolor:"))->setGeometry(6, 50, 180, 16);
    m_zgas = colourBox(this, "txtZgasKolor", 50);
    for (QLineEdit *box : {m_zapal, m_zgas})
        connect(box, &QLineEdit::textEdited, this, [this] { m_changed = true; });
    resize(200, 100);
}

void Opcje::SelectionChanged(const QList<ctlDioda *> &selected)
{
    m_selected = selected;
    if (selected.isEmpty())
        return;
    m_zapal->setText(QString::number(std::int32_t(selected.first()->ZapalKolor())));
    m_zgas->setText(QString::number(std::int32_t(selected.first()->ZgasKolor())));
}

void Opcje::ApplyChanges()
{
    if (m_selected.isEmpty())
        return;
    ctlDioda *first = m_selected.first();
    first->setZapalKolor(colourOf(m_zapal));
    first->setZgasKolor(colourOf(m_zgas));
    m_changed = false;
}
