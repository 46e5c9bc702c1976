#include "reports/ReportPagination.h"

#include <algorithm>

std::vector<ReportPage> ReportPagination::pages(const ReportLayout &layout, int rows, double pageHeight)
{
    const auto height = [&layout](ReportLayout::Band band) { return double(layout.sections[band].height); };
    const double detail = height(ReportLayout::Section1);
    std::vector<ReportPage> out;
    for (int row = 0;;) {
        const bool first = out.empty();
        const double room = pageHeight - height(ReportLayout::Section2) - height(ReportLayout::Section3) -
                            (first ? height(ReportLayout::RaportNagl) : 0);
        // a detail taller than the room still gets a page of its own, so the pages end
        const int fit = std::max(1, int(room / detail));
        ReportPage page{row, std::min(rows, row + fit), first, false};
        row = page.endRow;
        if (row < rows) {
            out.push_back(page);
            continue;
        }
        page.reportFooter = room - (page.endRow - page.firstRow) * detail >= height(ReportLayout::Section5);
        out.push_back(page);
        if (!page.reportFooter)
            out.push_back({rows, rows, false, true});
        return out;
    }
}
