#include "support/Test.h"

#include <ZYNPersistence/CExportServiceReport.h>

using namespace ZYN;
using namespace Qt::StringLiterals;

class FormatRegistryTest : public QObject {
    Q_OBJECT

private slots:
    void Names_data()
    {
        const Rows<QString, bool> row;
        for (const char* name : {"XML", "DEFAULT", "xml", " \n"})
            row(name, "zyr", true);
        for (const char* name : {"TXT", "ASCII", "TEXT", " text\t"})
            row(name, "txt", true);
        for (const char* name : {"CSV", "HTML", "PDF", "JSON", "STD", "STDF"})
            row(name, QString(name).toLower(), true);
        row("StDf", "stdf", true);
        // The empty name chooses a format without being a valid name.
        row("", "zyr", false);
        // Inner blanks matter; extensions and beginnings of names are no names.
        for (const char* name : {"X ML", ".csv", "HTM", "STDFX"})
            row(name, "", false);
    }
    void Names()
    {
        const auto [extension, valid] = CurrentRow<QString, bool>();
        const QString name = QTest::currentDataTag();
        QCOMPARE(CExportServiceReport::ExtensionForFormat(name), extension);
        QCOMPARE(CExportServiceReport::ValidFormat(name), valid);
    }

    void FileNames_data()
    {
        const Rows<QString> row;
        row("report.zyr", "XML");
        row("report.std", "STD");
        row("report.stdf", "STD");
        // Anywhere in the whole name, folders included, and nothing else than this case.
        row("/lot.json/report", "JSON");
        row("report.htmlx", "HTML");
        for (const char* name : {"report.CSV", "csv", ""})
            row(name, "");
        // Each extension wins against all that are searched for later.
        row("a.stdf.json.html.pdf.zyr.xml.txt.csv", "CSV");
        row("a.stdf.json.html.pdf.zyr.xml.txt", "TXT");
        row("a.stdf.json.html.pdf.zyr", "XML");
        row("a.stdf.json.html.pdf", "PDF");
        row("a.stdf.json.html", "HTML");
        row("a.stdf.json", "JSON");
    }
    void FileNames()
    {
        const auto [format] = CurrentRow<QString>();
        QCOMPARE(CExportServiceReport::FormatForExtension(QTest::currentDataTag()), format);
    }
};

QTEST_GUILESS_MAIN(FormatRegistryTest)
#include "FormatRegistryTest.moc"
