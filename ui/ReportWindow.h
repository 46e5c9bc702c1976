#pragma once

#include <QDate>
#include <QDialog>
#include <memory>

class Dialogs;
class QPrintPreviewWidget;
class QPrinter;
class ReportTable;

// A report as it will print, page by page, with its tools: print, save as
// PDF or as CSV, zoom. Closing the window ends the report.
class ReportWindow final : public QDialog {
    Q_OBJECT

public:
    ReportWindow(const ReportTable &table, QDate printed, Dialogs &dialogs, QWidget *parent = nullptr);
    ~ReportWindow() override;

    // The report's own name: "Raport dobowy dla regulatora 'R05' z dnia 30/11/2026".
    QString title() const;
    void printReport();
    void savePdf();
    void saveCsv();

private:
    void addTools();
    // Asks for a file offering the report's name; empty when cancelled.
    QString askPath(const char *extension, const QString &filter) const;
    void paintPages(QPrinter *printer);

    const ReportTable &m_table;
    QDate m_printed;
    Dialogs &m_dialogs;
    std::unique_ptr<QPrinter> m_printer;
    QPrintPreviewWidget *m_preview;
};
