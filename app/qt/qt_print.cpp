#include "qt_print.h"

#include <QPrintDialog>

#include "qt_ui.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QString>
#include <QStringList>

namespace vardolin::qt {

bool PrintPlainText(QPrinter& printer, const PrintRequest& request) {
  printer.setDocName(QString::fromStdString(request.title));
  QPainter painter;
  if (!painter.begin(&printer)) return false;
  QFont font(QString::fromStdString(request.font_family), request.point_size);
  font.setStyleHint(QFont::TypeWriter);
  painter.setFont(font);
  const QFontMetrics metrics(font, &printer);
  const QRect page = painter.viewport();
  const int step = metrics.lineSpacing();
  int y = metrics.ascent();
  QString text = QString::fromStdString(request.text);
  text.remove(QLatin1Char('\r'));
  for (const QString& line : text.split(QLatin1Char('\n'))) {
    if (y > page.height() - metrics.descent()) {
      if (!printer.newPage()) {
        painter.end();
        return false;
      }
      y = metrics.ascent();
    }
    painter.drawText(0, y, line);
    y += step;
  }
  return painter.end();
}

PrintResult QtUi::PrintText(const PrintRequest& request) {
  QPrinter printer;
  QPrintDialog dialog(&printer, DialogParent());
  if (dialog.exec() != QDialog::Accepted) return PrintResult::Cancelled;
  return PrintPlainText(printer, request) ? PrintResult::Printed : PrintResult::Failed;
}

}  // namespace vardolin::qt
