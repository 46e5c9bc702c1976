#include "ReportWindow.h"

#include "FormControls.h"

#include "base/Dialogs.h"
#include "reports/ReportCsv.h"
#include "reports/ReportLayout.h"
#include "reports/ReportPrint.h"
#include "reports/ReportTable.h"

#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QRegularExpression>
#include <QToolBar>
#include <QVBoxLayout>

ReportWindow::ReportWindow(const ReportTable &table, QDate printed, Dialogs &dialogs, QWidget *parent)
    : QDialog(parent, Qt::Window), m_table(table), m_printed(printed), m_dialogs(dialogs),
      m_printer(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    setObjectName(ReportLayout::of(table.kind()).name);
    setWindowTitle(title());
    ReportPrint::setUpPage(*m_printer);
    m_preview = new QPrintPreviewWidget(m_printer.get(), this);
    connect(m_preview, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter *p) { paintPages(p); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    addTools();
    layout->addWidget(m_preview);
    resize(900, 700);
}

ReportWindow::~ReportWindow() = default;

QString ReportWindow::title() const
{
    const ReportLayout &layout = ReportLayout::of(m_table.kind());
    return (layout.label(QStringLiteral("Label1"))->text + m_table.tytul() + m_table.podtytul()).simplified();
}

void ReportWindow::addTools()
{
    auto *bar = new QToolBar(this);
    bar->setObjectName(QStringLiteral("tbRaport"));
    const auto add = [&](const char *name, const QString &text, auto slot) {
        QAction *a = bar->addAction(text, this, slot);
        a->setObjectName(QLatin1String(name));
    };
    add("actDrukuj", QStringLiteral("Drukuj…"), [this] { printReport(); });
    add("actPdf", QStringLiteral("PDF…"), [this] { savePdf(); });
    add("actCsv", QStringLiteral("CSV…"), [this] { saveCsv(); });
    bar->addSeparator();
    add("actPowieksz", QStringLiteral("Powiększ"), [this] { m_preview->zoomIn(); });
    add("actPomniejsz", QStringLiteral("Pomniejsz"), [this] { m_preview->zoomOut(); });
    add("actCalaStrona", QStringLiteral("Cała strona"), [this] { m_preview->fitInView(); });
    add("actSzerokosc", QStringLiteral("Szerokość strony"), [this] { m_preview->fitToWidth(); });
    bar->addSeparator();
    add("actZamknij", QStringLiteral("Zamknij"), [this] { close(); });
    layout()->addWidget(bar);
}

void ReportWindow::paintPages(QPrinter *printer)
{
    QPainter painter(printer);
    ReportPrint::paint(m_table, m_printed, painter, *printer);
}

void ReportWindow::printReport()
{
    QPrintDialog dialog(m_printer.get(), this);
    if (dialog.exec() == QDialog::Accepted)
        paintPages(m_printer.get());
    m_preview->updatePreview();
}

QString ReportWindow::askPath(const char *extension, const QString &filter) const
{
    QString name = title();
    name.replace(u'/', u'-').remove(u'\'');
    name.replace(QRegularExpression(QStringLiteral("\\s+")), QStringLiteral("_"));
    return m_dialogs.saveFileName(windowTitle(), name + QLatin1Char('.') + QLatin1String(extension), filter);
}

void ReportWindow::savePdf()
{
    const QString path = askPath("pdf", QStringLiteral("PDF (*.pdf)"));
    if (!path.isEmpty())
        form::guarded(m_dialogs, [&] { ReportPrint::savePdf(m_table, m_printed, path); });
}

void ReportWindow::saveCsv()
{
    const QString path = askPath("csv", QStringLiteral("CSV (*.csv)"));
    if (!path.isEmpty())
        form::guarded(m_dialogs, [&] { ReportCsv::save(m_table, path); });
}
