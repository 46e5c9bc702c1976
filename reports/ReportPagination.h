#pragma once

#include "reports/ReportLayout.h"

#include <vector>

// What one page of a banded report holds. Every page has the page header
// at its top and the page footer at its bottom.
struct ReportPage {
    int firstRow = 0, endRow = 0; // the details, [firstRow, endRow)
    bool reportHeader = false, reportFooter = false;
};

namespace ReportPagination {

// The pages of a report of `rows` details on pages `pageHeight` twips high
// (inside the margins), worked out before any is painted so that every
// footer knows the count. Page 1 opens with the report header; a detail
// never splits; the report footer follows the last detail, on a page of its
// own when it does not fit after it.
std::vector<ReportPage> pages(const ReportLayout &layout, int rows, double pageHeight);

}
