#pragma once

#include "StdfRecord.h"

#include <QtCore/QString>

#include <array>

namespace ZYN {

class TestGroup;
class TestMeasurement;
class TestResult;
class TestStep;

/// What the texts of all tests of a step have in common.
struct StdfStepText {
    StdfStepText(const TestStep* step, const TestGroup* group);

    /// Step and group as they end each text, in Latin-1.
    QByteArrayView Ending() const { return {ending.data(), size}; }

    QString stepName;

private:
    void Add(QStringView piece);

    std::array<char, 255> ending; ///< no text is longer
    qsizetype size = 0;
};

/// The PTR of one measurement.
///
/// RESULT and the limits are multiplied with 0.1 to the power of the value display's scale factor and
/// RES_SCAL holds the negated factor; see docs/formats.md on how to read them together.
/// \param number TEST_NUM, from 1 within a part
/// \param memory room for `StdfRecord::longest` bytes, where the record is made
QByteArrayView StdfTestRecord(char* memory, quint32 number, const TestMeasurement* measurement,
                              const StdfStepText& stepText, const TestResult* result);

} // namespace ZYN
