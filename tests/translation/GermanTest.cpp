#include "import/ReportFiles.h"
#include "support/Golden.h"
#include "support/ReportRun.h"
#include "support/Test.h"

#include <ZYNPersistence/CExportServiceTestPlan.h>

using namespace ZYN;

namespace {

/// German for as long as it lives.
class German {
public:
    German()
    {
        if (translator.load(ZYN_GERMAN))
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
    static const QRegularExpression tag("\\s*<[^>]*>\\s*");
    return QString::fromUtf8(page).split(tag);
}

/// The places of a text where something is put in, in order.
QStringList Placeholders(const QString& text)
{
    static const QRegularExpression placeholder("%(\\d|n)");
    QStringList found;
    for (const QRegularExpressionMatch& match : placeholder.globalMatch(text))
        found += match.captured();
    found.sort();
    return found;
}

} // namespace

/// Which texts follow the user's language: labels of reports for people, what library and tool say, filters
/// of file dialogs. What programs read does not.
class GermanTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder; // with a lot of one board

    /// What the tool says.
    QString Zyn(const QString& arguments, const QString& language = "de_DE.UTF-8") const
    {
        const auto run = Program::Run(
            "env", QStringList{"LOCPATH=" ZYN_LOCALES, "LC_ALL=" + language, ZYN_TOOL} + arguments.split(' '),
            folder.path());
        return QString::fromUtf8(run.output + run.errors);
    }

private slots:
    void LabelsOfPeoplesFormats()
    {
        QMap<QString, QString> changed;
        for (const QString caseName : {"passed-unit", "panel"}) {
            const QStringList english = Texts(Export("HTML", caseName));
            const German german;
            const QStringList translated = Texts(Export("HTML", caseName));
            QCOMPARE(translated.size(), english.size());
            for (qsizetype i = 0; i < english.size(); ++i) {
                if (english.at(i) != translated.at(i))
                    changed.insert(english.at(i), english.at(i) + '=' + translated.at(i));
            }
        }
        const QStringList lines(changed.begin(), changed.end());
        QCOMPARE(Golden::Difference("german", "report-labels.txt", lines.join('\n').toUtf8()), QString());
    }

    void MachinesFormats_data()
    {
        const Rows<> row;
        for (const char* format : {"XML", "CSV", "TXT", "JSON", "STDF"})
            row(format);
    }
    void MachinesFormats()
    {
        for (const QString caseName : {"passed-unit", "failed-unit", "panel"}) {
            const QByteArray english = Export(QTest::currentDataTag(), caseName);
            const German german;
            QVERIFY(!english.isEmpty());
            QCOMPARE(Export(QTest::currentDataTag(), caseName), english);
        }
    }

    void TextsOfTheLibrary()
    {
        const German german;
        CExportServiceReport service;
        UUTTest test(0, QString());
        service.SetFormat("CSV");
        service.SetOutputFileName("/nonexistent/a%1.csv");
        QVERIFY(!service.Export(&test));
        QCOMPARE(service.GetErrorText(), "Datei konnte nicht angelegt werden: /nonexistent/a%1.csv");
    }

    void TheToolForPeople_data()
    {
        const Rows<QString> row;
        row("simulate -d one --panels 1 --items 1", "one: 1 Nutzen zu je 1, Testplan und Bins\n");
        row("convert one -o one.stdf", "one.stdf enthält 1 Teil\n");
        row("convert one one -o one.stdf --again", "one.stdf enthält 3 Teile\n");
        row("convert --help", "Aufruf: zyn convert [OPTIONEN] INPUT...\n");
        row("convert one -d . -f %2", "zyn: es gibt kein Format »%2«; ");
    }
    void TheToolForPeople()
    {
        const auto [says] = CurrentRow<QString>();
        const QString output = Zyn(QTest::currentDataTag());
        QVERIFY2(output.contains(says), qPrintable(output));
    }

    void TheToolForPrograms()
    {
        Files::Write(folder.filePath("broken.stdf"), QByteArray());
        for (const QString arguments :
             {"formats --json", "show --json one one.stdf", "check --json one broken.stdf missing.zyr"}) {
            const QString english = Zyn(arguments, "C.UTF-8");
            QVERIFY(!english.isEmpty());
            QCOMPARE(Zyn(arguments), english);
        }
    }

    void TranslationsTakeWhatTheTextsTake()
    {
        QXmlStreamReader reader(Files::Content(ZYN_SOURCE_DIR "/translations/zyn_de.ts"));
        QString source;
        QString text;
        int compared = 0;
        while (!reader.atEnd()) {
            reader.readNext();
            if (reader.isStartElement())
                text.clear();
            else if (reader.isCharacters())
                text += reader.text();
            else if (reader.isEndElement() && reader.name() == QLatin1String("source"))
                source = text;
            else if (reader.isEndElement() && !text.trimmed().isEmpty() &&
                     QStringList{"translation", "numerusform"}.contains(reader.name())) {
                QVERIFY2(Placeholders(text) == Placeholders(source), qPrintable(text));
                ++compared;
            }
        }
        QVERIFY(compared > 300);
    }
};

QTEST_GUILESS_MAIN(GermanTest)
#include "GermanTest.moc"
