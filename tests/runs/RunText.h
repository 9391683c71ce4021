#pragma once

#include "runs/Run.h"

#include <QtCore/QString>

#include <span>

namespace ZYN {

/// All that runs say, as text for people to read and for tests to compare: a component a line, only those
/// that have a result, so that it does not depend on the layouts that the runs share. \param withSource
/// whether the file that they come from is told
QString RunText(std::span<const Run> runs, bool withSource = false);

} // namespace ZYN
