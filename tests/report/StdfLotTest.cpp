#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"
#include "support/Model.h"
#include "support/Test.h"

#include "export/FormatRegistry.h"
#include "export/IExportBuilder.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <map>

using namespace ZYN;
using LotModels::Append;
using LotModels::SimpleUnit;
using LotModels::UnitData;

namespace {

/// Idents of the parts in a file, and what the reader finds.
QString Parts(const QString& lot)
{
    const auto contents = LotFiles::Read(lot);
    QString text = contents.PartIds().join(' ');
    for (const Stdf::Finding& finding : contents.findings)
        text += '\n' + finding.text;
    return text;
}

/// A unit by what a test says of it: its ident, and behind an @ what is other than usual.
UnitData Unit(const QString& text)
{
    const QString kind = text.section('@', 1);
    UnitData unit = SimpleUnit(text.section('@', 0, 0), kind == "untested" ? 0 : 3);
    unit.hasResultSet = kind != "no-program";
    if (kind == "other-lot")
        unit.lot = "LOT-2";
    return unit;
}

} // namespace

class StdfLotTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;
    int used = 0;

    /// A lot file in a folder of its own.
    QString NewLot(const QString& name = "report.stdf")
    {
        const QString path = folder.filePath(QString::number(++used));
        QDir().mkpath(path);
        return path + '/' + name;
    }

private slots:
    /// Services that write units to files, and what the files hold then. A step is "SERVICE UNIT FILE"; the
    /// same letter is the same service.
    void Lines_data()
    {
        const Rows<QString, QString> row;
        row("services take turns on one file", "A SN1 lot, B SN2 lot, A SN3 lot", "lot: SN1 SN2 SN3");
        row("one service goes on in its file whatever the lot", "A SN1 lot, A SN2@other-lot lot",
            "lot: SN1 SN2");
        row("one service writes two files", "A SN1 one, A SN2 two, A SN3 one, A SN4 two",
            "one: SN1 SN3, two: SN2 SN4");
        row("a lot that was moved away begins anew", "A SN1 lot, mv lot done, A SN2@other-lot lot",
            "done: SN1, lot: SN2");
        row("a service stays away from the lot that it was redirected from",
            "A SN0 lot, B SN1@other-lot lot, B SN2@other-lot lot, B SN3 lot, B SN1@other-lot lot, C SN4 "
            "next, "
            "B SN5 next",
            "lot: SN0, lot_SN1_failure: SN1 SN1, lot_SN2_failure: SN2, lot_SN3_failure: SN3, next: SN4 SN5");
        row("units without results",
            "A SN1@untested lot, B SN2@untested lot, C SN3 lot, D SN4@untested lot, E SN5 lot",
            "lot: SN3 SN5\na further stream begins here; the one before has no MRR");
        row("units without a program", "A SN1@no-program lot, B SN2 lot, C SN3@no-program lot, D SN4 lot",
            "lot: SN2 SN4");
    }
    void Lines()
    {
        const auto [steps, files] = CurrentRow<QString, QString>();
        const QDir lots = QFileInfo(NewLot()).dir();
        std::map<QString, CExportServiceReport> services;
        for (const QString& step : steps.split(", ")) {
            const QStringList words = step.split(' ');
            const QString file = lots.filePath(words[2] + ".stdf");
            if (words[0] == "mv") {
                QVERIFY(QFile::rename(lots.filePath(words[1] + ".stdf"), file));
                continue;
            }
            const QString parts = Parts(file);
            const QByteArray before = Files::Content(file);
            if (!services.contains(words[0]))
                services[words[0]].SetFormat("STDF");
            QVERIFY(Append(Unit(words[1]), file, services[words[0]]));
            // A lot that nothing is added to stays as it is.
            if (!parts.isEmpty() && Parts(file) == parts)
                QCOMPARE(Files::Content(file), before);
        }
        QStringList found;
        for (const QFileInfo& file : lots.entryInfoList(QDir::Files))
            found += file.baseName() + ": " + Parts(file.filePath());
        QCOMPARE(found.join(", "), files);
    }

    void CountsAreKept()
    {
        const QString lot = NewLot();
        UnitData bad = SimpleUnit("SN2", 1);
        bad.result = ZYN_RESULT_FAILED;
        for (const UnitData& unit : {SimpleUnit("SN1", 1), bad, SimpleUnit("SN3", 1)})
            QVERIFY(Append(unit, lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.Names(), "FAR MIR PIR PTR PRR PIR PTR PRR PIR PTR PRR PCR MRR");
        QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 3U);
        QCOMPARE(contents.Of("PCR")[0].Number("GOOD_CNT"), 2U);

        // Another program left the optional counts out.
        const QString unknown = NewLot();
        QVERIFY(Append(SimpleUnit("SN1", 1), unknown));
        constexpr qsizetype closing = 34;
        Files::Write(unknown,
                     Files::Content(unknown).chopped(closing) + QByteArray::fromHex("0600011e010101000000"
                                                                                    "0400011400000000"));
        QVERIFY(Append(SimpleUnit("SN2", 1), unknown));
        const auto pcr = LotFiles::Read(unknown).Of("PCR")[0];
        QCOMPARE(pcr.Number("PART_CNT"), 2U);
        QCOMPARE(pcr.Number("GOOD_CNT"), 4294967295U);

        const QString empty = NewLot();
        QVERIFY(Append(Unit("SN0@untested"), empty));
        QCOMPARE(LotFiles::Read(empty).Names(), "FAR MIR PCR MRR");
    }

    void OtherLotProductOrMachineGoesToAFailureFile()
    {
        for (QString UnitData::*const field : {&UnitData::lot, &UnitData::product, &UnitData::machine}) {
            const QString lot = NewLot();
            QVERIFY(Append(SimpleUnit("SN0"), lot));
            const QByteArray before = Files::Content(lot);
            UnitData other = SimpleUnit("SN1");
            other.*field += 'x';
            const QString failureFile = QFileInfo(lot).path() + "/report_SN1_failure.stdf";
            // What lies there already is replaced, not added to.
            Files::Write(failureFile, QByteArray(100000, 'x'));
            QVERIFY(Append(other, lot));

            QCOMPARE(Files::Content(lot), before);
            QCOMPARE(Parts(failureFile), "SN1");
        }
    }

    void IdentCannotLeaveTheFolder_data()
    {
        const Rows<QString, QString> row;
        row("slashes", "../../etc/x", "report_.._.._etc_x_failure.stdf");
        row("backslash, drive", "C:..\\x", "report_C_.._x_failure.stdf");
        row("NUL and line feed", QString("a\n") + QChar(0) + u'b', "report_a__b_failure.stdf");
        row("empty", QString(), "report__failure.stdf");
        row("placeholders", "%1%2%3", "report_%1%2%3_failure.stdf");
        row("dots", "..", "report_.._failure.stdf");
    }
    void IdentCannotLeaveTheFolder()
    {
        const auto [ident, fileName] = CurrentRow<QString, QString>();
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit("SN0"), lot));
        QVERIFY(Append(Unit(ident + "@other-lot"), lot));
        QCOMPARE(QFileInfo(lot).dir().entryList(QDir::Files | QDir::Hidden),
                 QStringList({"report.stdf", fileName}));
    }

    void LongIdentsKeepTheirOwnFiles()
    {
        const QString lot = NewLot("a.b.stdf");
        QVERIFY(Append(SimpleUnit("SN0"), lot));
        const QString start = QString("Ä\U0001F600").repeated(200);
        QVERIFY(Append(Unit(start + "1@other-lot"), lot));
        QVERIFY(Append(Unit(start + "2@other-lot"), lot));
        const QStringList files = QFileInfo(lot).dir().entryList({"a_*_failure.b.stdf"});
        QCOMPARE(files.size(), 2);
        for (const QString& file : files)
            QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + u'/' + file).PartIds().size(), 1);
    }

    void WalkThatFailsStillLeavesItsPartCounted()
    {
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit("SN1"), lot));
        {
            const auto test = LotModels::MakeTest(SimpleUnit("SN2"));
            test->AssignResultSet(new TestResultSet(nullptr, nullptr)); // cannot be reported
            CExportServiceReport service;
            service.SetFormat("STDF");
            service.SetOutputFileName(lot);
            QVERIFY(!service.Export(test.get()) && !service.OutputComplete());
        }
        QVERIFY(Append(SimpleUnit("SN3"), lot));
        QCOMPARE(Parts(lot), "SN1 SN2 SN3");
    }

    /// Results are those of the unit's first run, whatever comes with the measurement.
    void ResultsAreThoseOfTheUnit()
    {
        const auto test = LotModels::MakeTest(SimpleUnit("SN1", 1));
        const auto other = LotModels::MakeTest(SimpleUnit("SN2", 1));
        const auto runOf = [](const auto& unit) { return unit->GetResultSets().front(); };
        const auto program = runOf(test)->GetTestProgram();
        const auto group = program->GetGroupForIndex(0);
        const auto step = group->GetStepForIndex(0);
        TestResult foreign(nullptr);
        foreign.SetValue(99.0);
        for (TestResult* const handedIn : {static_cast<TestResult*>(nullptr), &foreign}) {
            QBuffer buffer;
            QVERIFY(buffer.open(QIODevice::ReadWrite));
            const std::unique_ptr<IExportBuilder> builder(FormatRegistry::CreateReportBuilder("STDF"));
            builder->SetDevice(&buffer);
            builder->Open();
            builder->BeginUUTTest(other.get());
            builder->BeginTestResultSet(runOf(other)); // which nothing ends
            builder->BeginUUTTest(test.get());
            if (!handedIn)
                builder->BeginTestResultSet(runOf(test));
            builder->BeginTestProgram(program.get(), nullptr);
            builder->BeginTestGroup(group.get(), nullptr);
            builder->BeginTestStep(step.get(), nullptr);
            builder->BeginTestMeasurement(step->GetMeasurementForIndex(0).get(), handedIn);
            builder->EndTestProgram(program.get());
            builder->Close();
            builder->SetDevice(nullptr);

            const QString lot = NewLot();
            QVERIFY(Append(SimpleUnit("SN1", 1), lot));
            buffer.close();
            QVERIFY(buffer.open(QIODevice::ReadOnly));
            const auto tests = LotFiles::Read(&buffer).Of("PTR");
            QCOMPARE(tests.size(), 1);
            QCOMPARE(tests[0].values, LotFiles::Read(lot).Of("PTR")[0].values);
        }
    }

    void ResultSetAloneHasNoPart()
    {
        const QString lot = NewLot();
        const QString full = NewLot();
        QVERIFY(Append(SimpleUnit("SN1"), full));
        const QByteArray before = Files::Content(full);
        const auto test = LotModels::MakeTest(SimpleUnit("SN1"));
        CExportServiceReport service;
        service.SetFormat("STDF");
        for (const QString& fileName : {lot, full}) {
            service.SetOutputFileName(fileName);
            QVERIFY(service.Export(test->GetResultSets().front()));
        }
        QCOMPARE(LotFiles::Read(lot).Names(), "FAR PCR");
        QCOMPARE(Files::Content(full), before); // nor does it touch a lot
    }

    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot_data()
    {
        const Rows<QString, bool> row;
        row("empty", "", true);
        row("255 characters", QString(255, u'x'), true);
        row("256 characters", QString(256, u'x'), false);
        row("Latin-1", "Größe", false);
    }
    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot()
    {
        const auto [name, appended] = CurrentRow<QString, bool>();
        const QString lot = NewLot();
        for (const char* ident : {"SN1", "SN2"}) {
            UnitData unit = SimpleUnit(QLatin1StringView(ident));
            unit.lot = name;
            QVERIFY(Append(unit, lot));
        }
        QCOMPARE(LotFiles::Read(lot).PartIds().join(u' '), appended ? "SN1 SN2" : "SN1");
    }

    void ForeignFilesAreLeftAlone_data()
    {
        const Rows<QByteArray> row;
        row("text", "This is no lot file, but notes of somebody.\n");
        row("one byte", "x");
        row("big-endian", QByteArray::fromHex("0002000a0104"
                                              "0002050a0101"));
        row("no MIR", QByteArray::fromHex("0200000a0204"
                                          "0200050a0101"));
    }
    void ForeignFilesAreLeftAlone()
    {
        const auto [bytes] = CurrentRow<QByteArray>();
        const QString lot = NewLot();
        Files::Write(lot, bytes);
        QVERIFY(Append(SimpleUnit("SN1"), lot));
        QVERIFY(Append(Unit("SN2@no-program"), lot));
        QCOMPARE(Files::Content(lot), bytes);
        QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + "/report_SN1_failure.stdf").Faults(), QString());
    }

    void StreamBehindAClosingRecordIsKept()
    {
        // Two lots that somebody joined: going on at the counts of the first would destroy the second.
        const QString one = NewLot();
        const QString two = NewLot();
        QVERIFY(Append(SimpleUnit("SN1"), one));
        QVERIFY(Append(SimpleUnit("SN2"), two));
        const QByteArray joined = Files::Content(one) + Files::Content(two) +
                                  QByteArray::fromHex("0000322100"); // an unknown record, a torn one
        Files::Write(one, joined);
        QVERIFY(Append(SimpleUnit("SN3"), one));
        const auto contents = LotFiles::Read(one);
        QCOMPARE(contents.PartIds().join(u' '), "SN1 SN2 SN3");
        QVERIFY(Files::Content(one).startsWith(joined.chopped(1)));
        QVERIFY(!contents.fault);
    }
};

QTEST_GUILESS_MAIN(StdfLotTest)
#include "StdfLotTest.moc"
