#pragma once

#include "reports/BillingText.h"

class QTableWidget;
class QWidget;

// A section of a bill as a page of the bill window: its lines over its
// table, the same words and figures the PDF prints.
namespace BillingSectionPage {

QWidget *make(const BillingText::Section &section, const char *tableName, QWidget *parent);
// The page's table, or null when the section has none.
QTableWidget *tableOf(QWidget *page);

}
