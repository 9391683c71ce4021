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

// What is written over the end of the lot, and where. The parts that are left out are taken for passed ones
// unless their flags say otherwise: the report tells how many passed, not which.
QByteArray Bytes(const LockedLot& lot, const LotParts& parts, const QList<LotParts::Part>& wanted,
                 qint64* position)
{
    View file(lot);
    StdfLotFile lotFile(&file);
    const StdfPlace place = lotFile.HoldsNothing() ? StdfPlace() : lotFile.FindPlace();
    quint32 leftOut = 0;
    for (const LotParts::Part& part : parts.parts)
        leftOut += part.isClean;
    QByteArray bytes = place.closingPcr ? QByteArray() : parts.header;
    for (const LotParts::Part& part : wanted) {
        leftOut -= part.isClean;
        bytes += part.bytes;
    }
    const quint32 good = parts.good - qMin(parts.good, leftOut);
    *position = place.position;
    return bytes + ClosingWith(parts, place.partCount + quint32(wanted.size()),
                               place.goodCount == StdfFormat::unknownCount ? StdfFormat::unknownCount
                                                                           : place.goodCount + good);
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
            return AddTo(lot, m_path, parts, name);
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
            return AddTo(lot, path, parts, name);
        const QFileInfo info(path);
        if (lot.Refusal() && !info.exists() && !info.isSymLink())
            return {.file = path, .problem = lot.Refusal()};
    }
}

LotEntry LotWriter::AddTo(LockedLot& lot, const QString& path, const LotParts& parts, const QString& name)
{
    LotEntry entry{.file = path};
    QList<LotParts::Part> wanted = parts.parts;
    if (!m_again) {
        const LotContents& contents = ContentsOf(path, lot);
        wanted.removeIf([&](const LotParts::Part& part) { return contents.Hold(part.bytes); });
    }
    entry.present = parts.parts.size() - wanted.size();
    if (wanted.isEmpty())
        return entry;

    qint64 position = 0;
    const QByteArray bytes = Bytes(lot, parts, wanted, &position);
    const LockedLot::Outcome outcome = lot.Write(position, bytes);
    if (outcome != LockedLot::Outcome::Written) {
        entry.problem = NotAdded(name, path, outcome == LockedLot::Outcome::PutBack);
        return entry;
    }
    entry.added = wanted.size();
    Known& known = m_known[path];
    for (const LotParts::Part& part : wanted)
        known.contents.Add(part.bytes);
    known.state = lot.State();
    return entry;
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
