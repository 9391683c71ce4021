#pragma once

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QSharedPointer>

namespace ZYN::Bench {

/// A unit's test as a tester leaves it, with so many measurements of real values with limits: groups of
/// a hundred steps of ten measurements, every component with a result.
/// \param measurements is rounded up to whole steps
QSharedPointer<UUTTest> MakeLoad(int measurements);

} // namespace ZYN::Bench
