#pragma once

#include "terminal/Table.h"

#include "archive/Questions.h"

namespace ZYN::Tool {

/// A verdict as reports call it, in its colour.
inline TableCell VerdictCell(int code)
{
    return {VerdictOf(code), code > 0 ? Style::Good : code < 0 ? Style::Bad : Style::Odd};
}

} // namespace ZYN::Tool
