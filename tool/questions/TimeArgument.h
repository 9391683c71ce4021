#pragma once

#include "archive/Questions.h"

#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// A day (it means its beginning) or a time of the command line: "2026-11-24", "2026-11-24T13:00", also with
/// seconds, with a blank for the T, and with an offset ("Z", "+01:00"). Without an offset it is compared with
/// the tester's clock. \return none for another text
std::optional<TimeBound> ParseTime(const QString& text);

} // namespace ZYN::Tool
