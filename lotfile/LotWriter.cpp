#include "lotfile/LotWriter.h"

#include "lotfile/LotTexts.h"

#include "report/stdf/StdfFailureFile.h"
#include "report/stdf/StdfLotFile.h"
#include "stdf/GzipDevice.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace ZYN {

namespace {

// The file of a lot that is locked; closing it leaves that open.
class View : public QFile {
public:
    explicit View(const LockedLot& lot)
    {
        if (open(lot.Descriptor(), QIODevice::ReadOnly))
            seek(0); // the place is shared by all views
    }
};

bool HoldsNothing(const LockedLot& lot)
{
    View file(lot);
    return StdfLotFile(&file).HoldsNothing();
}

// Not to be added to: what is no lot, and what is one but packed.
std::optional<Problem> WhyNoLot(const LockedLot& lot, const QString& path)
{
    static const QByteArray far = QByteArrayLiteral("\2\0\0\12\2\4");
    View file(lot);
    const QByteArray head = file.read(4096);
    if (Stdf::GzipDevice::IsGzip(head))
        return Problem{path, 0, LotTexts::tr("is compressed, so no part can be added"),
                       LotTexts::tr("unpack it first (gunzip), or choose another name")};
    if (LooksLikeLot(head) || far.startsWith(head) || StdfLotFile(&file).HoldsNothing())
        return std::nullopt;
    return Problem{path, 0, LotTexts::tr("is no STDF file, so no part can be added"),
                   LotTexts::tr("choose another name")};
}

Beside IsBeside(const LockedLot& lot, const LotParts& parts)
{
    View file(lot);
    StdfLotFile lotFile(&file);
    if (lotFile.HoldsNothing())
        return Beside::No;
    const std::optional<StdfLotNames> names = lotFile.ReadNames();
    if (!names)
        return Beside::NamelessLot;
    if (*names == parts.modelNames)
        return Beside::No;
    return LotNames::Of(&file) == parts.names ? Beside::Unrecognised : Beside::OtherLot;
}

// Whether a file beside the lot takes the parts: these are of the same lot, or it is empty.
bool Takes(const LockedLot& lot, const LotParts& parts)
{
    const Beside beside = IsBeside(lot, parts);
    return beside == Beside::No || beside == Beside::Unrecognised;
}

using Parts = QList<LotParts::Part>;

quint32 Clean(const Parts& parts)
{
    return quint32(
        std::count_if(parts.begin(), parts.end(), [](const LotParts::Part& part) { return part.isClean; }));
}

// How many of the parts that are wanted of a report passed. Those that are left out are taken for passed ones
// unless their flags say otherwise: the report tells how many passed, not which.
quint32 Good(const LotParts& parts, const Parts& wanted)
{
    return parts.good - qMin(parts.good, Clean(parts.parts) - Clean(wanted));
}

// What is written over the end of the lot, and where.
// \param wanted of each report, those that are to be added
QByteArray Bytes(const LockedLot& lot, const QList<LotReport>& reports, const QList<Parts>& wanted,
                 qint64* position)
{
    View file(lot);
    StdfLotFile lotFile(&file);
    const StdfPlace place = lotFile.HoldsNothing() ? StdfPlace() : lotFile.FindPlace();
    QByteArray bytes = place.closingPcr ? QByteArray() : reports.first().parts->header;
    quint32 count = place.partCount;
    quint32 good = place.goodCount;
    for (qsizetype index = 0; index < reports.size(); ++index) {
        for (const LotParts::Part& part : wanted.at(index))
            bytes += part.bytes;
        count += quint32(wanted.at(index).size());
        if (good != StdfFormat::unknownCount)
            good += Good(*reports.at(index).parts, wanted.at(index));
    }
    *position = place.position;
    return bytes + ClosingWith(*reports.last().parts, count, good);
}

} // namespace

Problem NotAdded(const QString& name, const QString& lot, bool putBack)
{
    return {name, 0,
            putBack
                ? LotTexts::tr("could not be added to %1 completely; the lot is as it was").arg(lot)
                : LotTexts::tr("could not be added to %1 completely; the lot could not be put back").arg(lot),
            LotTexts::tr(
                "look at the disk's space, quota and file size limit, and at the permissions of the folder")};
}

LotWriter::LotWriter(const QString& path, bool again)
    : m_path(path)
    , m_again(again)
{
}

std::optional<Problem> LotWriter::Refusal()
{
    const LockedLot lot(m_path, LockedLot::Links::Follow);
    return lot.Refusal() ? lot.Refusal() : WhyNoLot(lot, m_path);
}

QList<LotEntry> LotWriter::Add(const QList<LotReport>& reports)
{
    QList<LotEntry> entries(reports.size());
    QList<qsizetype> together; // numbers of those that certainly belong to the lot
    {
        LockedLot lot(m_path, LockedLot::Links::Follow);
        QList<LotReport> own;
        if (!lot.Refusal() && !WhyNoLot(lot, m_path) && !HoldsNothing(lot))
            for (qsizetype index = 0; index < reports.size(); ++index)
                if (const LotReport& report = reports.at(index);
                    !report.parts->parts.isEmpty() && IsBeside(lot, *report.parts) == Beside::No) {
                    together.append(index);
                    own.append(report);
                }
        const QList<LotEntry> added = own.isEmpty() ? QList<LotEntry>() : AddTo(lot, m_path, own);
        for (qsizetype index = 0; index < added.size(); ++index)
            entries[together.at(index)] = added.at(index);
    }
    for (qsizetype index = 0; index < reports.size(); ++index)
        if (!together.contains(index))
            entries[index] = Add(*reports.at(index).parts, reports.at(index).name);
    return entries;
}

LotEntry LotWriter::Add(const LotParts& parts, const QString& name)
{
    LotEntry entry{.file = m_path};
    if (parts.parts.isEmpty())
        return entry;
    {
        LockedLot lot(m_path, LockedLot::Links::Follow);
        entry.problem = lot.Refusal() ? lot.Refusal() : WhyNoLot(lot, m_path);
        if (entry.problem)
            return entry;
        entry.beside = IsBeside(lot, parts);
        if (entry.beside == Beside::No)
            return AddTo(lot, m_path, {{&parts, name}}).first();
        // It may be the first part of a lot whose names are not recognised again.
        if (entry.beside == Beside::Unrecognised && !m_again) {
            const LotContents& contents = ContentsOf(m_path, lot);
            for (const LotParts::Part& part : parts.parts)
                entry.present += contents.Hold(part.bytes);
            if (entry.present == parts.parts.size())
                return entry;
        }
    }
    const Beside beside = entry.beside;
    entry = AddBeside(parts, name);
    entry.beside = beside;
    return entry;
}

// A file that is named after the unit: the one of an earlier run where it is of the same lot, else a new one.
LotEntry LotWriter::AddBeside(const LotParts& parts, const QString& name)
{
    for (int number = 1;; ++number) {
        const QString ident =
            number == 1 ? parts.ident : QStringLiteral("%1-%2").arg(parts.ident).arg(number);
        const QString path = StdfFailureFileName(m_path, ident);
        LockedLot lot(path, LockedLot::Links::Refuse);
        if (!lot.Refusal() && Takes(lot, parts))
            return AddTo(lot, path, {{&parts, name}}).first();
        const QFileInfo info(path);
        if (lot.Refusal() && !info.exists() && !info.isSymLink())
            return {.file = path, .problem = lot.Refusal()};
    }
}

QList<LotEntry> LotWriter::AddTo(LockedLot& lot, const QString& path, const QList<LotReport>& reports)
{
    QList<LotEntry> entries;
    QList<Parts> wanted;
    LotContents added;
    for (const LotReport& report : reports) {
        Parts& parts = wanted.emplace_back(report.parts->parts);
        if (!m_again) {
            const LotContents& contents = ContentsOf(path, lot);
            parts.removeIf([&](const LotParts::Part& part) {
                return contents.Hold(part.bytes) || added.Hold(part.bytes);
            });
        }
        for (const LotParts::Part& part : std::as_const(parts))
            added.Add(part.bytes);
        entries.append({.file = path, .present = report.parts->parts.size() - parts.size()});
    }
    if (std::all_of(wanted.cbegin(), wanted.cend(), [](const Parts& parts) { return parts.isEmpty(); }))
        return entries;

    qint64 position = 0;
    const QByteArray bytes = Bytes(lot, reports, wanted, &position);
    const LockedLot::Outcome outcome = lot.Write(position, bytes);
    for (qsizetype index = 0; index < reports.size(); ++index) {
        if (outcome == LockedLot::Outcome::Written)
            entries[index].added = wanted.at(index).size();
        else if (!wanted.at(index).isEmpty())
            entries[index].problem =
                NotAdded(reports.at(index).name, path, outcome == LockedLot::Outcome::PutBack);
    }
    if (outcome == LockedLot::Outcome::Written) {
        Known& known = m_known[path];
        known.contents.Add(added);
        known.state = lot.State();
    }
    return entries;
}

void LotWriter::AddNone(const LotParts& parts)
{
    LockedLot lot(m_path, LockedLot::Links::Follow);
    if (!lot.Refusal() && HoldsNothing(lot))
        lot.Write(0, parts.header + parts.closing);
}

// Read anew when somebody else wrote to the file.
const LotContents& LotWriter::ContentsOf(const QString& path, const LockedLot& lot)
{
    Known& known = m_known[path];
    if (const QByteArray state = lot.State(); state != known.state) {
        View file(lot);
        known.contents.Read(&file);
        known.state = state;
    }
    return known.contents;
}

} // namespace ZYN
