#include "import/ReportFiles.h"
#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include <ZYNPersistence/CExportServiceTestPlan.h>

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
                changed.insert(english.at(i), english.at(i) + u'=' + translated.at(i));
        }
    }
    const QString expected =
        u"Article Code=Artikelnummer|Customer=Kunde|Duration=Dauer|File=Datei|"
        "Fixture SerialNo.=Seriennr. des Adapters|Fixture Type=Adaptertyp|Ident=Kennung|"
        "KVA Version=KVA-Version|LL=UG|Lot Name=Losname|Operator=Bediener|Panel Item 1=Nutzenteil 1|"
        "Panel Item 2=Nutzenteil 2|Panel Item 3=Nutzenteil 3|Product Description=Produktbeschreibung|"
        "Product Name=Produktname|Program:=Programm:|Result=Ergebnis|Results:=Ergebnisse:|"
        "Test Date/Time=Testzeitpunkt|Test Duration=Testdauer|Test Machine=Testmaschine|"
        "Test Result=Testergebnis|Time=Zeit|UL=OG|UUT Identification=Kennung des Prüflings|"
        "UUT SerialNo.=Seriennr. des Prüflings|Unit=Einheit|Value=Wert|Workspace=Arbeitsbereich"_s;
    QCOMPARE(QStringList(changed.begin(), changed.end()).join(u'|'), expected);
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
    QCOMPARE(ReportFiles::Read("<TestReport/>").Texts(), u"der Bericht hat keine Version"_s);
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
