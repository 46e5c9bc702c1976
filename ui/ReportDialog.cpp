#include "ReportDialog.h"

#include "FormControls.h"

#include "base/RunTimeError.h"
#include "station/Station.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

ReportDialog::ReportDialog(Station &station, Raporty &raporty, const char *name, Target target, Span span,
                           QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_station(station), m_raporty(raporty)
{
    setObjectName(QLatin1String(name));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(span == Span::Day ? QStringLiteral("Raport dobowy") : QStringLiteral("Raport okresowy"));
    auto *form = new QFormLayout(this);
    form->addRow(target == Target::Controller ? QStringLiteral("Kod regulatora:") : QStringLiteral("Raport dla:"),
                 targetRow(target));
    form->addRow(span == Span::Day ? QStringLiteral("Data raportu:") : QStringLiteral("Okres:"), datesRow(span));
    auto *buttons = new QHBoxLayout;
    m_ok = form::button(this, "Command1", QStringLiteral("&Ok"));
    m_close = form::button(this, "Command2", QStringLiteral("&Zamknij"));
    buttons->addStretch();
    buttons->addWidget(m_ok);
    buttons->addWidget(m_close);
    form->addRow(buttons);
    connect(m_ok, &QPushButton::clicked, this, [this] { Command1Click(); });
    connect(m_close, &QPushButton::clicked, this, [this] { form::unload(this); });
    setFixedSize(sizeHint().expandedTo(QSize(320, 0)));
}

QWidget *ReportDialog::targetRow(Target target)
{
    if (target == Target::Controller) {
        m_controllers = new QComboBox(this);
        m_controllers->setObjectName(QStringLiteral("cmbRegul"));
        return m_controllers;
    }
    m_object = form::label(this, "lblStrukt", QString());
    return m_object;
}

QWidget *ReportDialog::datesRow(Span span)
{
    m_first = form::dateEdit(this, "dtData");
    if (span == Span::Day)
        return m_first;
    auto *row = new QWidget(this);
    auto *line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    m_last = form::dateEdit(row, "dtDataDo");
    m_first->setParent(row);
    line->addWidget(m_first);
    line->addWidget(new QLabel(QStringLiteral("-"), row));
    line->addWidget(m_last);
    line->addStretch();
    return row;
}

void ReportDialog::load()
{
    if (m_controllers) {
        for (const auto &r : m_station.Regulatory)
            m_controllers->addItem(r->Kod, int(r->Id));
        if (m_controllers->count() > 0)
            m_controllers->setCurrentIndex(m_station.oApp.NrAktRegulatora - 1);
    }
    if (m_object)
        m_object->setText(m_station.oApp.AktElStruktury);
    const QDate today = m_station.now().date();
    if (!m_last) {
        m_first->setDate(today);
        return;
    }
    m_last->setDate(today);
    // the first of this month; on the first, of the month before: the month just ended
    m_first->setDate(today.addDays(-today.addDays(-1).day()));
}

void ReportDialog::Command1Click()
{
    form::guarded(m_station.services.dialogs, [this] { makeReport(); });
}

std::int16_t ReportDialog::selectedId() const
{
    const QVariant id = m_controllers->currentData();
    if (!id.isValid())
        throw RunTimeError::invalidPropertyArrayIndex();
    return std::int16_t(id.toInt());
}
