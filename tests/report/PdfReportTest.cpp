#include "support/SampleModels.h"
#include "support/Test.h"

#include "export/CExportDirectorReport.h"
#include "report/CReportBuilderPDF.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtGui/QImage>

#include <algorithm>
#include <cmath>

using namespace ZYN;

namespace {

struct Word {
    int page;
    QRectF box;
    QString text;
};

struct Layout {
    QList<QRectF> pages;
    QList<Word> words;
};

/// Pages and words with their places, in points from the upper left corner.
Layout Read(const QString& pdf)
{
    Layout layout;
    QXmlStreamReader reader(Program::Run("pdftotext", {"-bbox", pdf, "-"}).output);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const auto attributes = reader.attributes();
        const auto number = [&](const char* name) { return attributes.value(name).toDouble(); };
        if (reader.name() == QLatin1String("page"))
            layout.pages.append({0.0, 0.0, number("width"), number("height")});
        if (reader.name() == QLatin1String("word")) {
            const QRectF box(QPointF(number("xMin"), number("yMin")),
                             QPointF(number("xMax"), number("yMax")));
            layout.words.append({int(layout.pages.size()), box, reader.readElementText()});
        }
    }
    return layout;
}

} // namespace

/// Reads the PDF back with Poppler's tools.
class PdfReportTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString Path(const QString& name) const { return m_folder.filePath(name); }

    /// The path of a unit's report.
    QString Export(UUTTest* test, const QString& logo = QString())
    {
        CExportServiceReport service;
        service.SetFormat("PDF");
        service.SetOutputFileName(Path("report.pdf"));
        service.SetReportLogoImage(logo);
        return service.Export(test) && service.OutputComplete() ? Path("report.pdf") : "not exported";
    }

private slots:
    void EveryRowStandsWholeAndInOrder_data()
    {
        const Rows<int, QString> row;
        row("150 rows", 150, "row%1end");
        row("a name without blanks", 120, QString(200, 'W') + "%1");
        row("pages grow with the rows", 600, "row%1end");
    }
    void EveryRowStandsWholeAndInOrder()
    {
        const auto [rows, name] = CurrentRow<int, QString>();
        const Layout layout = Read(Export(SampleModels::UnitWithRows(rows, name).get()));
        QVERIFY2(layout.pages.size() > 1 && (name.startsWith("W") || layout.pages.size() <= 1 + rows / 35),
                 qPrintable(QString::number(layout.pages.size())));
        QStringList seen;
        QStringList expected;
        for (int row = 1; row <= rows; ++row)
            expected.append(name.arg(row));
        for (const Word& word : layout.words) {
            constexpr double margin = 28; // about a centimetre
            const QRectF inside = layout.pages.at(word.page - 1).adjusted(margin, margin, -margin, -margin);
            QVERIFY2(inside.contains(word.box), qPrintable(word.text));
            // The verdict of the row stands on the same page at the same height.
            const bool whole = std::ranges::any_of(layout.words, [&word](const Word& other) {
                return other.text == "DONE" && other.page == word.page &&
                       std::abs(other.box.center().y() - word.box.center().y()) < 1.0;
            });
            if (word.text.startsWith("row") && whole)
                seen.append(word.text);
        }
        QCOMPARE(seen, name.startsWith("row") ? expected : QStringList());
    }

    void EmbedsItsFonts()
    {
        // name, type, encoding, emb, sub, uni, object ID
        const auto lines = Program::Run("pdffonts", {Export(SampleModels::Panel().get())}).output.trimmed();
        QVERIFY(lines.count('\n') > 1);
        static const QRegularExpression embedded(" yes +(yes|no) +(yes|no) +\\d+ +\\d+$");
        for (const QByteArray& line : lines.split('\n').mid(2))
            QVERIFY2(embedded.match(QString::fromUtf8(line)).hasMatch(), line.constData());
    }

    void LoadsTheLogoAndNothingElse()
    {
        // Pictures of sizes that are found again in the list of the PDF's images.
        for (const auto& [name, size] :
             {std::pair("logo.png", QSize(61, 47)), {"secret.png", QSize(53, 59)}}) {
            QImage image(size, QImage::Format_RGB32);
            image.fill(Qt::red);
            QVERIFY(image.save(Path(name)));
        }
        QString name = "<img src=\"%2\"/><img src=\"file://%2\"/><link rel=\"stylesheet\" href=\"%2\"/>"
                       "<table background=\"%2\" style=\"background-image:url(%2)\"><tr><td>row %1";
        const auto unit = SampleModels::UnitWithRows(1, name.replace("%2", Path("secret.png")));
        const auto images = Program::Run("pdfimages", {"-list", Export(unit.get(), Path("logo.png"))}).output;
        QVERIFY2(QString(images).contains(QRegularExpression(" 61 +47 ")), images);
        QVERIFY2(!QString(images).contains(QRegularExpression(" 53 +59 ")), images);
    }

    // Each of them would take minutes.
    void RefusesWhatTakesTooLong_data()
    {
        const Rows<QString, QString> row;
        const auto tables = [](int depth) { return QString("<table><tr><td>").repeated(depth) + "row%1"; };
        row("few tables", tables(4), "");
        row("tables in tables", tables(24), "tables more than 7 deep");
        row("many tables", QString("<table><tr><td>x</td></tr></table>").repeated(20000) + "%1",
            "more than 5000 tables");
        row("many columns", "<table><tr>" + QString("<td>x</td>").repeated(20000) + "</tr></table>%1",
            "more than 1000 columns");
        row("elements in elements", QString("<b>").repeated(50000) + "%1", "more than 5000 HTML elements");
        row("long text", QString("word ").repeated(20000), "");
        row("long word", QString(60000, 'W'), "more than 50000 characters without a blank");
    }
    void RefusesWhatTakesTooLong()
    {
        const auto [name, says] = CurrentRow<QString, QString>();
        CExportServiceReport service;
        service.SetFormat("PDF");
        service.SetOutputFileName(Path("report.pdf"));
        const auto unit = SampleModels::UnitWithRows(1, name);
        QVERIFY(service.Export(unit.get()));
        QCOMPARE(service.OutputComplete(), says.isEmpty());
        QVERIFY2(service.GetOutputError().contains(says) &&
                     service.GetOutputError().isEmpty() == says.isEmpty(),
                 qPrintable(service.GetOutputError()));
    }

    void SecondReportOfOneBuilder()
    {
        CReportBuilderPDF builder;
        const auto write = [&](const QString& rowName, const QString& fileName, bool broken = false) {
            const auto unit = SampleModels::UnitWithRows(1, rowName + "%1");
            if (broken)
                unit->AssignResultSet(new TestResultSet(nullptr, nullptr));
            return builder.OpenFile(Path(fileName)) &&
                   CExportDirectorReport().ExportUUTTest(unit.get(), &builder);
        };
        QVERIFY(write("first", "1.pdf"));
        QVERIFY(builder.OutputComplete());
        // A walk that breaks off leaves nothing behind in the next document.
        QVERIFY(!write("broken", "broken.pdf", true));
        QVERIFY(!builder.OutputComplete());
        QVERIFY(!QFile::exists(Path("broken.pdf")));

        QVERIFY(write("second", "2.pdf"));
        QVERIFY(builder.OutputComplete());
        const QByteArray text = Program::Run("pdftotext", {Path("2.pdf"), "-"}).output;
        QVERIFY(text.contains("second1"));
        QVERIFY(!text.contains("first1") && !text.contains("broken1"));
    }
};

QTEST_MAIN(PdfReportTest)
#include "PdfReportTest.moc"
