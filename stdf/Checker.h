#pragma once

#include "Decoder.h"

#include <QtCore/QList>
#include <QtCore/QMap>

namespace ZYN::Stdf {

/// Something about a file: a fault, which is an error, or a remark about what is unusual and allowed.
struct Finding {
    qint64 offset = 0;
    bool isError = true; ///< a fault; else a remark
    QString text;
};

/// Judges a file record by record: FAR first, MIR next, each part between its PIR and its PRR, counts as
/// the parts are, MRR last; lengths of records. A file may hold several streams one after the other, as
/// an interrupted lot file does: each is judged on its own.
class Checker {
public:
    /// Takes the records in file order.
    void Take(const RawRecord& raw, bool isBigEndian);
    /// Ends the file.
    /// \param reader what the records came from: its fault is a finding
    void Finish(const Reader& reader);

    /// In file order. After `MaximumFindings` faults, and as many remarks, only their number is counted.
    const QList<Finding>& GetFindings() const { return findings; }
    bool HasFaults() const { return faults > 0; }

    static constexpr int MaximumFindings = 1000;
    /// Of more pairs of site and bin the counts are not judged: a small compressed file could hold any
    /// number.
    static constexpr qsizetype MaximumBins = 200'000;

private:
    struct Part {
        qint64 offset = 0;
        uint tests = 0;
    };
    struct Counts {
        uint parts = 0;
        uint good = 0;
    };
    using HeadAndSite = std::pair<uint, uint>;
    using Bin = std::pair<HeadAndSite, uint>;

    bool TakeZeros(const RawRecord& raw);
    bool TakeGoodTest(const RawRecord& raw, bool isBigEndian);
    void TakeTexts(const Record& record);
    void TakeFar(const RawRecord& raw, const Record& record);
    void TakeInOrder(const Record& record);
    void BeginPart(const Record& record);
    void TakeTest(const Record& record, const QString& name);
    void EndPart(const Record& record);
    void CountBin(QMap<Bin, uint>& bins, const HeadAndSite& place, uint number);
    void TakeBin(const Record& record, const QMap<Bin, uint>& seen, const char* number, const char* count);
    void TakeCounts(const Record& record);
    void EndStream(qint64 offset);
    void AddFault(qint64 offset, const QString& text);
    void AddRemark(qint64 offset, const QString& text);

    enum class Expected { Far, Mir, Anything, Nothing };
    Expected expected = Expected::Far;
    QMap<HeadAndSite, Part> openParts;
    /// Each place's own, and what all have together at `everywhere`.
    QMap<HeadAndSite, Counts> counted;
    QMap<Bin, uint> hardBins;
    QMap<Bin, uint> softBins;
    bool tooManyBins = false;
    bool hasCounts = false;        ///< the stream has a PCR
    std::optional<uint> processor; ///< CPU_TYPE of the first stream
    QMap<std::pair<int, int>, int> unknownTypes;
    int zeroRecords = 0; ///< four zero bytes each, since the last other record
    qint64 zerosAt = 0;
    int beyondAscii = 0; ///< records with such texts
    Finding firstBeyondAscii;
    QList<Finding> findings;
    int faults = 0;
    int remarks = 0;
};

} // namespace ZYN::Stdf
