#pragma once

namespace ZYN::Tool {

/// What `zyn show` leaves out, and what it adds.
struct ShowOptions {
    bool failedOnly = false;
    bool withMap = false; ///< of STDF files also the wafers
};

} // namespace ZYN::Tool
