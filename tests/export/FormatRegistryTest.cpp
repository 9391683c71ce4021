#include <ZYNPersistence/CExportServiceReport.h>

#include <QtTest/QtTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

class FormatRegistryTest : public QObject {
    Q_OBJECT

private slots:
    void Names_data();
    void Names();
    void FileNames_data();
    void FileNames();
    void FileDialogFilter();
};

void FormatRegistryTest::Names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("extension");
    QTest::addColumn<bool>("valid");

    const auto row = [](const QString& name, const QString& extension) {
        QTest::newRow(qPrintable(name)) << name << extension << !extension.isEmpty();
    };
    row(u"XML"_s, u"zyr"_s);
    row(u"DEFAULT"_s, u"zyr"_s);
    row(u"TXT"_s, u"txt"_s);
    row(u"ASCII"_s, u"txt"_s);
    row(u"TEXT"_s, u"txt"_s);
    row(u"CSV"_s, u"csv"_s);
    row(u"HTML"_s, u"html"_s);
    row(u"PDF"_s, u"pdf"_s);
    row(u"JSON"_s, u"json"_s);
    row(u"STD"_s, u"std"_s);
    row(u"STDF"_s, u"stdf"_s);
    // Case and outer blanks do not matter, inner ones do.
    row(u"xml"_s, u"zyr"_s);
    row(u" text\t"_s, u"txt"_s);
    row(u"StDf"_s, u"stdf"_s);
    row(u"X ML"_s, QString());
    // Extensions and beginnings of names are no names.
    row(u".csv"_s, QString());
    row(u"HTM"_s, QString());
    row(u"STDFX"_s, QString());
    // The empty name chooses a format without being a valid name.
    QTest::newRow("blanks only") << u" \n"_s << u"zyr"_s << true;
    QTest::newRow("empty") << u""_s << u"zyr"_s << false;
    QTest::newRow("null") << QString() << u"zyr"_s << false;
}

void FormatRegistryTest::Names()
{
    QFETCH(QString, name);
    QFETCH(QString, extension);
    QFETCH(bool, valid);

    QCOMPARE(CExportServiceReport::ExtensionForFormat(name), extension);
    QCOMPARE(CExportServiceReport::ValidFormat(name), valid);
}

void FormatRegistryTest::FileNames_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("format");

    const auto row = [](const QString& fileName, const QString& format) {
        QTest::newRow(qPrintable(fileName)) << fileName << format;
    };
    row(u"report.zyr"_s, u"XML"_s);
    row(u"report.std"_s, u"STD"_s);
    row(u"report.stdf"_s, u"STD"_s);
    // Anywhere in the whole name, folders included, and nothing else than this case.
    row(u"/lot.json/report"_s, u"JSON"_s);
    row(u"report.htmlx"_s, u"HTML"_s);
    row(u"report.CSV"_s, QString());
    row(u"csv"_s, QString());
    row(QString(), QString());
    // Each extension wins against all that are searched for later.
    row(u"a.stdf.json.html.pdf.zyr.xml.txt.csv"_s, u"CSV"_s);
    row(u"a.stdf.json.html.pdf.zyr.xml.txt"_s, u"TXT"_s);
    row(u"a.stdf.json.html.pdf.zyr"_s, u"XML"_s);
    row(u"a.stdf.json.html.pdf"_s, u"PDF"_s);
    row(u"a.stdf.json.html"_s, u"HTML"_s);
    row(u"a.stdf.json"_s, u"JSON"_s);
}

void FormatRegistryTest::FileNames()
{
    QFETCH(QString, fileName);
    QTEST(CExportServiceReport::FormatForExtension(fileName), "format");
}

void FormatRegistryTest::FileDialogFilter()
{
    QCOMPARE(CExportServiceReport::FileNameFilter(),
             u"XML File (*.xml);;PDF File (*.pdf);;HTML File (*.html);;CSV File (*.csv);;"
             "Text File (*.txt);;JSON File (*.json)"_s);
}

QTEST_GUILESS_MAIN(FormatRegistryTest)
#include "FormatRegistryTest.moc"
