#pragma once

#include <QtCore/QCoreApplication>

namespace ZYN::Tool {

/// What the tool says to people, in the user's language: `Texts::tr("...")`. Names of options, commands and
/// formats, examples to be typed and what programs read stay as they are. Any thread.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(zyn)
};

} // namespace ZYN::Tool
