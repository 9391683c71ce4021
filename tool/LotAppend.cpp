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
};

Problem NotAdded(const Input& input, const Lot& lot, bool putBack)
{
    return {
        input.name, 0,
        putBack
            ? Texts::tr("could not be added to %1 completely; the lot is as it was").arg(lot.path)
            : Texts::tr("could not be added to %1 completely; the lot could not be put back").arg(lot.path),
        Texts::tr("look at the disk's space, quota and file size limit")};
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

// What is good to know about a part that was added; may be nothing.
QString NoteOn(const Input& input, const Lot& lot, const QString& writtenTo, const Manners& manners)
{
    if (QFileInfo(writtenTo) != QFileInfo(lot.path))
        return Texts::tr("%1 is of another lot, product type or machine than %2: its part is in %3")
            .arg(input.name, lot.path, writtenTo);
    return manners.verbose ? QStringLiteral("%1 -> %2").arg(input.name, lot.path) : QString();
}

} // namespace

void AppendToLot(const QList<Input>& inputs, const QString& path, bool ignoreReportFlag,
                 const Manners& manners, QList<Problem>* problems)
{
    // A lot that cannot be written to is named once, not for each report.
    if (const std::optional<Problem> refusal = LockedLot(path).Refusal()) {
        problems->append(*refusal);
        return;
    }
    const Lot lot{path, ignoreReportFlag};
    const qsizetype batch = 4 * AllCores(); // bounds what is in memory
    auto progress = std::make_optional<Progress>(inputs.size(), !manners.quiet);
    QStringList notes;
    qsizetype added = 0;
    for (qsizetype start = 0; start < inputs.size(); start += batch) {
        const QList<Input> some = inputs.mid(start, batch);
        std::vector<Part> parts(size_t(some.size()));
        ForEachIndex(some.size(), AllCores(), [&](qsizetype index) {
            Part& part = parts[size_t(index)];
            part.test = ReadReport(some.at(index).path, some.at(index).name, &part.problem);
        });
        for (qsizetype index = 0; index < some.size(); ++index) {
            Part& part = parts[size_t(index)];
            QString writtenTo;
            if (!part.problem)
                part.problem = Add(some.at(index), part.test.get(), lot, &writtenTo);
            if (part.problem) {
                problems->append(*part.problem);
            } else {
                notes += NoteOn(some.at(index), lot, writtenTo, manners);
                ++added;
            }
            progress->Step();
        }
    }
    progress.reset(); // before the notes, on a terminal
    notes.removeAll(QString());
    for (const QString& note : std::as_const(notes))
        PrintNote(note);
    if (!manners.quiet && added > 0)
        PrintNote(Texts::tr("%1 holds %n parts", nullptr, CountParts(path)).arg(path));
}

} // namespace ZYN::Tool
