#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"

#include "report/StdfLotFile.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;
using namespace Qt::StringLiterals;
using LotModels::SimpleUnit;

namespace {

bool Append(const LotModels::UnitData& unit, const QString& fileName)
{
    CExportServiceReport service;
    service.SetFormat(u"STDF"_s);
    service.SetOutputFileName(fileName);
    const auto test = LotModels::MakeTest(unit);
    return service.Export(test.get()) && service.OutputComplete();
}

} // namespace

class StdfInterruptionTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder;
    QString lot;
    QByteArray twoParts;
    QByteArray threeParts;

private slots:
    void initTestCase()
    {
        lot = folder.filePath(u"report.stdf"_s);
        QVERIFY(Append(SimpleUnit(u"SN1"_s), lot));
        QVERIFY(Append(SimpleUnit(u"SN2"_s), lot));
        twoParts = LotFiles::Bytes(lot);
        QVERIFY(Append(SimpleUnit(u"SN3"_s), lot));
        threeParts = LotFiles::Bytes(lot);
    }

    /// Cuts a lot of three parts after every byte behind its second part, then adds a part.
    void CutAnywhereThenAppend()
    {
        const auto closing = QByteArray::fromHex("1600011e0101");
        const qsizetype lastPart = twoParts.indexOf(closing);
        const qsizetype counts = threeParts.indexOf(closing);
        QVERIFY(lastPart > 0 && counts > lastPart);
        for (qsizetype size = lastPart; size < threeParts.size(); ++size) {
            const QByteArray cut = threeParts.first(size);
            QVERIFY(LotFiles::Save(lot, cut));
            const auto damaged = LotFiles::Read(lot);
            const QStringList complete = damaged.PartIds();
            QVERIFY2(complete.size() >= 2, QByteArray::number(size));

            QVERIFY(Append(SimpleUnit(u"SN4"_s), lot));
            const auto contents = LotFiles::Read(lot);
            QVERIFY2(!contents.fault, QByteArray::number(size));
            QCOMPARE(contents.PartIds(), complete + QStringList(u"SN4"_s));

            // All complete records stay; only the closing PCR and MRR may be written over.
            const bool counted = size >= counts + 26;
            const qint64 kept = counted ? counts : damaged.fault ? damaged.fault->offset : size;
            QVERIFY2(LotFiles::Bytes(lot).startsWith(cut.first(kept)), QByteArray::number(size));
            QCOMPARE(contents.Of("PCR").back().Number("PART_CNT"), counted ? 4U : 1U);

            // And the lot goes on from there.
            QVERIFY(Append(SimpleUnit(u"SN5"_s), lot));
            QCOMPARE(LotFiles::Read(lot).PartIds(), complete + QStringList({u"SN4"_s, u"SN5"_s}));
        }
    }

    /// The file was longer when the machine died: what lies behind the new counts is cut off.
    void RestsBehindTheCountsAreCutOff_data()
    {
        QTest::addColumn<QByteArray>("rest");
        QTest::newRow("torn record") << QByteArray::fromHex("ff000f0a") + QByteArray(200, 'x');
        QTest::newRow("torn header") << QByteArray("abc");
        QTest::newRow("long torn record") << QByteArray::fromHex("ffff0f0a") + QByteArray(60000, '\0');
    }
    void RestsBehindTheCountsAreCutOff()
    {
        QFETCH(QByteArray, rest);
        QVERIFY(LotFiles::Save(lot, twoParts + rest));
        QVERIFY(Append(SimpleUnit(u"SN3"_s), lot));
        QCOMPARE(LotFiles::Bytes(lot), threeParts);

        const qsizetype counts = twoParts.indexOf(QByteArray::fromHex("1600011e0101"));
        QVERIFY(LotFiles::Save(lot, twoParts.first(counts) + rest));
        QVERIFY(Append(SimpleUnit(u"SN3"_s), lot));
        const auto contents = LotFiles::Read(lot);
        QVERIFY(!contents.fault);
        QVERIFY(contents.Names().endsWith(u"PTR PRR FAR MIR PIR PTR PTR PTR PRR PCR MRR"_s));
        QCOMPARE(contents.PartIds(), QStringList({u"SN1"_s, u"SN2"_s, u"SN3"_s}));
    }

    /// Headers only, 65,539 bytes apart: the holes cost neither disk nor time.
    void FileOfMoreThanFourGibibytes_data()
    {
        QTest::addColumn<bool>("knownEnd");
        QTest::newRow("ends as our files do") << true;
        QTest::newRow("has to be searched") << false;
    }
    void FileOfMoreThanFourGibibytes()
    {
        QFETCH(bool, knownEnd);
        const QString big = folder.filePath(u"big.stdf"_s);
        const qsizetype counts = twoParts.indexOf(QByteArray::fromHex("1600011e0101"));
        QFile file(big);
        QVERIFY(file.open(QIODevice::ReadWrite | QIODevice::Truncate | QIODevice::Unbuffered));
        QCOMPARE(file.write(twoParts.first(counts)), counts);
        qint64 end = counts;
        for (int record = 0; record < 65600; ++record, end += 65539) {
            QVERIFY(file.seek(end));
            QCOMPARE(file.write(QByteArray::fromHex("ffffb401")), 4);
        }
        QVERIFY(end > 0x1'0000'0000);
        QVERIFY(file.seek(end));
        const QByteArray closing = twoParts.sliced(counts);
        QCOMPARE(file.write(knownEnd ? closing : closing.first(28)), knownEnd ? 34 : 28);
        file.close();

        QVERIFY(Append(SimpleUnit(u"SN3"_s), big));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.seek(end));
        const auto tail = LotFiles::Read(&file);
        QCOMPARE(tail.Names(), u"PIR PTR PTR PTR PRR PCR MRR"_s);
        QCOMPARE(tail.Of("PCR")[0].Number("PART_CNT"), 3U);
        QVERIFY(!tail.fault);
        file.remove();
    }
};

QTEST_GUILESS_MAIN(StdfInterruptionTest)
#include "StdfInterruptionTest.moc"
