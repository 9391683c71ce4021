#pragma once

#include "StdfRecord.h"

namespace ZYN {

class TestGroup;
class TestMeasurement;
class TestResult;
class TestStep;

/// The PTR of one measurement.
///
/// RESULT and the limits are multiplied with 0.1 to the power of the value display's scale factor and
/// RES_SCAL holds the negated factor; see docs/formats.md on how to read them together.
/// \param number TEST_NUM, from 1 within a part
/// \return the record, as it is to be written; valid until `record` is used again
QByteArrayView StdfTestRecord(StdfRecord& record, quint32 number, const TestMeasurement* measurement,
                              const TestStep* step, const TestGroup* group, const TestResult* result);

} // namespace ZYN
