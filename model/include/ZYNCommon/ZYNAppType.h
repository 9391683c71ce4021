#pragma once

namespace ZYN::ZYNAppType {

/// Applications of the test system.
enum Type : int {
    Unknown = 0,
    TestEngine = 1 ///< runs the test programs
};

} // namespace ZYN::ZYNAppType
