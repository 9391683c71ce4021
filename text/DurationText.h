#pragma once

#include <QtCore/QString>

/// Durations as texts.
namespace ZYN::DurationText {

/// Milliseconds as a plain number, from seconds, without losing a digit.
QString Milliseconds(double seconds);
/// For people: "1.250 s", "2 min 03 s", "1 h 02 min 03 s".
QString ForPeople(double seconds);

} // namespace ZYN::DurationText
