// A report printed to a PDF file, as the desktop's print dialog does when the user picks one:
// every line of it stands in the file, on as many pages as it needs.
#include <gtest/gtest.h>

#include <QPrinter>
#include <algorithm>
#include <cstdlib>
#include <string>

#include "qt_print.h"
#include "qt_test_support.h"

namespace vardolin {
namespace {

std::string PdfText(const std::filesystem::path& pdf) {
  const std::string txt = pdf.string() + ".txt";
  if (std::system(("pdftotext -layout '" + pdf.string() + "' '" + txt + "'").c_str()) != 0)
    return {};
  return testing::ReadFile(txt);
}

TEST(PrintPlainText, EveryLineOfTheReportStandsInThePdf) {
  testing::App();
  testing::TempDir dir;
  std::string report;
  for (int i = 0; i < 150; ++i)
    report += "wad_" + std::to_string(i) + ".was -> editor\\graphics\\wads\\  [ok]\r\n";
  PrintRequest request;
  request.title = "Add / update wads";
  request.text = report;
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(QString::fromStdString((dir / "report.pdf").string()));
  ASSERT_TRUE(qt::PrintPlainText(printer, request));
  const std::string text = PdfText(dir / "report.pdf");
  // pdftotext gives a run of blanks as one.
  for (int i : {0, 77, 149})
    EXPECT_NE(text.find("wad_" + std::to_string(i) + ".was -> editor\\graphics\\wads\\ [ok]"),
              std::string::npos)
        << i << "\n"
        << text.substr(0, 400);
  // More lines than a page holds go on to the next pages.
  EXPECT_GE(std::count(text.begin(), text.end(), '\f'), 2);
}

}  // namespace
}  // namespace vardolin
