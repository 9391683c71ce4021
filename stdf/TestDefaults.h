#pragma once

#include "Decoder.h"

#include <QtCore/QHash>

#include <optional>

namespace ZYN::Stdf {

/// What holds for a test beside its result. Limits are as they stand in the file, without scale.
struct TestSettings {
    QString text;
    std::optional<float> lowLimit;
    std::optional<float> highLimit;
    int resultScale = 0;
    QString unit;
};

/// Completes test records: what a PTR or MPR leaves out counts as in the first one of the same number.
/// A record whose text says that it is another test takes nothing over. Beyond the first `MaximumTests`
/// numbers none is remembered: a small compressed file could hold any number.
class TestDefaults {
public:
    /// \param test a PTR, MPR or FTR
    TestSettings Complete(const Record& test);
    /// Forgets the tests; for the next stream of the same file.
    void Clear() { first.clear(); }

    static constexpr qsizetype MaximumTests = 100'000;

private:
    QHash<uint, TestSettings> first;
};

} // namespace ZYN::Stdf
