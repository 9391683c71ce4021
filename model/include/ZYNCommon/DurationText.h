#pragma once

#include <ZYNCommon/ZYNCommonGlobal.h>

#include <QtCore/QString>

namespace ZYN::DurationText {

/// Milliseconds as a plain number, from seconds, without losing a digit.
ZYNCOMMON_EXPORT QString Milliseconds(double seconds);
/// For people: "1.250 s", "2 min 03 s", "1 h 02 min 03 s".
ZYNCOMMON_EXPORT QString ForPeople(double seconds);

} // namespace ZYN::DurationText
