#include "frmElStrukt.h"

#include "FormControls.h"
#include "fmStruktura.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "db/HierarchyStore.h"
#include "station/Station.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

frmElStrukt::frmElStrukt(Station &station, fmStruktura &structure, QWidget *parent)
    : QDialog(parent), m_station(station), m_structure(structure),
      m_object(new QRadioButton(QStringLiteral("element nadrzędny"), this)),
      m_controller(new QRadioButton(QStringLiteral("regulator"), this)), m_name(new QLineEdit(this)),
      m_controllers(new QComboBox(this))
{
    setObjectName(QStringLiteral("frmElStrukt"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Dodawanie elementów struktury"));
    m_object->setObjectName(QStringLiteral("Option1"));
    m_controller->setObjectName(QStringLiteral("Option2"));
    m_name->setObjectName(QStringLiteral("txtNazwa"));
    m_controllers->setObjectName(QStringLiteral("cmbRegul"));
    for (const auto &r : m_station.Regulatory)
        m_controllers->addItem(r->Kod, int(r->Id));
    if (m_controllers->count() > 0)
        m_controllers->setCurrentIndex(m_station.oApp.NrAktRegulatora - 1);

    auto *form = new QFormLayout(this);
    form->addRow(m_object, m_name);
    form->addRow(m_controller, m_controllers);
    auto *buttons = new QDialogButtonBox(this);
    QPushButton *ok = form::button(this, "Command1", QStringLiteral("&Ok"));
    QPushButton *close = form::button(this, "Command2", QStringLiteral("&Zamknij"));
    buttons->addButton(ok, QDialogButtonBox::AcceptRole);
    buttons->addButton(close, QDialogButtonBox::RejectRole);
    form->addRow(buttons);
    connect(m_object, &QRadioButton::toggled, this, [this](bool on) { chooseKind(on); });
    connect(ok, &QPushButton::clicked, this, [this] {
        try {
            Command1Click();
        } catch (const RunTimeError &e) {
            m_station.services.dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
        }
    });
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    m_object->setChecked(true);
    chooseKind(true);
}

void frmElStrukt::chooseKind(bool object)
{
    m_name->setEnabled(object);
    m_controllers->setEnabled(!object);
}

void frmElStrukt::Command1Click()
{
    const bool object = m_object->isChecked();
    // kept: no test for an empty name, none for one given twice
    HierarchyStore([this]() -> Database & { return m_station.connection(); })
        .add(object ? m_name->text() : m_controllers->currentText(), m_station.oApp.AktElStruktury,
             object ? QStringLiteral("S") : QStringLiteral("R"));
    close(); // before the tree is built: a failing build leaves no dialog behind
    m_structure.LadujObiekty();
}
