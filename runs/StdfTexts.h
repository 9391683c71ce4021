#pragma once

#include "ReportTexts.h"

/// What is wrong with a lot, in words.
namespace ZYN::StdfTexts {

using ReportTexts::Pattern;

inline constexpr Pattern NoStdf{"StdfRuns",
                                QT_TRANSLATE_NOOP("StdfRuns", "no STDF file: it does not begin with a FAR")};
inline constexpr Pattern WrongVersion{"StdfRuns",
                                      QT_TRANSLATE_NOOP("StdfRuns", "STDF version %1 is not known, only 4")};
inline constexpr Pattern VaxNumbers{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "real numbers in the format of a VAX are not understood")};
inline constexpr Pattern Torn{"StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "the file ends inside a record")};
inline constexpr Pattern NoEnd{"StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "the file ends without an MRR")};
inline constexpr Pattern TornRecords{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "records that end inside a field: %1, the first one a %2")};
inline constexpr Pattern TestsWithoutPart{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "results of tests that belong to no part: %1")};
inline constexpr Pattern PartsWithoutBegin{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "parts without a PIR, read without values: %1")};
inline constexpr Pattern PartsWithoutEnd{"StdfRuns",
                                         QT_TRANSLATE_NOOP("StdfRuns", "parts without a PRR, left out: %1")};
inline constexpr Pattern NoMir{"StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "there is no MIR before the parts")};
inline constexpr Pattern TooMuch{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "more tests, or more values at once, than any tester has")};

} // namespace ZYN::StdfTexts
