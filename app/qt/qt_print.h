#pragma once
// Printing a plain report on a Qt printer: the desktop's print dialog picks the printer (a PDF
// file among them), the text goes out line by line in the report's font, page after page.

#include <QPrinter>

#include "foundation/ports/ui.h"

namespace vardolin::qt {

// Lays the text out on the printer's pages; false when the printer couldn't be started.
bool PrintPlainText(QPrinter& printer, const PrintRequest& request);

}  // namespace vardolin::qt
