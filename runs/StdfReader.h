#pragma once

#include "StdfPart.h"
#include "StdfPlaces.h"
#include "StdfRecords.h"
#include "StdfTests.h"

#include "runs/StdfRuns.h"

#include <map>
#include <set>

namespace ZYN {

/// Makes runs of the records of one lot file.
class StdfReader {
public:
    using OpenBytes = std::function<void(ByteSource&)>; ///< opens what is read, as often as it is called

    StdfReader(RunBuilder& builder, OpenBytes open, std::string source, const StdfRuns::Take& take);

    std::optional<RunFault> Read();
    /// Of HBR and SBR; those of a stream by whether it is a soft one and by number.
    std::vector<LotBin> TakeBins();

private:
    enum Fault { Torn, TornRecord, NoMir, StrayTest, NoBegin, NoEnd, NoMrr, TooMuch, faultCount };
    struct Found {
        std::int64_t count = 0;
        std::int64_t offset = 0;
    };

    void Take(const StdfRecord& record);
    bool TakeFar(const StdfRecord& record);
    void TakeMir(StdfFields fields);
    void TakePin(StdfFields fields);
    void TakeSites(StdfFields fields);
    void TakeWafer(StdfFields fields, bool isBegin);
    void TakeBin(StdfFields fields, bool isSoft);
    void BeginPart(const StdfRecord& record, StdfFields fields);
    void EndPart(const StdfRecord& record, StdfFields fields);
    void TakeTest(const StdfRecord& record, StdfFields fields);
    void TakeParametric(StdfPart& part, std::uint32_t number, int flags, StdfFields& fields);
    void TakePins(StdfPart& part, std::uint32_t number, int flags, StdfFields& fields);
    void TakeFunctional(StdfPart& part, std::uint32_t number, int flags, StdfFields& fields);
    StdfSettings TakeSettings(StdfFields& fields) const;
    void AddValue(StdfPart& part, const StdfReading& reading, int pin, int code, std::optional<float> number);
    static void AddComment(StdfPart& part, const std::string& text);
    StdfPart& PartAt(int head, int site) { return m_parts[head << 8 | site]; }
    void EndStream();
    void EndBins();

    void Note(Fault fault, std::int64_t offset);
    std::optional<RunFault> Result(const ByteSource& bytes) const;
    void ForEachRecord(const std::function<void(const StdfRecord&, StdfFields)>& take) const;
    std::string NameOfTest(std::uint32_t number);
    bool MayExceedLow(const std::string& text);

    RunBuilder& m_builder;
    OpenBytes m_open;
    const std::string m_source;
    const StdfRuns::Take& m_take;
    bool m_isEnded = false; ///< nobody takes any more
    bool m_isBigEndian = false;

    // Of the stream.
    Run m_lot; ///< what all runs have in common
    std::string m_program, m_version;
    bool m_hasMir = false, m_hasMrr = false;
    StdfTests m_tests;
    StdfPlaces m_places;
    std::map<int, StdfPart> m_parts; ///< by head and site
    std::size_t m_valuesOpen = 0;    ///< values of all parts that are being tested

    int m_ordinal = 0;                             ///< of the next PRR
    std::map<std::pair<bool, int>, LotBin> m_bins; ///< of this stream
    std::vector<LotBin> m_earlierBins;
    std::optional<std::map<std::uint32_t, std::string>> m_testNames; ///< of TSRs, once they are needed
    std::optional<std::set<std::string, std::less<>>>
        m_exceeding; ///< tests of own lots, once they are needed
    Found m_found[faultCount];
    std::string m_tornName; ///< of the first torn record
    std::optional<RunFault> m_refused;
};

} // namespace ZYN
