#include "BillingSectionPage.h"

#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

QTableWidget *tableWidget(const BillingText::Table &t, const char *name, QWidget *parent)
{
    auto *table = new QTableWidget(int(t.rows.size()), int(t.captions.size()), parent);
    table->setObjectName(QLatin1String(name));
    table->setHorizontalHeaderLabels(t.captions);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->verticalHeader()->hide();
    for (int r = 0; r < table->rowCount(); ++r)
        for (int c = 0; c < table->columnCount(); ++c) {
            auto *item = new QTableWidgetItem(t.rows[size_t(r)].value(c));
            // the first column names the row, the others are figures
            item->setTextAlignment(c == 0 ? Qt::AlignLeft | Qt::AlignVCenter : Qt::AlignRight | Qt::AlignVCenter);
            table->setItem(r, c, item);
        }
    table->resizeColumnsToContents();
    table->resizeRowsToContents();
    return table;
}

}

QWidget *BillingSectionPage::make(const BillingText::Section &section, const char *tableName, QWidget *parent)
{
    auto *page = new QWidget(parent);
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(4, 4, 4, 4);
    for (const QString &line : section.lines) {
        auto *label = new QLabel(line, page);
        label->setWordWrap(true);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        column->addWidget(label);
    }
    if (section.table)
        column->addWidget(tableWidget(*section.table, tableName, page), 1);
    else
        column->addStretch();
    return page;
}

QTableWidget *BillingSectionPage::tableOf(QWidget *page)
{
    return page->findChild<QTableWidget *>(QString(), Qt::FindDirectChildrenOnly);
}
