#include "LotAppend.h"

#include "LockedLot.h"
#include "Parallel.h"
#include "Progress.h"
#include "ReportFile.h"
#include "Texts.h"

#include "stdf/Reader.h"

#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>

namespace ZYN::Tool {

namespace {

/// A report on its way into the lot.
struct Part {
    std::unique_ptr<UUTTest> test;
    std::optional<Problem> problem;
};

struct Lot {
    QString path;
    bool ignoreReportFlag = false;
    /// The files beside the lot that took parts in this run, and what they hold.
    QHash<QString, QByteArray> failureFiles = {};
};

Problem NotAdded(const Input& input, const Lot& lot, bool putBack)
{
    return {
        input.name, 0,
        putBack
            ? Texts::tr("could not be added to %1 completely; the lot is as it was").arg(lot.path)
            : Texts::tr("could not be added to %1 completely; the lot could not be put back").arg(lot.path),
        Texts::tr(
            "look at the disk's space, quota and file size limit, and at the permissions of the folder")};
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool PutContent(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size() &&
           file.flush();
}

// Adds one part, by a service of its own.
// \param writtenTo receives the file that took the part
std::optional<Problem> Add(const Input& input, UUTTest* test, const Lot& lot, QString* writtenTo)
{
    LockedLot lock(lot.path);
    if (lock.Refusal())
        return lock.Refusal();
    bool complete = false;
    {
        CExportServiceReport service;
        service.SetFormat(QStringLiteral("STDF"));
        service.SetOutputFileName(lot.path);
        service.SetIgnoreReportFlag(lot.ignoreReportFlag);
        complete = service.Export(test) && service.OutputComplete();
        *writtenTo = service.GetWrittenFileName();
    } // closes the file
    if (complete && lock.Sync())
        return std::nullopt;
    if (!writtenTo->isEmpty() && QFileInfo(*writtenTo) != QFileInfo(lot.path))
        QFile::remove(*writtenTo);
    return NotAdded(input, lot, lock.PutBack());
}

// Adds one part to a file, the lot's or one beside it. A part of another lot goes to a file that is named
// after its unit and made anew: where an earlier part of this run lies there, it is put back and this one
// added.
std::optional<Problem> AddKeepingOthers(const Input& input, UUTTest* test, const QString& file, Lot& lot,
                                        QString* writtenTo)
{
    const std::optional<Problem> problem = Add(input, test, {file, lot.ignoreReportFlag}, writtenTo);
    const QString& taker = *writtenTo;
    const auto earlier = lot.failureFiles.constFind(taker);
    if (earlier != lot.failureFiles.constEnd() && QFileInfo(taker) != QFileInfo(file)) {
        if (!PutContent(taker, *earlier))
            return NotAdded(input, {taker}, false);
        if (!problem)
            return AddKeepingOthers(input, test, QString(taker), lot, writtenTo);
    }
    if (!problem && QFileInfo(taker) != QFileInfo(lot.path))
        lot.failureFiles.insert(taker, Content(taker));
    return problem;
}

// Number of parts in a file, complete ones and one that a crash cut off.
int CountParts(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    constexpr int partType = 5;
    constexpr int resultSubType = 20;
    int parts = 0;
    Stdf::Reader reader(&file);
    for (Stdf::RawRecord record; reader.Next(record);)
        parts += record.type == partType && record.subType == resultSubType;
    return parts;
}

} // namespace

QList<Conversion> AppendToLot(const QList<Input>& inputs, const QString& path, bool ignoreReportFlag,
                              const Manners& manners)
{
    Lot lot{path, ignoreReportFlag};
    QList<Conversion> conversions;
    const qsizetype batch = 4 * AllCores(); // bounds what is in memory
    Progress progress(inputs.size(), !manners.quiet);
    for (qsizetype start = 0; start < inputs.size(); start += batch) {
        const QList<Input> some = inputs.mid(start, batch);
        std::vector<Part> parts(size_t(some.size()));
        ForEachIndex(some.size(), AllCores(), [&](qsizetype index) {
            Part& part = parts[size_t(index)];
            part.test = ReadReport(some.at(index).path, some.at(index).name, &part.problem);
        });
        for (qsizetype index = 0; index < some.size(); ++index) {
            Part& part = parts[size_t(index)];
            Conversion conversion{some.at(index).name, {}, part.problem};
            if (!part.problem)
                conversion.problem =
                    AddKeepingOthers(some.at(index), part.test.get(), path, lot, &conversion.output);
            conversions.append(conversion);
            progress.Step();
        }
    }
    return conversions;
}

void SayLot(const QString& path, const QList<Conversion>& conversions)
{
    bool added = false;
    for (const Conversion& conversion : conversions) {
        if (conversion.problem)
            continue;
        added = true;
        if (QFileInfo(conversion.output) != QFileInfo(path))
            PrintNote(Texts::tr("%1 is of another lot, product type or machine than %2: its part is in %3")
                          .arg(conversion.input, path, conversion.output));
    }
    if (added)
        PrintNote(Texts::tr("%1 holds %n parts", nullptr, CountParts(path)).arg(path));
}

} // namespace ZYN::Tool
