#include "ReportPieces.h"
#include "support/Golden.h"
#include "support/SampleModels.h"
#include "support/Test.h"

using namespace ZYN;
using namespace ZYN::ReportFiles;

namespace {

QByteArray Repeated(const char* text, int times)
{
    return QByteArray(text).repeated(times);
}

QByteArray Utf16(const QByteArray& text)
{
    const QString wide = QString::fromUtf8(text);
    return QByteArray(reinterpret_cast<const char*>(wide.utf16()), wide.size() * 2);
}

} // namespace

/// Under the address sanitizer these tests also find what is freed twice, used late or never freed.
class HostileReportTest : public QObject {
    Q_OBJECT
private slots:
    void Truncated()
    {
        // One report after every byte, a larger one after many.
        for (const auto& [name, step] : {std::pair("/excluded", 1), {"/panel", 97}}) {
            const QByteArray whole = Files::Content(Golden::Folder() + name + "/report.zyr").trimmed();
            QVERIFY(Read(whole).imported);
            for (qsizetype size = 0; size < whole.size(); size += step) {
                const Reading reading = Read(whole.first(size));
                QVERIFY(reading.imported);
                QVERIFY2(!reading.findings.isEmpty(), whole.first(size));
            }
        }
    }

    void ShuffledLines()
    {
        // Elements in any order, missing, twice: whatever comes out can be written again.
        const QByteArrayList lines = Write(*SampleModels::Panel()).split('\n');
        QVERIFY(lines.size() > 300);
        QRandomGenerator random(20240305);
        for (int round = 0; round < 300; ++round) {
            QByteArrayList shuffled = lines;
            for (int change = 0; change < 1 + round % 20; ++change) {
                const auto from = qsizetype(random.bounded(int(shuffled.size())));
                const auto to = qsizetype(random.bounded(int(shuffled.size())));
                const int kind = random.bounded(3);
                if (kind == 0)
                    shuffled.move(from, to);
                else if (kind == 1)
                    shuffled.insert(to, shuffled.at(from));
                else
                    shuffled.removeAt(from);
            }
            const Reading reading = Read(shuffled.join('\n'));
            QVERIFY(reading.imported);
            Write(*reading.test);
        }
    }

    void DeeplyNested()
    {
        const std::pair<const char*, const char*> places[] = {
            {"", "<a>"},
            {"", "<SubUnitTests>"},
            {"<UUTTest>", "<Property Name='Result'>"},
            {"<TestResults><TestResultSet><Testprogram><TestGroup>", "<TestStep>"}};
        for (const auto& [before, tag] : places) {
            const Reading reading = Read(Report(before + Repeated(tag, 1000000)));
            QVERIFY(reading.imported);
            QVERIFY2(reading.findings.size() <= 1001, tag);
        }
    }

    void Refused_data()
    {
        const Rows<QByteArray> add;
        const auto row = [&](const char* name, const QByteArray& declarations,
                             const QByteArray& description) {
            add(name, "<!DOCTYPE TestReport [" + declarations + "]>" +
                          Report("<UUTTest>" + Property("Description", description) + "</UUTTest>"));
        };
        const QByteArray kilobyte = "<!ENTITY e '" + QByteArray(1000, 'x') + "'>";
        row("flat references", kilobyte, Repeated("&e;", 100000));
        row("nested references",
            kilobyte +
                "<!ENTITY f '&e;&e;&e;&e;&e;&e;&e;&e;&e;&e;'><!ENTITY g '&f;&f;&f;&f;&f;&f;&f;&f;&f;&f;'>",
            Repeated("&g;", 1000));
        row("unused", "<!ENTITY e 'x'>", "text");
        row("empty", "<!ENTITY e ''>", "&e;");
        row("file", "<!ENTITY e SYSTEM 'file:///etc/hostname'>", "&e;");
        row("parameter", "<!ENTITY % p '<!-- c -->'>" + Repeated("%p;", 1000), "text");
        row("parameter that declares", "<!ENTITY % p '<!ENTITY e \"x\">'>%p;", "&e;");
        row("attributes", "<!ATTLIST UUTTest a CDATA 'x' b CDATA 'x'>", "text");

        QByteArray crowd;
        for (int i = 0; i < 65; ++i)
            crowd += " a" + QByteArray::number(i) + "='x'";
        const QByteArray crowded = Report("<UUTTest>" + Property("Description", "text") +
                                          "</UUTTest><!-- ' -->\n"
                                          "<a" +
                                          crowd + "/>");
        add("start tag with many attributes", crowded);
        add("the same in UTF-16", QByteArray("\xff\xfe").append(Utf16(crowded)));
        add("behind characters that hold a mark",
            QByteArray("\xff\xfe")
                .append(Utf16(Report("<UUTTest>" + Property("Description", "\xe2\x88\xa2") + "</UUTTest><a" +
                                     crowd + "/>"))));
        add("another encoding than seems", "<?xml version='1.0' encoding='UTF-16'?>" + Report(QByteArray()));
    }
    void Refused()
    {
        const auto [document] = CurrentRow<QByteArray>();
        const Reading reading = Read(document);
        QVERIFY(reading.imported);
        QCOMPARE(reading.findings.size(), 1);
        // Nothing of the content was looked at, so nothing was expanded.
        QCOMPARE(reading.test->GetResultDescription(), QString());
    }

    void LongNamesAreGood()
    {
        const QByteArray name = Repeated("a='b' ", 200000);
        const Reading reading =
            Read(Report("<UUTTest>" + Property("Description", name) + "</UUTTest>" +
                        "<UnitUnderTest><Property Name='Name' Extra=\"" + name + "\"/></UnitUnderTest>"));
        QCOMPARE(reading.Texts(), QString());
        QCOMPARE(reading.test->GetResultDescription().size(), name.size());
    }

    void FindingsAreLimited()
    {
        const Reading reading = Read(Report(Repeated("<unknown/>", 5000)));
        QCOMPARE(reading.findings.size(), 1001);
        QCOMPARE(reading.findings.last().text, "there is more, which is not listed");
    }

    void NothingIsKeptOfAnEarlierDocument()
    {
        // A step with no group of its own must not end up in the test of an earlier import.
        CImportServiceReport service;
        const Reading first = Read(StepReport(Measurement(8, QByteArray(), "1")), service);
        const Reading second =
            Read(ProgramReport("<TestGroup ID='2' Name='G' Type='2'><TestStep ID='9' Name='T' "
                               "Type='3'><Result Code='1'/></TestStep></TestGroup>"),
                 service);
        const auto group = first.test->GetResultSets().first()->GetTestProgram()->GetGroupForIndex(0);
        QCOMPARE(group->GetStepCount(), 1);
        QCOMPARE(second.test->GetResultSets().first()->GetResults().size(), 1);
    }
};

QTEST_GUILESS_MAIN(HostileReportTest)
#include "HostileReportTest.moc"
