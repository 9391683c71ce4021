// STDF lot files against their floors: the file's own records from one prepared byte array, one by one
// through a bare QFile; and for adding a part to a lot, reading the lot once from front to back.

#include "Comparison.h"
#include "LoadModel.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QtEndian>

using namespace ZYN;

namespace {

constexpr qint64 headerSize = 4;

void Export(UUTTest* test, const QString& fileName)
{
    CExportServiceReport service;
    service.SetFormat(QStringLiteral("STDF"));
    service.SetOutputFileName(fileName);
    if (!service.Export(test) || !service.OutputComplete())
        qFatal("no lot file");
}

QByteArray Bytes(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("no lot file to read");
    return file.readAll();
}

void WriteRecords(const QByteArray& bytes, const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        qFatal("no file");
    for (qint64 at = 0; at < bytes.size();) {
        const qint64 size = headerSize + qFromLittleEndian<quint16>(bytes.constData() + at);
        file.write(bytes.constData() + at, size);
        at += size;
    }
}

void ReadOnce(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        qFatal("no lot file to read");
    QByteArray chunk(64 * 1024, Qt::Uninitialized);
    while (file.read(chunk.data(), chunk.size()) > 0) {
    }
}

/// \param tests of the whole lot
/// \param testsPerPart the unit's tests; each part is an export of its own
/// \param bar 0 judges nothing
void WriteLot(benchmark::State& state, int tests, int testsPerPart, double bar)
{
    const QTemporaryDir folder;
    const QString lot = folder.filePath(QStringLiteral("lot.stdf"));
    const auto load = Bench::MakeLoad(testsPerPart);
    const auto write = [&] {
        QFile::remove(lot);
        for (int part = 0; part < tests / testsPerPart; ++part)
            Export(load.get(), lot);
    };
    write();
    const QByteArray bytes = Bytes(lot);
    Bench::Compare(
        state, tests, write,
        [&] {
            const QString floor = folder.filePath(QStringLiteral("floor"));
            QFile::remove(floor);
            WriteRecords(bytes, floor);
        },
        bar);
    const double seconds = state.counters["ns/item"] * tests * 1e-9;
    state.counters["MB/s"] = double(bytes.size()) / 1e6 / seconds;
    state.counters["records/s"] = tests / seconds;
}

/// A lot of parts of 10,000 tests.
void Write(benchmark::State& state)
{
    WriteLot(state, int(state.range(0)), 10'000, 3.0);
}

/// All tests in one part, many more than the format can count: what a model far larger than the processor's
/// caches costs. Nothing is judged by it.
void WriteOnePart(benchmark::State& state)
{
    WriteLot(state, int(state.range(0)), int(state.range(0)), 0.0);
}

/// \param closed whether the lot ends with its counts, so that its end tells where it goes on; else all of
///        it has to be searched, as after a crash, which nothing is judged by
void AddToLot(benchmark::State& state, bool closed)
{
    constexpr int testsPerPart = 100;
    const int parts = int(state.range(0));
    const QTemporaryDir folder;
    const QString lot = folder.filePath(QStringLiteral("lot.stdf"));
    const auto load = Bench::MakeLoad(testsPerPart);
    CExportServiceReport service;
    service.SetFormat(QStringLiteral("STDF"));
    service.SetOutputFileName(lot);
    for (int part = 0; part < parts; ++part)
        service.Export(load.get());

    constexpr qint64 closingSize = 34; // PCR and MRR
    QByteArray closing(closed ? closingSize : 0, Qt::Uninitialized);
    QFile file(lot);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered))
        qFatal("no lot file");
    const qint64 place = file.size() - closingSize;
    file.seek(place);
    file.read(closing.data(), closing.size());
    // Each turn finds the lot as it was before the last one.
    const auto putBack = [&] {
        return file.seek(place) && file.write(closing) == closing.size() &&
               file.resize(place + closing.size());
    };
    putBack();
    Bench::Compare(
        state, 1, [&] { Export(load.get(), lot); },
        [&] {
            putBack();
            ReadOnce(lot);
        },
        closed ? 1.0 : 0.0);
    state.counters["MB"] = double(place) / 1e6;
}

} // namespace

BENCHMARK(Write)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Write)->Arg(1'000'000)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(WriteOnePart)->Arg(1'000'000)->Iterations(3)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(AddToLot, closed, true)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(AddToLot, torn, false)
    ->Arg(10'000)
    ->Iterations(20)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
