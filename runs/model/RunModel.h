#pragma once

#include "runs/Run.h"

#include <QtCore/QSharedPointer>

namespace ZYN {

class UUTTest;

/// The test of a unit that a run tells of, with one result set. It holds all that a
/// run says and the model has a place for, and all of it is meant for reports. Limits of integers have up to
/// 64 bits.
QSharedPointer<UUTTest> ModelOfRun(const Run& run);

} // namespace ZYN
