#include "frmOptions.h"

#include "FormControls.h"
#include "Twips.h"

#include "base/SettingsStore.h"
#include "model/clsoApp.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>

namespace {

// The window and its parts, in twips.
constexpr int FormWidth = 6300;
constexpr int FormHeight = 4560;
constexpr int Margin = 105;
constexpr int StripHeight = 3870;
constexpr int PageLeft = 210;        // where the shown page stands
constexpr int HiddenLeft = -20000;   // where the hidden pages wait
constexpr int PageWidth = 5880;
constexpr int ButtonTop = 4080;
constexpr int ButtonWidth = 1215;
constexpr int ButtonHeight = 375;

QString checkValue(const QCheckBox *box)
{
    return box->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
}

}

frmOptions::frmOptions(clsoApp &app, SettingsStore &store, QWidget *parent)
    : QDialog(parent), m_app(app), m_store(store), tbsOptions(new QTabBar(this)), m_tabPanel(new QFrame(this)),
      picOptions{}, cmbPort(nullptr), txtHaslo(nullptr), chkDzwieki(nullptr)
{
    setWindowTitle(QStringLiteral("Opcje programu"));
    setFixedSize(twips::toPixels(FormWidth), twips::toPixels(FormHeight));
    buildTabStrip();
    buildPages();
    buildGeneralPage(picOptions[0]);
    buildButtons();
    form::previewKeys(this);
    load();
    placePages();
}

void frmOptions::buildPages()
{
    for (int i = 0; i < PageCount; ++i) {
        picOptions[i] = new QWidget(this);
        picOptions[i]->setObjectName(QStringLiteral("picOptions%1").arg(i));
        picOptions[i]->resize(pageArea().size());
        if (i > 0) {
            auto *frame = new QGroupBox(QStringLiteral("Sample %1").arg(i + 1), picOptions[i]);
            frame->setObjectName(QStringLiteral("fraSample%1").arg(i + 1));
            frame->setGeometry(picOptions[i]->rect());
        }
    }
}

void frmOptions::buildTabStrip()
{
    tbsOptions->setObjectName(QStringLiteral("tbsOptions"));
    tbsOptions->addTab(QStringLiteral("Ustawienia ogólne"));
    tbsOptions->setDrawBase(false);
    tbsOptions->setExpanding(false);
    const int left = twips::toPixels(Margin);
    const int width = twips::toPixels(FormWidth - 2 * Margin);
    tbsOptions->setGeometry(left, left, width, tbsOptions->sizeHint().height());
    // the pane under the tabs, on which the pages stand
    const int paneTop = tbsOptions->geometry().bottom();
    m_tabPanel->setFrameShape(QFrame::StyledPanel);
    m_tabPanel->setGeometry(left, paneTop, width, left + twips::toPixels(StripHeight) - paneTop);
    connect(tbsOptions, &QTabBar::currentChanged, this, &frmOptions::placePages);
}

void frmOptions::buildGeneralPage(QWidget *page)
{
    cmbPort = new QComboBox(page);
    cmbPort->setObjectName(QStringLiteral("cmbPort"));
    cmbPort->setEditable(true);
    cmbPort->addItems({QStringLiteral("1"), QStringLiteral("2")});
    txtHaslo = form::passwordBox(page, "txtHaslo");
    chkDzwieki = new QCheckBox(QStringLiteral("sygnalizacja dźwiękowa"), page);
    chkDzwieki->setObjectName(QStringLiteral("chkDzwieki"));
    auto *grid = new QGridLayout(page);
    grid->addWidget(form::label(page, "Label1", QStringLiteral("Port szeregowy:")), 0, 0);
    grid->addWidget(cmbPort, 0, 1);
    grid->addWidget(form::label(page, "Label2", QStringLiteral("Hasło administartora")), 1, 0);
    grid->addWidget(txtHaslo, 1, 1);
    grid->addWidget(chkDzwieki, 2, 0, 1, 2);
    grid->setColumnStretch(2, 1);
    grid->setRowStretch(3, 1);
    cmbPort->setFixedWidth(twips::toPixels(1200));
    txtHaslo->setFixedWidth(twips::toPixels(2400));
}

void frmOptions::buildButtons()
{
    auto *cmdApply = form::button(this, "cmdApply", QStringLiteral("&Zastosuj"));
    auto *cmdCancel = form::button(this, "cmdCancel", QStringLiteral("&Anuluj"));
    auto *cmdOK = form::button(this, "cmdOK", QStringLiteral("&OK"));
    int left = FormWidth - Margin - ButtonWidth;
    for (QPushButton *b : {cmdApply, cmdCancel, cmdOK}) {
        b->setGeometry(twips::rect(left, ButtonTop, ButtonWidth, ButtonHeight));
        left -= ButtonWidth + Margin;
    }
    setTabOrder(cmdOK, cmdCancel);
    setTabOrder(cmdCancel, cmdApply);
    connect(cmdApply, &QPushButton::clicked, this, &frmOptions::apply);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        apply();
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmOptions::load()
{
    const QRect screen = this->screen()->geometry();
    move(screen.left() + (screen.width() - width()) / 2, screen.top() + (screen.height() - height()) / 2);
    cmbPort->setEditText(QString::number(m_app.nr_portu));
    txtHaslo->setEnabled(m_app.TrybSterowania); // only the holder of the password changes it
    txtHaslo->setText(m_app.AdmHaslo);
    chkDzwieki->setChecked(m_app.Dzwieki != 0);
}

void frmOptions::apply()
{
    // The object's password is saved before the box's text becomes it: a new
    // password is in force at once, but reaches the store only at the next apply.
    m_app.ZapiszOpcje(m_store, cmbPort->currentText(), checkValue(chkDzwieki));
    m_app.Dzwieki = chkDzwieki->isChecked() ? 1 : 0;
    m_app.AdmHaslo = txtHaslo->text();
}

QRect frmOptions::pageArea() const
{
    const int inset = twips::toPixels(Margin);
    return {twips::toPixels(PageLeft), m_tabPanel->y() + inset, twips::toPixels(PageWidth),
            m_tabPanel->height() - 2 * inset};
}

void frmOptions::placePages()
{
    const int top = pageArea().top();
    for (int i = 0; i < PageCount; ++i) {
        const bool shown = i == tbsOptions->currentIndex();
        picOptions[i]->move(twips::toPixels(shown ? PageLeft : HiddenLeft), top);
        picOptions[i]->setVisible(shown);
    }
}

void frmOptions::selectNextTab()
{
    const int next = tbsOptions->currentIndex() + 1;
    tbsOptions->setCurrentIndex(next < tbsOptions->count() ? next : 0);
    placePages(); // the same tab again changes no index, but is selected anew
}

bool frmOptions::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_Tab && key->modifiers() == Qt::ControlModifier) {
            selectNextTab();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}
