#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include <ZYNPersistence/CExportServiceReport.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CImportServiceReport.h>

#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtTest/QtTest>

using namespace ZYN;
using namespace Qt::StringLiterals;

namespace {

/// German for as long as it lives.
class German {
public:
    German()
    {
        if (translator.load(QStringLiteral(ZYN_GERMAN)))
            QCoreApplication::installTranslator(&translator);
    }
    ~German() { QCoreApplication::removeTranslator(&translator); }
    Q_DISABLE_COPY_MOVE(German)

private:
    QTranslator translator;
};

QByteArray Export(const QString& format, const QString& caseName)
{
    return ExportSample(format, *SampleModels::MakeReportCase(caseName)).content;
}

/// The texts between the tags of a page.
QStringList Texts(const QByteArray& page)
{
    static const QRegularExpression tag(u"<[^>]*>"_s);
    QStringList texts = QString::fromUtf8(page).split(tag);
    for (QString& text : texts)
        text = text.trimmed();
    return texts;
}

} // namespace

/// Which texts follow the user's language: labels of reports for people, what the library says, filters of
/// file dialogs. What programs read does not.
class GermanTest : public QObject {
    Q_OBJECT

private slots:
    void LabelsOfPeoplesFormats();
    void MachinesFormats_data();
    void MachinesFormats();
    void Findings();
    void ErrorTexts();
    void FileDialogs();
};

void GermanTest::LabelsOfPeoplesFormats()
{
    QMap<QString, QString> changed;
    for (const QString& caseName : {u"passed-unit"_s, u"panel"_s}) {
        const QStringList english = Texts(Export(u"HTML"_s, caseName));
        const German german;
        const QStringList translated = Texts(Export(u"HTML"_s, caseName));
        QCOMPARE(translated.size(), english.size());
        for (qsizetype i = 0; i < english.size(); ++i) {
            if (english.at(i) != translated.at(i))
                changed.insert(english.at(i), translated.at(i));
        }
    }
    const QMap<QString, QString> expected = {
        {u"Article Code"_s, u"Artikelnummer"_s},
        {u"Customer"_s, u"Kunde"_s},
        {u"Duration"_s, u"Dauer"_s},
        {u"File"_s, u"Datei"_s},
        {u"Fixture SerialNo."_s, u"Seriennr. des Adapters"_s},
        {u"Fixture Type"_s, u"Adaptertyp"_s},
        {u"Ident"_s, u"Kennung"_s},
        {u"KVA Version"_s, u"KVA-Version"_s},
        {u"LL"_s, u"UG"_s},
        {u"Lot Name"_s, u"Losname"_s},
        {u"Operator"_s, u"Bediener"_s},
        {u"Panel Item 1"_s, u"Nutzenteil 1"_s},
        {u"Panel Item 2"_s, u"Nutzenteil 2"_s},
        {u"Panel Item 3"_s, u"Nutzenteil 3"_s},
        {u"Product Description"_s, u"Produktbeschreibung"_s},
        {u"Product Name"_s, u"Produktname"_s},
        {u"Program:"_s, u"Programm:"_s},
        {u"Result"_s, u"Ergebnis"_s},
        {u"Results:"_s, u"Ergebnisse:"_s},
        {u"Test Date/Time"_s, u"Testzeitpunkt"_s},
        {u"Test Duration"_s, u"Testdauer"_s},
        {u"Test Machine"_s, u"Testmaschine"_s},
        {u"Test Result"_s, u"Testergebnis"_s},
        {u"Time"_s, u"Zeit"_s},
        {u"UL"_s, u"OG"_s},
        {u"UUT Identification"_s, u"Kennung des Prüflings"_s},
        {u"UUT SerialNo."_s, u"Seriennr. des Prüflings"_s},
        {u"Unit"_s, u"Einheit"_s},
        {u"Value"_s, u"Wert"_s},
        {u"Workspace"_s, u"Arbeitsbereich"_s},
    };
    QCOMPARE(changed, expected);
}

void GermanTest::MachinesFormats_data()
{
    QTest::addColumn<QString>("format");
    for (const char* format : {"XML", "CSV", "TXT", "JSON", "STDF"})
        QTest::newRow(format) << QString::fromLatin1(format);
}

void GermanTest::MachinesFormats()
{
    QFETCH(QString, format);
    for (const QString& caseName : {u"passed-unit"_s, u"failed-unit"_s, u"panel"_s}) {
        const QByteArray english = Export(format, caseName);
        const German german;
        QVERIFY(!english.isEmpty());
        QCOMPARE(Export(format, caseName), english);
    }
}

void GermanTest::Findings()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(u"report.zyr"_s);
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("<TestReport><UUTTest ID=\"1\" Name=\"a\" /></TestReport>");
    file.close();

    const German german;
    CImportServiceReport import;
    import.SetInputFileName(name);
    UUTTest test(0, QString());
    QVERIFY(import.Import(&test));
    QVERIFY(!import.GetFindings().isEmpty());
    QCOMPARE(import.GetFindings().constFirst().text, u"der Bericht hat keine Version"_s);
}

void GermanTest::ErrorTexts()
{
    const German german;
    CExportServiceReport service;
    UUTTest test(0, QString());
    QVERIFY(!service.Export(&test));
    QCOMPARE(service.GetErrorText(), u"Kein gültiges Format angegeben."_s);
    service.SetFormat(u"CSV"_s);
    service.SetOutputFileName(u"/nonexistent/a%1.csv"_s);
    QVERIFY(!service.Export(&test));
    QCOMPARE(service.GetErrorText(), u"Datei konnte nicht angelegt werden: /nonexistent/a%1.csv"_s);
}

void GermanTest::FileDialogs()
{
    const German german;
    QCOMPARE(CExportServiceReport::FileNameFilter(),
             u"XML Datei (*.xml);;PDF Datei (*.pdf);;HTML Datei (*.html);;CSV Datei (*.csv);;"
             "Text Datei (*.txt);;JSON Datei (*.json)"_s);
    QCOMPARE(CExportServiceTestPlan::FileNameFilter(), u"Testplandatei (*.tpl)"_s);
}

QTEST_GUILESS_MAIN(GermanTest)
#include "GermanTest.moc"
