#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"
#include "support/Test.h"

#include "report/stdf/StdfLotFile.h"

using namespace ZYN;
using LotModels::Append;
using LotModels::SimpleUnit;

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
        lot = folder.filePath("report.stdf");
        QVERIFY(Append(SimpleUnit("SN1"), lot));
        QVERIFY(Append(SimpleUnit("SN2"), lot));
        twoParts = Files::Content(lot);
        QVERIFY(Append(SimpleUnit("SN3"), lot));
        threeParts = Files::Content(lot);
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
            Files::Write(lot, cut);
            const auto damaged = LotFiles::Read(lot);
            const QStringList complete = damaged.PartIds();
            QVERIFY2(complete.size() >= 2, QByteArray::number(size));

            QVERIFY(Append(SimpleUnit("SN4"), lot));
            const auto contents = LotFiles::Read(lot);
            QVERIFY2(!contents.fault, QByteArray::number(size));
            QCOMPARE(contents.PartIds(), complete + QStringList("SN4"));

            // All complete records stay; only the closing PCR and MRR may be written over.
            const bool counted = size >= counts + 26;
            const qint64 kept = counted ? counts : damaged.fault ? damaged.fault->offset : size;
            QVERIFY2(Files::Content(lot).startsWith(cut.first(kept)), QByteArray::number(size));
            QCOMPARE(contents.Of("PCR").back().Number("PART_CNT"), counted ? 4U : 1U);

            // And the lot goes on from there.
            QVERIFY(Append(SimpleUnit("SN5"), lot));
            QCOMPARE(LotFiles::Read(lot).PartIds(), complete + QStringList({"SN4", "SN5"}));
        }
    }

    /// The file was longer when the machine died: what lies behind the new counts is cut off.
    void RestsBehindTheCountsAreCutOff_data()
    {
        const Rows<QByteArray> row;
        row("torn record", QByteArray::fromHex("ff000f0a") + QByteArray(200, 'x'));
        row("torn header", "abc");
        row("long torn record", QByteArray::fromHex("ffff0f0a") + QByteArray(60000, '\0'));
        row("zero bytes of a power loss", QByteArray(200'001, '\0'));
    }
    void RestsBehindTheCountsAreCutOff()
    {
        const auto [rest] = CurrentRow<QByteArray>();
        Files::Write(lot, twoParts + rest);
        QVERIFY(Append(SimpleUnit("SN3"), lot));
        QCOMPARE(Files::Content(lot), threeParts);

        const qsizetype counts = twoParts.indexOf(QByteArray::fromHex("1600011e0101"));
        Files::Write(lot, twoParts.first(counts) + rest);
        QVERIFY(Append(SimpleUnit("SN3"), lot));
        const auto contents = LotFiles::Read(lot);
        QVERIFY(!contents.fault);
        QVERIFY(contents.Names().endsWith("PTR PRR FAR MIR PIR PTR PTR PTR PRR PCR MRR"));
        QCOMPARE(contents.PartIds(), QStringList({"SN1", "SN2", "SN3"}));
    }

    /// Headers only, 65,539 bytes apart: the holes cost neither disk nor time.
    void FileOfMoreThanFourGibibytes_data()
    {
        const Rows<bool> row;
        row("ends as our files do", true);
        row("has to be searched", false);
    }
    void FileOfMoreThanFourGibibytes()
    {
        const auto [knownEnd] = CurrentRow<bool>();
        const QString big = folder.filePath("big.stdf");
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

        QVERIFY(Append(SimpleUnit("SN3"), big));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.seek(end));
        const auto tail = LotFiles::Read(&file);
        QCOMPARE(tail.Names(), "PIR PTR PTR PTR PRR PCR MRR");
        QCOMPARE(tail.Of("PCR")[0].Number("PART_CNT"), 3U);
        QVERIFY(!tail.fault);
        file.remove();
    }
};

QTEST_GUILESS_MAIN(StdfInterruptionTest)
#include "StdfInterruptionTest.moc"
