#include "ChartWindow.h"

#include "ChartView.h"
#include "FormControls.h"
#include "Twips.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "db/RowSet.h"
#include "station/Station.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>

namespace {

constexpr int Width = 10600;
constexpr int InnerHeight = 6600;

}

ChartWindow::ChartWindow(Station &station, const char *name, const QString &caption, const Tips &tips, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowMaximizeButtonHint | Qt::WindowMinimizeButtonHint),
      m_station(station), m_view(new ChartView(m_grid, this)), m_tools(new QWidget(this)), m_strip(new QHBoxLayout(m_tools))
{
    setObjectName(QLatin1String(name));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(caption);
    m_tools->setObjectName(QStringLiteral("fmTools"));
    m_strip->setContentsMargins(4, 2, 4, 2);
    m_strip->setSpacing(4);
    placeTools(tips);
    setGeometry(twips::toPixels(1500), twips::toPixels(300), twips::toPixels(Width), twips::toPixels(InnerHeight));
}

ChartWindow::~ChartWindow() = default;

QDateTimeEdit *ChartWindow::dateEdit(const char *name, const char *tip)
{
    QDateTimeEdit *d = form::dateEdit(m_tools, name);
    d->setToolTip(QString::fromUtf8(tip));
    return d;
}

QPushButton *ChartWindow::stripButton(const char *name, const QString &caption, const char *tip)
{
    QPushButton *b = form::button(m_tools, name, caption);
    if (tip)
        b->setToolTip(QString::fromUtf8(tip));
    return b;
}

void ChartWindow::placeTools(const Tips &tips)
{
    m_controllers = new QComboBox(m_tools);
    m_controllers->setObjectName(QStringLiteral("cmbRegul"));
    m_controllers->setToolTip(QStringLiteral("kod regulatora"));
    m_controllers->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_date = dateEdit("dtData", tips.date);
    m_strip->addWidget(m_controllers);
    m_strip->addWidget(m_date);
    QPushButton *back = stripButton("btnLewo", QStringLiteral("<"), tips.back);
    QPushButton *forward = stripButton("btnPrawo", QStringLiteral(">"), tips.forward);
    m_drawButton = stripButton("btnWykresl", QStringLiteral("Wykreśl"), tips.draw);
    for (QPushButton *b : {back, forward}) {
        b->setFixedWidth(twips::toPixels(375));
        m_strip->addWidget(b);
    }
    connect(back, &QPushButton::clicked, this, [this] { step(-1); });
    connect(forward, &QPushButton::clicked, this, [this] { step(1); });
    connect(m_drawButton, &QPushButton::clicked, this, [this] { btnWykreslClick(); });
    placeExtras();
}

// The controls after the window's own: quantity, grid, legend, picture, print.
void ChartWindow::placeExtras()
{
    m_quantity = new QComboBox(m_tools);
    m_quantity->setObjectName(QStringLiteral("cmbWyswietl"));
    m_quantity->setToolTip(QStringLiteral("wyświetlana wielkość"));
    m_quantity->addItems({QStringLiteral("Energia"), QStringLiteral("tg fi")});
    m_gridChoice = new QComboBox(m_tools);
    m_gridChoice->setObjectName(QStringLiteral("cmbSiatka"));
    m_gridChoice->setToolTip(QStringLiteral("wyświetlanie siatki"));
    m_gridChoice->addItems({QStringLiteral("XY"), QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("brak")});
    m_gridChoice->setCurrentIndex(-1); // as designed until chosen
    connect(m_gridChoice, &QComboBox::currentTextChanged, this, [this](const QString &t) { applyGrid(t); });
    m_legend = new QCheckBox(QStringLiteral("legenda"), m_tools);
    m_legend->setObjectName(QStringLiteral("chkLegenda"));
    m_legend->setToolTip(QStringLiteral("wyświetlanie legendy"));
    connect(m_legend, &QCheckBox::clicked, this, [this](bool on) { m_grid.setShowLegend(on); });
    // the picture and the print on the chart's own menu: the strip has no room for them
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto *picture = new QAction(QStringLiteral("Zapisz obraz…"), m_view);
    auto *printing = new QAction(QStringLiteral("Drukuj…"), m_view);
    picture->setObjectName(QStringLiteral("actObraz"));
    printing->setObjectName(QStringLiteral("actDrukuj"));
    m_view->addActions({picture, printing});
    connect(picture, &QAction::triggered, this, [this] { savePicture(); });
    connect(printing, &QAction::triggered, this, [this] { print(); });
    m_strip->addWidget(m_drawButton);
    m_strip->addWidget(m_quantity);
    m_strip->addWidget(form::label(m_tools, "lblSiatka", QStringLiteral("Siatka:")));
    m_strip->addWidget(m_gridChoice);
    m_strip->addWidget(m_legend);
    m_strip->addStretch();
}

void ChartWindow::load()
{
    for (const auto &r : m_station.Regulatory)
        m_controllers->addItem(r->Kod, int(r->adres));
    if (m_controllers->count() > 0)
        m_controllers->setCurrentIndex(m_station.oApp.NrAktRegulatora - 1);
    m_quantity->setCurrentIndex(0);
    m_date->setDateTime(m_station.now().toDateTime());
    m_rows = std::make_unique<RowSet>(m_station.connection());
}

void ChartWindow::btnWykreslClick()
{
    m_drawButton->setEnabled(false);
    try {
        // the address is the entry's data: none when the list is empty
        const QVariant adres = m_controllers->currentData();
        if (!adres.isValid())
            throw RunTimeError::invalidPropertyArrayIndex();
        draw(*m_rows, std::int16_t(adres.toInt()), m_controllers->currentText());
    } catch (const RunTimeError &e) {
        m_station.services.dialogs.MsgBox(e.message(), Dialogs::Critical);
    }
    m_drawButton->setEnabled(true);
}

// Axis 0 carries the lines across X, axis 2 those across Y.
void ChartWindow::applyGrid(const QString &choice)
{
    const bool x = choice == QLatin1String("XY") || choice == QLatin1String("X");
    const bool y = choice == QLatin1String("XY") || choice == QLatin1String("Y");
    m_grid.setMajorGridStyle(0, x ? 1 : 0);
    m_grid.setMajorGridStyle(2, y ? 1 : 0);
}

void ChartWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    m_view->setGeometry(0, 0, width(), std::max(0, height() - twips::toPixels(500)));
    m_tools->setGeometry(0, height() - twips::toPixels(550), width(), twips::toPixels(550));
}

void ChartWindow::savePicture()
{
    const QString suggested = QStringLiteral("wykres_%1_%2.png").arg(m_controllers->currentText(), m_date->date().toString(Qt::ISODate));
    const QString path = m_station.services.dialogs.saveFileName(windowTitle(), suggested, QStringLiteral("PNG (*.png)"));
    if (!path.isEmpty() && !m_view->grab().save(path, "PNG"))
        m_station.services.dialogs.MsgBox(RunTimeError::fileNotSaved(path, QStringLiteral("zapis obrazu nie powiódł się")).message(),
                                          Dialogs::Critical);
}

void ChartWindow::print()
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, [this](QPrinter *p) {
        QPainter painter(p);
        m_view->render(&painter); // onto the whole page, keeping its proportions
    });
    preview.exec();
}
