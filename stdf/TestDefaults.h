#pragma once

#include "Decoder.h"

#include <QtCore/QHash>

#include <optional>

namespace ZYN::Stdf {

/// What holds for a test beside its result. Limits are as they stand in the file, without scale.
struct TestSettings {
    QString text;
    bool isGiven = false; ///< a record had them
    std::optional<float> lowLimit = {};
    std::optional<float> highLimit = {};
    int resultScale = 0;
    QString unit = {};
};

/// Completes test records: what a PTR or MPR leaves out counts as in the first one of the same test. A test
/// is known by its number and its text; a record without a text is of the first test of its number. Beyond
/// the first `MaximumTests` none is remembered: a small compressed file could hold any number.
class TestDefaults {
public:
    /// \param test a PTR, MPR or FTR
    TestSettings Complete(const Record& test);
    /// Forgets the tests; for the next stream of the same file.
    void Clear() { first.clear(); }

    static constexpr qsizetype MaximumTests = 100'000;

private:
    QHash<std::pair<uint, QString>, TestSettings> first; ///< that of a number also without a text
};

} // namespace ZYN::Stdf
