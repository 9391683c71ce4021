#pragma once

#include "archive/Questions.h"

#include <QtCore/QString>

#include <optional>
#include <string>

namespace ZYN::Tool {

/// Takes what a time option was given: a day (it means its beginning) or a time, "2026-11-24",
/// "2026-11-24T13:00", also with seconds, with a blank for the T, and with an offset ("Z", "+01:00"). Without
/// an offset it is compared with the tester's clock. \return the exit code for another text; it was told
std::optional<int> TakeTime(const QString& command, const char* option, const std::string& text,
                            TimeBound* bound);

} // namespace ZYN::Tool
