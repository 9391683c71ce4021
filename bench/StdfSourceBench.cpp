// Lot files of another tester against their plain decode, which makes the fields of each record and forgets
// them: checking, printing as JSON, into runs, and into objects of the model.

#include "Comparison.h"

#include "runs/StdfRuns.h"
#include "runs/model/RunModel.h"
#include "stdf/Checker.h"
#include "stdf/JsonPrinter.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>

#include <cmath>

using namespace ZYN;

namespace {

constexpr int testsOfPart = 200;

/// Appends records, little-endian.
class LotBytes {
public:
    void Begin(int type, int subType)
    {
        m_start = bytes.size();
        bytes.append(2, '\0').append(char(type)).append(char(subType));
    }
    void End() { qToLittleEndian(quint16(bytes.size() - m_start - 4), bytes.data() + m_start); }
    template <class Number>
    LotBytes& Put(Number number)
    {
        const auto ordered = qToLittleEndian(number);
        bytes.append(reinterpret_cast<const char*>(&ordered), sizeof ordered);
        return *this;
    }
    LotBytes& Text(const QByteArray& text)
    {
        bytes.append(char(text.size())).append(text);
        return *this;
    }

    QByteArray bytes;

private:
    qsizetype m_start = 0;
};

/// \param isFull all fields in each record; else only in the first of a test, as the standard allows
void PutTest(LotBytes& lot, int part, int test, bool isFull)
{
    lot.Begin(15, 10);
    const double value = 1.0 + test + 0.1 * std::sin(part * 7.0 + test);
    lot.Put(quint32(1000 + test)).Put(quint8(1)).Put(quint8(part % 4)).Put(quint8(0)).Put(quint8(0xc0));
    lot.Put(float(value)).Text("Supply " + QByteArray::number(test) + " of the core");
    if (isFull || part == 0) {
        lot.Text({}).Put(quint8(0x0e)).Put(qint8(3)).Put(qint8(3)).Put(qint8(3));
        lot.Put(float(test)).Put(float(test + 2)).Text("A").Text("%9.3f").Text("%9.3f").Text("%9.3f");
    }
    lot.End();
}

QString WriteLot(const QTemporaryDir& folder, int megabytes, bool isFull)
{
    LotBytes lot;
    lot.Begin(0, 10);
    lot.Put(quint8(2)).Put(quint8(4)).End();
    lot.Begin(1, 10);
    lot.Put(1700000000U).Put(1700000000U).Put(quint8(1));
    lot.bytes.append("P  ");
    lot.Put(quint16(65535));
    lot.bytes.append(' ');
    for (const char* const text : {"L1", "CHIP", "T1", "T-9", "probe", "1"})
        lot.Text(text);
    lot.End();
    const QString name = folder.filePath(QStringLiteral("lot.stdf"));
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no lot file");
    for (int part = 0; file.pos() + lot.bytes.size() < megabytes * 1'000'000LL; ++part) {
        lot.Begin(5, 10);
        lot.Put(quint8(1)).Put(quint8(part % 4)).End();
        for (int test = 0; test < testsOfPart; ++test)
            PutTest(lot, part, test, isFull);
        lot.Begin(5, 20);
        lot.Put(quint8(1)).Put(quint8(part % 4)).Put(quint8(0)).Put(quint16(testsOfPart)).Put(quint16(1));
        lot.Put(quint16(1)).Put(qint16(part % 100)).Put(qint16(part / 100 % 100)).Put(250U);
        lot.Text(QByteArray::number(part)).End();
        file.write(lot.bytes);
        lot.bytes.clear();
    }
    return name;
}

void ReadRecords(const QString& fileName,
                 const std::function<void(const Stdf::Reader&, const Stdf::RawRecord&)>& take)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no lot file to read");
    Stdf::Reader reader(&file);
    for (Stdf::RawRecord raw; reader.Next(raw);)
        take(reader, raw);
}

void Decode(const QString& lot)
{
    ReadRecords(lot, [](const Stdf::Reader& reader, const Stdf::RawRecord& raw) {
        benchmark::DoNotOptimize(Stdf::Decode(raw, reader.IsBigEndian()));
    });
}

void Check(const QString& lot)
{
    Stdf::Checker checker;
    ReadRecords(lot, [&](const Stdf::Reader& reader, const Stdf::RawRecord& raw) {
        checker.Take(raw, reader.IsBigEndian());
    });
    benchmark::DoNotOptimize(checker.HasFaults());
}

void Json(const QString& lot)
{
    QFile out(QStringLiteral("/dev/null"));
    if (!out.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        qFatal("no output");
    std::string lines;
    ReadRecords(lot, [&](const Stdf::Reader& reader, const Stdf::RawRecord& raw) {
        Stdf::AppendJson(lines, raw, reader.IsBigEndian());
        if (lines.size() > 32 * 1024) {
            out.write(lines.data(), qint64(lines.size()));
            lines.clear();
        }
    });
}

void Runs(const QString& lot, bool isModel)
{
    StdfRuns reader;
    RunModels models;
    reader.ReadFile(lot.toStdString(), [&](Run&& run) {
        if (run.values.size() != testsOfPart)
            qFatal("not read");
        if (isModel)
            benchmark::DoNotOptimize(models.Make(run));
        return true;
    });
}

using Work = void (*)(const QString&);
void IntoRuns(const QString& lot)
{
    Runs(lot, false);
}
void IntoModel(const QString& lot)
{
    Runs(lot, true);
}

/// The argument is the size of the lot in MB. \param bar of the ratio; 0 judges nothing
void Source(benchmark::State& state, Work work, bool isFull, double bar)
{
    const QTemporaryDir folder;
    const QString lot = WriteLot(folder, int(state.range(0)), isFull);
    const auto bytes = double(QFile(lot).size());
    const auto parts = state.range(0);
    Bench::Compare(
        state, parts, [&] { work(lot); }, [&] { Decode(lot); }, bar);
    state.counters["MB/s"] = bytes / 1e6 / (state.counters["ns/item"] * double(parts) * 1e-9);
}

} // namespace

#define ZYN_SOURCE(name, work, isFull, bar)                                                                  \
    BENCHMARK_CAPTURE(Source, name, work, isFull, bar)                                                       \
        ->Arg(20)                                                                                            \
        ->UseManualTime()                                                                                    \
        ->Unit(benchmark::kMillisecond)

ZYN_SOURCE(check, Check, false, 1.5);
ZYN_SOURCE(check_full, Check, true, 1.5);
ZYN_SOURCE(json, Json, false, 1.5);
ZYN_SOURCE(json_full, Json, true, 1.5);
ZYN_SOURCE(runs, IntoRuns, false, 2.5);
ZYN_SOURCE(runs_full, IntoRuns, true, 2.5);
// What they cost does not depend on the size, nor does their memory.
ZYN_SOURCE(runs, IntoRuns, false, 2.5)->Arg(400)->Iterations(1);
ZYN_SOURCE(model, IntoModel, false, 0.0);
ZYN_SOURCE(model_full, IntoModel, true, 0.0);

BENCHMARK_MAIN();
