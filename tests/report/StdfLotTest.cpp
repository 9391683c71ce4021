#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"

#include "report/CReportBuilderSTDF.h"

#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using LotModels::SimpleUnit;
using LotModels::UnitSpec;

namespace {

/// A service as a line has one: the format once, then unit after unit.
struct Line {
    CExportServiceReport service;

    Line() { service.SetFormat(QStringLiteral("STDF")); }

    bool Add(const UnitSpec& unit, const QString& fileName)
    {
        service.SetOutputFileName(fileName);
        const auto test = LotModels::MakeTest(unit);
        return service.Export(test.get()) && service.OutputComplete();
    }
};

/// One part by a service of its own.
bool Append(const UnitSpec& unit, const QString& fileName)
{
    return Line().Add(unit, fileName);
}

UnitSpec OtherLot(const QString& ident)
{
    UnitSpec unit = SimpleUnit(ident);
    unit.lot = QStringLiteral("LOT-2");
    return unit;
}

UnitSpec WithoutResults(const QString& ident)
{
    UnitSpec unit = SimpleUnit(ident);
    for (auto& measurement : unit.groups[0].steps[0].measurements)
        measurement.hasResult = false;
    return unit;
}

UnitSpec WithoutProgram(const QString& ident)
{
    UnitSpec unit = SimpleUnit(ident);
    unit.hasResultSet = false;
    return unit;
}

} // namespace

class StdfLotTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;
    int used = 0;

    /// A lot file in a folder of its own.
    QString NewLot(const QString& name = QStringLiteral("report.stdf"))
    {
        const QString path = folder.filePath(QString::number(++used));
        QDir().mkpath(path);
        return path + u'/' + name;
    }

private slots:
    void PartsOfOneLotShareOneHeader()
    {
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN1"), 1), lot));
        UnitSpec bad = SimpleUnit(QStringLiteral("SN2"), 1);
        bad.result = ZYN_RESULT_FAILED;
        QVERIFY(Append(bad, lot));

        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.Names(), QStringLiteral("FAR MIR PIR PTR PRR PIR PTR PRR PCR MRR"));
        QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 2U);
        QCOMPARE(contents.Of("PCR")[0].Number("GOOD_CNT"), 1U);
        QVERIFY(contents.findings.isEmpty());
    }

    void FileIsCompleteWhileTheServiceLives()
    {
        const QString lot = NewLot();
        Line first;
        QVERIFY(first.Add(SimpleUnit(QStringLiteral("SN1")), lot));
        QCOMPARE(LotFiles::Read(lot).Faults(), QString());

        // Two services take turns on one file.
        Line second;
        QVERIFY(second.Add(SimpleUnit(QStringLiteral("SN2")), lot));
        QVERIFY(first.Add(SimpleUnit(QStringLiteral("SN3")), lot));
        QVERIFY(first.Add(SimpleUnit(QStringLiteral("SN4")), lot));
        QVERIFY(second.Add(SimpleUnit(QStringLiteral("SN5")), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.PartIds().join(u' '), QStringLiteral("SN1 SN2 SN3 SN4 SN5"));
        QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 5U);
        QVERIFY(contents.findings.isEmpty());
    }

    void OneServiceGoesOnInItsFileWhateverTheLot()
    {
        const QString lot = NewLot();
        Line line;
        QVERIFY(line.Add(SimpleUnit(QStringLiteral("SN1")), lot));
        QVERIFY(line.Add(OtherLot(QStringLiteral("SN2")), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.Of("MIR").size(), 1);
        QCOMPARE(contents.PartIds().join(u' '), QStringLiteral("SN1 SN2"));
        QVERIFY(contents.findings.isEmpty());
    }

    void OneServiceWritesTwoFiles()
    {
        const QString one = NewLot();
        const QString two = NewLot();
        Line line;
        for (const auto& [ident, lot] : {std::pair("SN1", one), {"SN2", two}, {"SN3", one}, {"SN4", two}})
            QVERIFY(line.Add(SimpleUnit(QLatin1StringView(ident)), lot));
        for (const auto& [idents, lot] : {std::pair("SN1 SN3", one), {"SN2 SN4", two}}) {
            const auto contents = LotFiles::Read(lot);
            QCOMPARE(contents.PartIds().join(u' '), QLatin1StringView(idents));
            QVERIFY2(contents.findings.isEmpty(), qPrintable(contents.Faults()));
        }
    }

    void LotFileThatWasMovedAwayBeginsAnew()
    {
        const QString lot = NewLot();
        Line line;
        QVERIFY(line.Add(SimpleUnit(QStringLiteral("SN1")), lot));
        QVERIFY(QFile::rename(lot, lot + QStringLiteral(".done")));
        QVERIFY(line.Add(OtherLot(QStringLiteral("SN2")), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.Of("MIR")[0].Text("LOT_ID"), QStringLiteral("LOT-2"));
        QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 1U);
        QVERIFY(contents.findings.isEmpty());
    }

    void OtherLotProductOrMachineGoesToAFailureFile_data()
    {
        QTest::addColumn<QString>("field");
        for (const char* field : {"lot", "product", "machine"})
            QTest::addRow("%s", field) << QString::fromLatin1(field);
    }
    void OtherLotProductOrMachineGoesToAFailureFile()
    {
        QFETCH(QString, field);
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN0")), lot));
        const QByteArray before = LotFiles::Bytes(lot);

        UnitSpec other = SimpleUnit(QStringLiteral("SN1"));
        (field == u"lot" ? other.lot : field == u"product" ? other.product : other.machine) += u'x';
        const QString failureFile = QFileInfo(lot).path() + QStringLiteral("/report_SN1_failure.stdf");
        // What lies there already is replaced, not added to.
        QVERIFY(LotFiles::Save(failureFile, QByteArray(100000, 'x')));
        QVERIFY(Append(other, lot));

        QCOMPARE(LotFiles::Bytes(lot), before);
        const auto contents = LotFiles::Read(failureFile);
        QCOMPARE(contents.PartIds().join(u' '), QStringLiteral("SN1"));
        QVERIFY(contents.findings.isEmpty());
    }

    void ServiceStaysAwayFromTheLotThatItWasRedirectedFrom()
    {
        const QString lot = NewLot();
        const QString path = QFileInfo(lot).path();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN0")), lot));
        const QByteArray before = LotFiles::Bytes(lot);

        Line line;
        QVERIFY(line.Add(OtherLot(QStringLiteral("SN1")), lot));
        QVERIFY(line.Add(OtherLot(QStringLiteral("SN2")), lot));
        QVERIFY(line.Add(SimpleUnit(QStringLiteral("SN3")), lot));
        QVERIFY(line.Add(OtherLot(QStringLiteral("SN1")), lot)); // a retest
        QCOMPARE(LotFiles::Bytes(lot), before);
        for (const auto& [ident, idents] : {std::pair("SN1", "SN1 SN1"), {"SN2", "SN2"}, {"SN3", "SN3"}}) {
            const auto contents = LotFiles::Read(
                path + QStringLiteral("/report_%1_failure.stdf").arg(QLatin1StringView(ident)));
            QCOMPARE(contents.PartIds().join(u' '), QLatin1StringView(idents));
            QVERIFY2(contents.findings.isEmpty(), qPrintable(contents.Faults()));
        }

        // The same service still adds to another file instead of truncating it.
        const QString next = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN4")), next));
        QVERIFY(line.Add(SimpleUnit(QStringLiteral("SN5")), next));
        QCOMPARE(LotFiles::Read(next).PartIds().join(u' '), QStringLiteral("SN4 SN5"));
    }

    void IdentCannotLeaveTheFolder_data()
    {
        QTest::addColumn<QString>("ident");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("slashes") << QStringLiteral("../../etc/x")
                                 << QStringLiteral("report_.._.._etc_x_failure.stdf");
        QTest::newRow("backslash") << QStringLiteral("..\\x") << QStringLiteral("report_.._x_failure.stdf");
        QTest::newRow("drive") << QStringLiteral("C:x") << QStringLiteral("report_C_x_failure.stdf");
        QTest::newRow("NUL and line feed")
            << QStringLiteral("a\n") + QChar(0) + u'b' << QStringLiteral("report_a__b_failure.stdf");
        QTest::newRow("empty") << QString() << QStringLiteral("report__failure.stdf");
        QTest::newRow("placeholders")
            << QStringLiteral("%1%2%3") << QStringLiteral("report_%1%2%3_failure.stdf");
        QTest::newRow("dots") << QStringLiteral("..") << QStringLiteral("report_.._failure.stdf");
    }
    void IdentCannotLeaveTheFolder()
    {
        QFETCH(QString, ident);
        QFETCH(QString, fileName);
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN0")), lot));
        QVERIFY(Append(OtherLot(ident), lot));
        QCOMPARE(QFileInfo(lot).dir().entryList(QDir::Files | QDir::Hidden),
                 QStringList({QStringLiteral("report.stdf"), fileName}));
    }

    void LongIdentsKeepTheirOwnFiles()
    {
        const QString lot = NewLot(QStringLiteral("a.b.stdf"));
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN0")), lot));
        const QString start = QStringLiteral("Ä\U0001F600").repeated(200);
        QVERIFY(Append(OtherLot(start + u'1'), lot));
        QVERIFY(Append(OtherLot(start + u'2'), lot));
        const QStringList files = QFileInfo(lot).dir().entryList({QStringLiteral("a_*_failure.b.stdf")});
        QCOMPARE(files.size(), 2);
        for (const QString& file : files)
            QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + u'/' + file).PartIds().size(), 1);
    }

    void FirstUnitsWithoutResultsDoNotSpoilTheLot_data()
    {
        QTest::addColumn<bool>("program");
        QTest::newRow("no results") << true;
        QTest::newRow("no program") << false;
    }
    void FirstUnitsWithoutResultsDoNotSpoilTheLot()
    {
        QFETCH(bool, program);
        const QString lot = NewLot();
        const auto empty = program ? WithoutResults : WithoutProgram;
        QVERIFY(Append(empty(QStringLiteral("SN1")), lot));
        if (program) {
            const auto contents = LotFiles::Read(lot);
            QCOMPARE(contents.Names(), QStringLiteral("FAR MIR PCR MRR"));
            QCOMPARE(contents.Of("PCR")[0].Number("PART_CNT"), 0U);
            QVERIFY(contents.findings.isEmpty());
        }
        QVERIFY(Append(empty(QStringLiteral("SN2")), lot));
        for (const char* ident : {"SN3", "SN4", "SN5"})
            QVERIFY(Append(SimpleUnit(QLatin1StringView(ident)), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.PartIds().join(u' '), QStringLiteral("SN3 SN4 SN5"));
        QCOMPARE(contents.Of("PCR").back().Number("PART_CNT"), 3U);
        QCOMPARE(contents.Faults(), QString());
    }

    void UnitWithoutResultsLeavesTheCountsAsTheyAre()
    {
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN1")), lot));
        const QByteArray before = LotFiles::Bytes(lot);
        QVERIFY(Append(WithoutProgram(QStringLiteral("SN2")), lot));
        QCOMPARE(LotFiles::Bytes(lot), before);
        QVERIFY(Append(WithoutResults(QStringLiteral("SN3")), lot));
        QCOMPARE(LotFiles::Bytes(lot), before);
    }

    void WalkThatFailsStillLeavesItsPartCounted()
    {
        const QString lot = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN1")), lot));
        {
            CExportServiceReport service;
            service.SetFormat(QStringLiteral("STDF"));
            service.SetOutputFileName(lot);
            const auto test = LotModels::MakeTest(SimpleUnit(QStringLiteral("SN2")));
            test->AssignResultSet(new TestResultSet(nullptr, nullptr)); // cannot be reported
            QVERIFY(!service.Export(test.get()));
            QVERIFY(!service.OutputComplete());
        }
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN3")), lot));
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.PartIds().join(u' '), QStringLiteral("SN1 SN2 SN3"));
        QVERIFY(contents.findings.isEmpty());
    }

    void ResultSetAloneHasNoPart()
    {
        const QString lot = NewLot();
        const auto test = LotModels::MakeTest(SimpleUnit(QStringLiteral("SN1")));
        CExportServiceReport service;
        service.SetFormat(QStringLiteral("STDF"));
        service.SetOutputFileName(lot);
        QVERIFY(service.Export(test->GetResultSets().front()));
        QCOMPARE(LotFiles::Read(lot).Names(), QStringLiteral("FAR PCR"));

        // Nor does it touch a lot.
        const QString full = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN1")), full));
        const QByteArray before = LotFiles::Bytes(full);
        service.SetOutputFileName(full);
        QVERIFY(service.Export(test->GetResultSets().front()));
        QCOMPARE(LotFiles::Bytes(full), before);
    }

    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("appended");
        QTest::newRow("ASCII") << QStringLiteral("LOT-7") << true;
        QTest::newRow("empty") << QStringLiteral("") << true;
        QTest::newRow("255 characters") << QString(255, u'x') << true;
        QTest::newRow("256 characters") << QString(256, u'x') << false;
        QTest::newRow("Latin-1") << QStringLiteral("Größe") << false;
        QTest::newRow("beyond Latin-1") << QStringLiteral("Ω") << false;
    }
    void NamesThatOnlyMatchBeforeEncodingAreAnotherLot()
    {
        QFETCH(QString, name);
        QFETCH(bool, appended);
        const QString lot = NewLot();
        for (const char* ident : {"SN1", "SN2"}) {
            UnitSpec unit = SimpleUnit(QLatin1StringView(ident));
            unit.lot = name;
            QVERIFY(Append(unit, lot));
        }
        const auto contents = LotFiles::Read(lot);
        QCOMPARE(contents.PartIds().size(), appended ? 2 : 1);
        QVERIFY(contents.findings.isEmpty());
    }

    void ForeignFilesAreLeftAlone_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("text") << QByteArray("This is no lot file, but notes of somebody.\n");
        QTest::newRow("one byte") << QByteArray("x");
        QTest::newRow("big-endian") << QByteArray::fromHex("0002000a0104"
                                                           "0002050a0101");
        QTest::newRow("no MIR") << QByteArray::fromHex("0200000a0204"
                                                       "0200050a0101");
    }
    void ForeignFilesAreLeftAlone()
    {
        QFETCH(QByteArray, bytes);
        const QString lot = NewLot();
        QVERIFY(LotFiles::Save(lot, bytes));
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN1")), lot));
        QVERIFY(Append(WithoutProgram(QStringLiteral("SN2")), lot));
        QCOMPARE(LotFiles::Bytes(lot), bytes);
        QCOMPARE(LotFiles::Read(QFileInfo(lot).path() + QStringLiteral("/report_SN1_failure.stdf")).Faults(),
                 QString());
    }

    void StreamBehindAClosingRecordIsKept()
    {
        // Two lots that somebody joined: going on at the counts of the first would destroy the second.
        const QString one = NewLot();
        const QString two = NewLot();
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN1")), one));
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN2")), two));
        const QByteArray joined = LotFiles::Bytes(one) + LotFiles::Bytes(two) +
                                  QByteArray::fromHex("0000322100"); // an unknown record, a torn one
        QVERIFY(LotFiles::Save(one, joined));
        QVERIFY(Append(SimpleUnit(QStringLiteral("SN3")), one));
        const auto contents = LotFiles::Read(one);
        QCOMPARE(contents.PartIds().join(u' '), QStringLiteral("SN1 SN2 SN3"));
        QVERIFY(LotFiles::Bytes(one).startsWith(joined.chopped(1)));
        QVERIFY(!contents.fault);
    }

    void DeviceFromOutside()
    {
        QBuffer buffer;
        QVERIFY(buffer.open(QIODevice::ReadWrite));
        CReportBuilderSTDF builder(true);
        builder.SetDevice(&buffer);
        QVERIFY(builder.Open());
        QVERIFY(!builder.BeginTestProgram(nullptr, nullptr));
        QVERIFY(!builder.EndTestProgram(nullptr));
        QVERIFY(!builder.EndTestStep(nullptr));
        QVERIFY(!builder.EndTestMeasurement(nullptr));
        QVERIFY(!builder.BeginUUTTest(nullptr));
        QVERIFY(builder.Close());
        // Counts of nothing, as on every empty file.
        buffer.seek(0);
        QCOMPARE(LotFiles::Read(&buffer).Names(), QStringLiteral("PCR"));
    }

    void FullDiskIsNoticed()
    {
        if (!QFile::exists(QStringLiteral("/dev/full")))
            QSKIP("no device that is always full");
        QVERIFY(!Append(SimpleUnit(QStringLiteral("SN1"), 1000), QStringLiteral("/dev/full")));
    }
};

QTEST_GUILESS_MAIN(StdfLotTest)
#include "StdfLotTest.moc"
