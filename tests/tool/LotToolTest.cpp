/// The commands for lots, test plans and binning definitions, as a user runs them.

#include "ToolFolder.h"
#include "support/Golden.h"
#include "support/RelaxNg.h"
#include "support/Test.h"

using namespace ZYN;

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

        const QByteArrayList lines = folder.Content("lot.csv").trimmed().split('\n');
        QVERIFY(lines.first().startsWith("Ident;"));
        for (const QByteArray& line : lines)
            QCOMPARE(line.count(';'), lines.first().count(';'));
    }

    void statisticsUsage_data()
    {
        const Rows<int, QByteArray> row;
        row("statistics lot", 2, "--output is required");
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
        // The same panel again: another program version, one limit moved, one component renamed.
        static const QRegularExpression version("(<Property Name=\"Version\">)[^<]*");
        static const QRegularExpression upper("(Name=\"R13\".*?<Property Name=\"Upper\">)[^<]*",
                                              QRegularExpression::DotMatchesEverythingOption);
        QString other = report;
        other.replace(version, "\\1changed")
            .replace("Name=\"R12\"", "Name=\"R99\"")
            .replace(upper, "\\1 777");
        folder.Write("odd/2.zyr", other.toUtf8());
        const auto outcome = folder.Zyn("statistics -v odd -o odd.csv");
        QCOMPARE(outcome.code, 0);
        for (const char* text :
             {"version 'changed' in ", "211 R99 is in 5 of 10 runs only", "the limits of 212 R13 changed"})
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
