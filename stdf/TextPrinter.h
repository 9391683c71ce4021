#pragma once

#include "TestDefaults.h"

#include <QtCore/QMap>

#include <functional>

namespace ZYN::Stdf {

/// Prints a lot for people: its header, a line a part as it comes, at the end the tests with their limits,
/// bins and counts. Memory grows with the number of different tests, not of parts, and only up to
/// `MaximumTests`: a small compressed file could hold any number.
///
/// Limits are printed as the first record of a test has them; RES_SCAL stands beside them and is not applied.
class TextPrinter {
public:
    /// \param output takes a line at a time, without line end
    /// \param failedOnly leave out parts and tests that never failed
    explicit TextPrinter(std::function<void(const QString&)> output, bool failedOnly = false);

    void Take(const RawRecord& raw, const Record& record);
    void Finish(const Reader& reader);
    /// The first damage, of a record or of the file, once the file is finished.
    const std::optional<Fault>& GetDamage() const { return damage; }

    /// Of more tests, and more lines of bins and counts, only the number is printed.
    static constexpr qsizetype MaximumTests = 100'000;
    static constexpr qsizetype MaximumClosing = 10'000;

private:
    struct Test {
        TestSettings settings;
        uint runs = 0;
        uint failed = 0;
    };

    void PrintHeader(const Record& mir);
    uint TestsOf(const Record& prr);
    void PrintPart(const Record& prr);
    void TakeTest(const Record& test);
    void Close(const QString& line);
    void PrintTests();

    std::function<void(const QString&)> print;
    bool failedOnly;
    TestDefaults defaults;
    QMap<std::pair<uint, QString>, Test> tests;
    QMap<std::pair<uint, uint>, uint> testsSeen; ///< of the open parts, by head and site
    QMap<QString, uint> records;
    qint64 moreTests = 0; ///< records of tests that are not in the list
    QStringList closing;
    qint64 moreClosing = 0;
    std::optional<Fault> damage;
    uint parts = 0;
    bool partsBegun = false;
};

} // namespace ZYN::Stdf
