#pragma once

#include "ReportTexts.h"

/// What is wrong with a lot, in words.
namespace ZYN::StdfTexts {

using ReportTexts::Pattern;

inline constexpr Pattern noStdf{"StdfRuns",
                                QT_TRANSLATE_NOOP("StdfRuns", "no STDF file: it does not begin with a FAR")};
inline constexpr Pattern wrongVersion{"StdfRuns",
                                      QT_TRANSLATE_NOOP("StdfRuns", "STDF version %1 is not known, only 4")};
inline constexpr Pattern vaxNumbers{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "real numbers in the format of a VAX are not understood")};
inline constexpr Pattern torn{"StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "the file ends inside a record")};
inline constexpr Pattern noEnd{"StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "the file ends without an MRR")};
inline constexpr Pattern tornRecords{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "records that end inside a field: %1, the first one a %2")};
inline constexpr Pattern testsWithoutPart{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "results of tests that belong to no part: %1")};
inline constexpr Pattern partsWithoutBegin{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "parts without a PIR, read without values: %1")};
inline constexpr Pattern partsWithoutEnd{"StdfRuns",
                                         QT_TRANSLATE_NOOP("StdfRuns", "parts without a PRR, left out: %1")};
inline constexpr Pattern noMir{"StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "there is no MIR before the parts")};
inline constexpr Pattern tooMuch{
    "StdfRuns", QT_TRANSLATE_NOOP("StdfRuns", "more tests, or more values at once, than any tester has")};

} // namespace ZYN::StdfTexts
