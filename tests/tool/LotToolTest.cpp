/// The commands for lots, test plans and binning definitions, as a user runs them.

#include "support/RelaxNg.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;

namespace {

struct Outcome {
    int code;
    QString output;
    QString errors;
};

} // namespace

class LotToolTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void statisticsCountsTheLot();
    void statisticsIsTheSameEveryTime();
    void statisticsUsage_data();
    void statisticsUsage();
    void statisticsNamesWhatIsOdd();
    void statisticsGoesOnWithoutTheBroken();
    void simulatedFilesAreGood();
    void showsPlanAndBins();
    void findings_data();
    void findings();

private:
    QString Path(const QString& name) const { return folder.filePath(name); }
    Outcome Zyn(const QString& arguments) const;
    QByteArray Content(const QString& name) const;
    void Write(const QString& name, const QByteArray& content) const;

    QTemporaryDir folder; // with a lot in "lot"
};

Outcome LotToolTest::Zyn(const QString& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(folder.path());
    process.start(QStringLiteral(ZYN_TOOL), arguments.split(u' ', Qt::SkipEmptyParts));
    process.closeWriteChannel();
    process.waitForFinished(120000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QByteArray LotToolTest::Content(const QString& name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void LotToolTest::Write(const QString& name, const QByteArray& content) const
{
    QFile file(Path(name));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
}

void LotToolTest::initTestCase()
{
    QCOMPARE(Zyn(u"simulate -q -d lot --panels 6 --items 4 --seed 1"_s).code, 0);
}

// Counted again from what `show` says about each unit.
void LotToolTest::statisticsCountsTheLot()
{
    const Outcome outcome = Zyn(u"statistics lot -o lot.csv --scaled"_s);
    QCOMPARE(outcome.code, 0);
    int units = 0;
    int passed = 0;
    const QStringList reports = Zyn(u"show --json lot"_s).output.split(u'\n', Qt::SkipEmptyParts);
    for (const QString& report : reports) {
        const QJsonArray items =
            QJsonDocument::fromJson(report.toUtf8()).object().value(u"items"_s).toArray();
        for (const QJsonValue& item : items) {
            ++units;
            passed += item.toObject().value(u"code"_s).toInt() == 1;
        }
    }
    QCOMPARE(units, 24);
    QVERIFY(passed < units);
    const QString yield = u"Yield             %1 % (%2 of %3)\n"_s.arg(
        QString::number(100.0 * passed / units, 'f', 1), QString::number(passed), QString::number(units));
    QVERIFY2(outcome.output.startsWith(yield), qPrintable(outcome.output));
    const QJsonObject summary =
        QJsonDocument::fromJson(Zyn(u"statistics lot -q --json -o json.csv"_s).output.toUtf8()).object();
    QCOMPARE(summary.value(u"units"_s).toInt(), units);
    QCOMPARE(summary.value(u"passed"_s).toInt(), passed);

    const QByteArrayList lines = Content(u"lot.csv"_s).split('\n');
    QCOMPARE(lines.constFirst().left(6), QByteArray("Ident;"));
    for (const QByteArray& line : lines.first(lines.size() - 1))
        QCOMPARE(line.count(';'), lines.constFirst().count(';'));
}

void LotToolTest::statisticsIsTheSameEveryTime()
{
    for (const QString& extension : {u"csv"_s, u"xml"_s}) {
        QCOMPARE(Zyn(u"statistics -q lot -o a."_s + extension).code, 0);
        QCOMPARE(Zyn(u"statistics -q lot -o b."_s + extension).code, 0);
        QCOMPARE(Content(u"a."_s + extension), Content(u"b."_s + extension));
    }
    QCOMPARE(RelaxNg::Faults(u"statistics-1.0.2.rng"_s, Path(u"a.xml"_s)), QString());
}

void LotToolTest::statisticsUsage_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("says");
    QTest::newRow("no output") << u"statistics lot"_s << 2 << u"--output is required"_s;
    QTest::newRow("no format") << u"statistics lot -o lot.dat"_s << 2 << u"the format is not clear"_s;
    QTest::newRow("other format") << u"statistics lot -o lot.html"_s << 2 << u"no statistics as HTML"_s;
    QTest::newRow("missing input") << u"statistics nowhere -o n.csv"_s << 1 << u"nowhere"_s;
    QTest::newRow("existing output") << u"statistics lot -o exists.csv"_s << 1 << u"--force"_s;
    QTest::newRow("replaced") << u"statistics -q lot -o exists.csv --force"_s << 0 << QString();
    QTest::newRow("format by name") << u"statistics -q lot -o lot.dat -f csv"_s << 0 << QString();
}

void LotToolTest::statisticsUsage()
{
    QFETCH(QString, arguments);
    QFETCH(int, code);
    QFETCH(QString, says);
    Write(u"exists.csv"_s, "old");
    const Outcome outcome = Zyn(arguments);
    QCOMPARE(outcome.code, code);
    QVERIFY2(outcome.errors.contains(says), qPrintable(outcome.errors));
    QCOMPARE(Content(u"exists.csv"_s) == "old", !arguments.contains(u"--force"));
    QVERIFY(!QFile::exists(Path(u"n.csv"_s)));
}

void LotToolTest::statisticsNamesWhatIsOdd()
{
    QVERIFY(QDir(folder.path()).mkpath(u"odd"_s));
    QByteArray report = Content(u"lot/panel-0001.zyr"_s);
    Write(u"odd/1.zyr"_s, report);
    // The same panel again: another program version, one limit moved, one component renamed.
    static const QRegularExpression version(u"(<Property Name=\"Version\">)[^<]*"_s);
    QString other = QString::fromUtf8(report);
    QVERIFY(other.contains(version) && other.contains(u"\"R12\""));
    other.replace(version, u"\\1changed"_s).replace(u"Name=\"R12\""_s, u"Name=\"R99\""_s);
    static const QRegularExpression upper(u"(Name=\"R13\".*?<Property Name=\"Upper\">)[^<]*"_s,
                                          QRegularExpression::DotMatchesEverythingOption);
    QVERIFY(other.contains(upper));
    other.replace(upper, u"\\1 777"_s);
    Write(u"odd/2.zyr"_s, other.toUtf8());
    const Outcome outcome = Zyn(u"statistics -v odd -o odd.csv"_s);
    QCOMPARE(outcome.code, 0);
    QVERIFY2(outcome.errors.contains(u"version 'changed' in "), qPrintable(outcome.errors));
    QVERIFY2(outcome.errors.contains(u"211 R99 is in 5 of 10 runs only"), qPrintable(outcome.errors));
    QVERIFY2(outcome.errors.contains(u"the limits of 212 R13 changed"), qPrintable(outcome.errors));
}

void LotToolTest::statisticsGoesOnWithoutTheBroken()
{
    QVERIFY(QDir(folder.path()).mkpath(u"broken"_s));
    Write(u"broken/a.zyr"_s, Content(u"lot/panel-0001.zyr"_s));
    Write(u"broken/b.zyr"_s, Content(u"lot/panel-0002.zyr"_s).first(20000));
    const Outcome outcome = Zyn(u"statistics broken -o broken.csv"_s);
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(u"broken/b.zyr:"), qPrintable(outcome.errors));
    QVERIFY(outcome.output.contains(u" of 4)"));
    QVERIFY(Content(u"broken.csv"_s).startsWith("Ident;"));
}

void LotToolTest::simulatedFilesAreGood()
{
    const Outcome outcome = Zyn(u"check lot/MCB-48.tpl lot/bins.ini"_s);
    QCOMPARE(outcome.output + outcome.errors, QString());
    QCOMPARE(outcome.code, 0);
    QCOMPARE(RelaxNg::Faults(u"test-plan-3.0.0.rng"_s, Path(u"lot/MCB-48.tpl"_s)), QString());
}

void LotToolTest::showsPlanAndBins()
{
    Write(u"p.tpl"_s, "<TestPlan Version='3.0.0'><Validation Ident='7' Name='R1'>"
                      "<Property Name='Lower'>1</Property></Validation>"
                      "<Attributes Ident='8'><Category Name='c'><Attribute Name='a' Type='Integer'>3"
                      "</Attribute></Category></Attributes></TestPlan>");
    Write(u"b.ini"_s, "[BIN2]\n_NAME_=LOW\n_TYPE_=SOFT\n_RESULT_=FAIL\n");
    QCOMPARE(Zyn(u"show p.tpl b.ini"_s).output,
             u"p.tpl  test plan, 2 components\n7 R1\n  validation\n    Name = R1\n    Lower = 1\n8\n"
             "  attributes\n    c/\n      a = 3\n\nb.ini  binning definition, 1 bin\n"
             "         2  LOW  soft  FAIL\n"_s);
    const QStringList objects = Zyn(u"show --json p.tpl b.ini"_s).output.split(u'\n', Qt::SkipEmptyParts);
    QCOMPARE(objects.size(), 2);
    const QJsonObject plan = QJsonDocument::fromJson(objects.first().toUtf8()).object();
    const QJsonObject value = plan.value(u"components"_s)[1].toObject().value(u"attributes"_s)[0].toObject();
    QCOMPARE(value.value(u"path"_s)[0].toString(), u"c"_s);
    QCOMPARE(value.value(u"value"_s).toInt(), 3);
    const QJsonObject bins = QJsonDocument::fromJson(objects.last().toUtf8()).object();
    QCOMPARE(bins.value(u"bins"_s)[0].toObject().value(u"name"_s).toString(), u"LOW"_s);
}

void LotToolTest::findings_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("code");
    const auto row = [](const char* title, const char* name, const QByteArray& content, const char* output,
                        int code) {
        QTest::newRow(title) << QString::fromUtf8(name) << content << QString::fromUtf8(output) << code;
    };
    const QByteArray good("[BIN1]\n_NAME_=a\n_TYPE_=HARD\n_RESULT_=PASS\n");
    row("good bins", "x.ini", good, "", 0);
    row("second id", "x.ini", good + "[BIN01]\n_NAME_=b\n",
        "x.ini:5: There are duplicate sections with bin id 1\n", 1);
    row("second name", "x.ini", good + "[BIN2]\n_NAME_=a\n",
        "x.ini:5: There are duplicate sections with bin name a\n", 1);
    row("no bin", "x.ini", good + "[bin2]\n",
        "x.ini:5: Section 'bin2' has not the expected format 'BIN<bin-id>'\n", 1);
    row("no INI", "x.ini", good + "oops\n",
        "x.ini:5: cannot be read as INI: neither '[section]', 'key=value' nor a comment\n", 1);
    row("cut off", "x.tpl", "<TestPlan Version='3.0.0'>\n<Properties Ident='1'>\n",
        "x.tpl:3: Premature end of document.\n", 1);
    row("version", "x.tpl", "<TestPlan Version='4.0.0'/>\n",
        "x.tpl:1:27: Only TestPlan file versions 2.0.0 and 3.0.0 are supported\n", 1);
    row("passed over in silence", "x.tpl",
        "<TestPlan Version='3.0.0'>\n<Properties Ident='1'><x><Property/></x></Properties>\n"
        "<Attributes Ident='1'><Attribute Name='a' Type='Real'>1,5</Attribute></Attributes>\n"
        "<Properties Ident='1'/>\n</TestPlan>",
        "x.tpl:2:25: note: element 'x' is unknown here and is skipped\n"
        "x.tpl:3:69: note: attribute 'a': '1,5' is no Real and counts as 0\n"
        "x.tpl:4:23: note: there is a 'Properties' for ident '1' before; the last one counts\n",
        0);
}

void LotToolTest::findings()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, output);
    QFETCH(int, code);
    Write(name, content);
    const Outcome outcome = Zyn(u"check "_s + name);
    QCOMPARE(outcome.output, output);
    QCOMPARE(outcome.code, code);
}

QTEST_GUILESS_MAIN(LotToolTest)
#include "LotToolTest.moc"
