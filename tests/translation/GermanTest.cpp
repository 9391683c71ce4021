#include "import/ReportFiles.h"
#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include <ZYNPersistence/CExportServiceTestPlan.h>

#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtCore/QXmlStreamReader>
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

/// The places of a text where something is put in, in order.
QStringList Placeholders(const QString& text)
{
    static const QRegularExpression placeholder(u"%(\\d|n)"_s);
    QStringList found;
    for (const QRegularExpressionMatch& match : placeholder.globalMatch(text))
        found += match.captured();
    found.sort();
    return found;
}

/// What the tool says when it runs in a folder.
QString Zyn(const QString& folder, const QString& arguments, const QString& language)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LOCPATH"_s, QStringLiteral(ZYN_LOCALES));
    environment.insert(u"LC_ALL"_s, language);
    process.setProcessEnvironment(environment);
    process.setWorkingDirectory(folder);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(ZYN_TOOL), arguments.split(u' ', Qt::SkipEmptyParts));
    process.closeWriteChannel();
    process.waitForFinished(60000);
    return QString::fromUtf8(process.readAll());
}

const QString germany = u"de_DE.UTF-8"_s;

} // namespace

/// Which texts follow the user's language: labels of reports for people, what library and tool say, filters
/// of file dialogs. What programs read does not.
class GermanTest : public QObject {
    Q_OBJECT

private slots:
    void LabelsOfPeoplesFormats();
    void MachinesFormats_data();
    void MachinesFormats();
    void ErrorTexts();
    void FileDialogs();
    void TheToolForPeople_data();
    void TheToolForPeople();
    void TheToolForPrograms_data();
    void TheToolForPrograms();
    void TranslationsTakeWhatTheTextsTake();

private:
    QTemporaryDir folder; // with a lot of one board
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

void GermanTest::TheToolForPeople_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("says");
    QTest::newRow("counts") << u"simulate -d one --panels 1 --items 1"_s
                            << u"one: 1 Nutzen zu je 1, Testplan und Bins\n"_s;
    QTest::newRow("one") << u"convert one -o one.stdf"_s << u"one.stdf enthält 1 Teil\n"_s;
    QTest::newRow("more") << u"convert one -o one.stdf"_s << u"one.stdf enthält 2 Teile\n"_s;
    QTest::newRow("summary") << u"statistics one -o one.csv"_s
                             << u"Ausbeute im ersten Durchgang  100.0 % (1 von 1)\n"_s;
    QTest::newRow("table") << u"show one.stdf"_s << u"Test   Läufe  Fehler    Untergrenze"_s;
    QTest::newRow("formats") << u"formats"_s << u"HTML    .html                   Browser\n"_s;
    QTest::newRow("help") << u"convert --help"_s << u"Aufruf: zyn convert [OPTIONEN] INPUT...\n"_s;
    QTest::newRow("parser") << u"simulate -d one --panels 0"_s
                            << u"zyn: --panels: 0 liegt nicht in 1 … 10000000; siehe zyn simulate --help\n"_s;
    QTest::newRow("name like a placeholder")
        << u"convert one -d . -f %2"_s << u"zyn: es gibt kein Format »%2«; "_s;
    QTest::newRow("problem") << u"convert one -o one.csv"_s
                             << u"zyn: one.csv: existiert schon; mit --force ersetzen\n"_s;
}

void GermanTest::TheToolForPeople()
{
    QFETCH(QString, arguments);
    QFETCH(QString, says);
    const QString output = Zyn(folder.path(), arguments, germany);
    QVERIFY2(output.contains(says), qPrintable(output));
}

void GermanTest::TheToolForPrograms_data()
{
    QTest::addColumn<QString>("arguments");
    for (const char* const arguments :
         {"formats --json", "show --json one one.stdf", "check --json one broken.stdf missing.zyr"})
        QTest::newRow(arguments) << QString::fromLatin1(arguments);
}

void GermanTest::TheToolForPrograms()
{
    QFETCH(QString, arguments);
    QFile broken(folder.filePath(u"broken.stdf"_s));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    const QString english = Zyn(folder.path(), arguments, u"C.UTF-8"_s);
    QVERIFY(!english.isEmpty());
    QCOMPARE(Zyn(folder.path(), arguments, germany), english);
}

void GermanTest::TranslationsTakeWhatTheTextsTake()
{
    QFile catalogue(QStringLiteral(ZYN_SOURCE_DIR "/translations/zyn_de.ts"));
    QVERIFY(catalogue.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&catalogue);
    QString source;
    QString text;
    int compared = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement())
            text.clear();
        else if (reader.isCharacters())
            text += reader.text();
        else if (reader.isEndElement() && reader.name() == u"source"_s)
            source = text;
        else if (reader.isEndElement() && !text.trimmed().isEmpty() &&
                 (reader.name() == u"translation"_s || reader.name() == u"numerusform"_s)) {
            QVERIFY2(Placeholders(text) == Placeholders(source), qPrintable(text));
            ++compared;
        }
    }
    QVERIFY(compared > 300);
}

QTEST_GUILESS_MAIN(GermanTest)
#include "GermanTest.moc"
