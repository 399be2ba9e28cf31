// Turns the Markdown user guide into the PDF that the program's Help command opens, at build time,
// with Qt's own PDF writer. Usage: build_help_pdf GUIDE.md OUTPUT.pdf
#include <QFile>
#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>
#include <QTextDocument>
#include <cstdio>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fputs("usage: build_help_pdf GUIDE.md OUTPUT.pdf\n", stderr);
        return 2;
    }
    QFile guide(QString::fromLocal8Bit(argv[1]));
    if (!guide.open(QIODevice::ReadOnly | QIODevice::Text)) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }
    QTextDocument document;
    document.setMarkdown(QString::fromUtf8(guide.readAll()));

    QPdfWriter pdf(QString::fromLocal8Bit(argv[2]));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setResolution(96);
    pdf.setTitle("Quillet 2.0 user guide");
    pdf.setPageMargins(QMarginsF(20, 20, 20, 20), QPageLayout::Millimeter);
    document.setPageSize(pdf.pageLayout().paintRectPixels(pdf.resolution()).size());
    document.print(&pdf);
    return 0;
}
