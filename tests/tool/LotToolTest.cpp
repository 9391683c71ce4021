/// The commands for lots, test plans and binning definitions, as a user runs them.

#include "ToolFolder.h"
#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/Test.h"

using namespace ZYN;

namespace {

// A single unit's report with measurements "a" and "b" in one step, limits 7 to 13.
struct Report {
    QString lot = "L1";
    QString serial = "1";
    QString start = "2024-05-01T08:00:00Z";
    double a = 10;
    double b = 10;
    QString product = "P";
    QString program = "T";

    QByteArray Text() const
    {
        const auto property = [](const QString& name, const QString& text) {
            return QString("<Property Name=\"%1\">%2</Property>").arg(name, text);
        };
        const auto result = [&](bool good, double value) {
            return QString("<Result Code=\"%1\">%2</Result>")
                .arg(good ? 1 : -1)
                .arg(property("Value", QString::number(value)));
        };
        const auto judged = [&](int id, const QString& name, double value) {
            const QString limits = "<Limits Type=\"8\"><Property Name=\"Unit\" Code=\"1\" Factor=\"0\"/>" +
                                   property("Lower", "7") + property("CompLower", "&lt;=") +
                                   property("Upper", "13") + property("CompUpper", "&lt;=") + "</Limits>";
            return QString("<TestMeasurement ID=\"%1\" Name=\"%2\" Type=\"8\">%3</TestMeasurement>")
                .arg(QString::number(id), name, limits + result(IsGood(value), value));
        };
        const bool good = IsGood(a) && IsGood(b);
        return ("<TestReport Version=\"1.4.0\"><UUTTest>" + property("Result", good ? "1" : "-1") +
                property("TestTime", start) + "</UUTTest><UnitUnderTest>" + property("Name", {}) +
                property("SerialNo", serial) + "<Property Name=\"ProductType\" Code=\"1\">" + product +
                "</Property></UnitUnderTest><ProductionLot>" + property("LotNumber", lot) +
                "</ProductionLot><TestResults><TestResultSet><Testprogram ID=\"9\" Name=\"" + program +
                "\" Type=\"1\">" + result(good, 0) + "<TestGroup ID=\"1\" Name=\"G\" Type=\"2\">" +
                result(good, 0) + "<TestStep ID=\"2\" Name=\"S\" Type=\"3\">" + result(good, 0) +
                judged(3, "a", a) + judged(4, "b", b) +
                "</TestStep></TestGroup></Testprogram></TestResultSet></TestResults></TestReport>")
            .toUtf8();
    }
    static bool IsGood(double value) { return value >= 7 && value <= 13; }
};

} // namespace

class LotToolTest : public QObject {
    Q_OBJECT

private:
    ToolFolder folder; // with a lot in "lot"

private slots:
    void initTestCase() { QCOMPARE(folder.Zyn("simulate -q -d lot --panels 6 --items 4 --seed 1").code, 0); }

    // Counted again from what `show` says about each unit.
    void statisticsCountsTheLot()
    {
        const auto outcome = folder.Zyn("statistics lot -o lot.csv --scaled");
        QCOMPARE(outcome.code, 0);
        int units = 0;
        int passed = 0;
        for (const QByteArray& report : folder.Zyn("show --json lot").output.split('\n')) {
            for (const QJsonValue item : QJsonDocument::fromJson(report)["items"].toArray()) {
                ++units;
                passed += item["code"].toInt() == 1;
            }
        }
        QCOMPARE(units, 24);
        QVERIFY(passed < units);
        const QString yield = QString("Yield             %1 % (%2 of %3)\n")
                                  .arg(100.0 * passed / units, 0, 'f', 1)
                                  .arg(passed)
                                  .arg(units);
        QVERIFY2(outcome.output.startsWith(yield.toUtf8()), outcome.output);
        const auto summary =
            QJsonDocument::fromJson(folder.Zyn("statistics lot -q --json -o json.csv").output);
        QCOMPARE(summary["units"].toInt(), units);
        QCOMPARE(summary["passed"].toInt(), passed);

        QCOMPARE(folder.Zyn("statistics lot -o - -f csv --scaled").output, folder.Content("lot.csv"));
        const QByteArrayList lines = folder.Content("lot.csv").trimmed().split('\n');
        QVERIFY(lines.first().startsWith("Ident;"));
        for (const QByteArray& line : lines)
            QCOMPARE(line.count(';'), lines.first().count(';'));
    }

    // What runs and units are: lots as lists of reports, in input order.
    void unitsAndRuns_data()
    {
        // Expected: for each program units, passed, passed first and the values of "a" that count; a remark.
        const Rows<QList<Report>, QString, QByteArray> row;
        row("a serial in two lots", QList<Report>{{.a = 99}, {.serial = "2"}, {"L2"}, {"L2", "2"}}, "4 3 3 4",
            "serial '2' of product 'P' stands in several lots (L1, L2)");
        row("a serial of two products", QList<Report>{{.a = 99}, {.product = "Q"}}, "2 1 1 2", "");
        row("tested again", QList<Report>{{.start = "2024-05-01T09:00:00Z"}, {.a = 99}}, "1 1 0 2", "");
        row("tested again in another zone",
            QList<Report>{{.start = "2024-05-01T09:00:00+02:00", .a = 99}, {}}, "1 1 0 2", "");
        row("no start", QList<Report>{{.start = "noon"}, {.a = 99}}, "1 1 0 2",
            "the start 'noon' of unit '1' cannot be read");
        row("a copy", QList<Report>{{}, {.serial = "2"}, {}}, "2 2 2 2", "lot1/3.zyr: 1 runs are copies");
        row("other contents", QList<Report>{{.a = 99}, {.a = 98}, {.a = 10}}, "1 1 1 1",
            "lot1/3.zyr: 1 runs differ from what was read before, and replace it");
        row("units without a name", QList<Report>{{.serial = ""}, {.serial = "", .a = 11}, {.serial = ""}},
            "2 2 2 2", "lot1/3.zyr: 1 runs are copies");
        row("two programs", QList<Report>{{.a = 99, .program = "FCT"}, {.program = "ICT"}},
            "1 0 0 1, 1 1 1 1", "");
    }
    void unitsAndRuns()
    {
        const auto [reports, expected, remark] = CurrentRow<QList<Report>, QString, QByteArray>();
        QDir(folder.Path("lot1")).removeRecursively();
        for (qsizetype i = 0; i < reports.size(); ++i)
            folder.Write(QString("lot1/%1.zyr").arg(i + 1), reports.at(i).Text());
        const auto outcome = folder.Zyn("statistics lot1 -o lot1.csv --json --force");
        QCOMPARE(outcome.code, 0);
        QVERIFY2(outcome.errors.contains(remark), outcome.errors);
        const QByteArrayList rows = folder.Content("lot1.csv").split('\n');
        QStringList programs;
        for (const QByteArray& line : outcome.output.trimmed().split('\n')) {
            const auto program = QJsonDocument::fromJson(line);
            const qsizetype column = rows[1].split(';').indexOf("a", programs.size() * 5 + 1);
            programs += QString("%1 %2 %3 %4")
                            .arg(program["units"].toInt())
                            .arg(program["passed"].toInt())
                            .arg(program["passedFirst"].toInt())
                            .arg(rows[5].split(';')[column].toInt() + rows[6].split(';')[column].toInt());
        }
        QCOMPARE(programs.join(", "), expected);
    }

    // Of "a" the failure is no part of what the process can do; "b" only fails where "a" did before, and has
    // had other limits once.
    void summary()
    {
        QList<Report> reports{{.serial = "1", .a = 9, .b = 9},
                              {.serial = "2"},
                              {.serial = "3", .a = 11, .b = 11},
                              {.serial = "4", .a = 16, .b = 16},
                              {.serial = "5"}};
        QDir(folder.Path("lot1")).removeRecursively();
        for (const Report& report : reports)
            folder.Write("lot1/" + report.serial + ".zyr", report.Text());
        QByteArray other = reports[4].Text();
        other.replace(other.lastIndexOf(">13<"), 4, ">19<");
        folder.Write("lot1/5.zyr", other);
        folder.Write("lot1/6.zyr", other.replace("\"SerialNo\">5", "\"SerialNo\">6").replace(">10<", ">13<"));
        const auto outcome = folder.Zyn("statistics lot1");
        QCOMPARE(outcome.code, 0);
        QCOMPARE(outcome.output, "Yield             83.3 % (5 of 6)\n"
                                 "First-pass yield  83.3 % (5 of 6)\n\n"
                                 "Failed first\n"
                                 "  100.0 % (1 of 1)  3 G / S / a\n\n"
                                 "Smallest CPK: of all values, of those that passed\n"
                                 "    0.16    1.00  4 G / S / b  [7 … 13]\n"
                                 "    0.19    0.53  3 G / S / a  [7 … 13]\n"
                                 "    0.71    0.71  4 G / S / b  [7 … 19]\n");
        QVERIFY(outcome.errors.contains("the limits of 4 G / S / b changed"));
    }

    void statisticsUsage_data()
    {
        const Rows<int, QByteArray> row;
        row("statistics lot -f csv", 2, "add -o FILE, or -o - for standard output");
        row("statistics lot -o - -f csv --json", 2, "both want standard output");
        row("statistics lot -o lot.dat", 2, "the format is not clear");
        row("statistics lot -o lot.html", 2, "no statistics as HTML");
        row("statistics nowhere -o n.csv", 1, "nowhere");
        row("statistics lot -o exists.csv", 1, "--force");
        row("statistics -q lot -o exists.csv --force", 0, "");
        row("statistics -q lot -o lot.dat -f csv", 0, "");
    }
    void statisticsUsage()
    {
        const auto [code, says] = CurrentRow<int, QByteArray>();
        const QString arguments = QTest::currentDataTag();
        folder.Write("exists.csv", "old");
        const auto outcome = folder.Zyn(arguments);
        QCOMPARE(outcome.code, code);
        QVERIFY2(outcome.errors.contains(says) && (!says.isEmpty() || outcome.errors.isEmpty()),
                 outcome.errors);
        QCOMPARE(folder.Content("exists.csv") == "old", !arguments.contains("--force"));
        QVERIFY(!QFile::exists(folder.Path("n.csv")));
    }

    void statisticsNamesWhatIsOdd()
    {
        const QByteArray report = folder.Content("lot/panel-0001.zyr");
        folder.Write("odd/1.zyr", report);
        // The same panel in another lot: another program version, one limit moved, one component renamed.
        static const QRegularExpression version("(<Property Name=\"Version\">)[^<]*");
        static const QRegularExpression upper("(Name=\"R13\".*?<Property Name=\"Upper\">)[^<]*",
                                              QRegularExpression::DotMatchesEverythingOption);
        QString other = report;
        other.replace(version, "\\1changed")
            .replace(">L00001<", ">L00002<")
            .replace("Name=\"R12\"", "Name=\"R99\"")
            .replace(upper, "\\1 777");
        folder.Write("odd/2.zyr", other.toUtf8());
        const auto outcome = folder.Zyn("statistics -v odd -o odd.csv");
        QCOMPARE(outcome.code, 0);
        for (const char* text :
             {"version 'changed' in ", "211 Passive parts / Shunts / R99 is in 5 of 10 runs only",
              "the limits of 212 "})
            QVERIFY2(outcome.errors.contains(text), outcome.errors);
    }

    void statisticsGoesOnWithoutTheBroken()
    {
        folder.Write("broken/a.zyr", folder.Content("lot/panel-0001.zyr"));
        folder.Write("broken/b.zyr", folder.Content("lot/panel-0002.zyr").first(20000));
        const auto outcome = folder.Zyn("statistics broken -o broken.csv");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.errors.contains("broken/b.zyr:"), outcome.errors);
        QVERIFY(outcome.output.contains(" of 4)"));
        QVERIFY(folder.Content("broken.csv").startsWith("Ident;"));
    }

    void simulatedFilesAreGood()
    {
        const auto outcome = folder.Zyn("check lot/MCB-48.tpl lot/bins.ini");
        QCOMPARE(outcome.output + outcome.errors, QByteArray());
        QCOMPARE(outcome.code, 0);
        QCOMPARE(RelaxNg::Faults("test-plan-3.0.0.rng", folder.Path("lot/MCB-48.tpl")), QString());
    }

    void showsPlanAndBins()
    {
        folder.Write("p.tpl", "<TestPlan Version='3.0.0'><Validation Ident='7' Name='R1'>"
                              "<Property Name='Lower'>1</Property></Validation>"
                              "<Attributes Ident='8'><Category Name='c'><Attribute Name='a' Type='Integer'>3"
                              "</Attribute></Category></Attributes></TestPlan>");
        folder.Write("b.ini", "[BIN2]\n_NAME_=LOW\n_TYPE_=SOFT\n_RESULT_=FAIL\n");
        for (const QString option : {"", " --json"})
            QCOMPARE(Golden::Difference("tool",
                                        QString("show-plan-and-bins") + (option.isEmpty() ? ".txt" : ".json"),
                                        folder.Zyn("show p.tpl b.ini" + option).output),
                     QString());
    }

    void findings_data()
    {
        const Rows<int, QString, QByteArray, QByteArray> row;
        const QByteArray good("[BIN1]\n_NAME_=a\n_TYPE_=HARD\n_RESULT_=PASS\n");
        row("good bins", 0, "x.ini", good, "");
        row("second id", 1, "x.ini", good + "[BIN01]\n_NAME_=b\n",
            "x.ini:5: There are duplicate sections with bin id 1\n");
        row("no INI", 1, "x.ini", good + "oops\n",
            "x.ini:5: cannot be read as INI: neither '[section]', 'key=value' nor a comment\n");
        row("cut off", 1, "x.tpl", "<TestPlan Version='3.0.0'>\n<Properties Ident='1'>\n",
            "x.tpl:3: Premature end of document.\n");
        row("version", 1, "x.tpl", "<TestPlan Version='4.0.0'/>\n",
            "x.tpl:1:27: Only TestPlan file versions 2.0.0 and 3.0.0 are supported\n");
        row("passed over in silence", 0, "x.tpl",
            "<TestPlan Version='3.0.0'>\n<Properties Ident='1'><x><Property/></x></Properties>\n"
            "<Attributes Ident='1'><Attribute Name='a' Type='Real'>1,5</Attribute></Attributes>\n"
            "<Properties Ident='1'/>\n</TestPlan>",
            "x.tpl:2:25: note: element 'x' is unknown here and is skipped\n"
            "x.tpl:3:69: note: attribute 'a': '1,5' is no Real and counts as 0\n"
            "x.tpl:4:23: note: there is a 'Properties' for ident '1' before; the last one counts\n");
    }
    void findings()
    {
        const auto [code, name, content, output] = CurrentRow<int, QString, QByteArray, QByteArray>();
        folder.Write(name, content);
        const auto outcome = folder.Zyn("check " + name);
        QCOMPARE(outcome.output, output);
        QCOMPARE(outcome.code, code);
    }
};

QTEST_GUILESS_MAIN(LotToolTest)
#include "LotToolTest.moc"
