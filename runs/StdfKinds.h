#pragma once

namespace ZYN::StdfKinds {

/// Record type and subtype as one number.
constexpr int Of(int type, int subType)
{
    return type << 8 | subType;
}

enum : int {
    Far = Of(0, 10),
    Mir = Of(1, 10),
    Mrr = Of(1, 20),
    Hbr = Of(1, 40),
    Sbr = Of(1, 50),
    Pmr = Of(1, 60),
    Sdr = Of(1, 80),
    Wir = Of(2, 10),
    Wrr = Of(2, 20),
    Pir = Of(5, 10),
    Prr = Of(5, 20),
    Tsr = Of(10, 30),
    Ptr = Of(15, 10),
    Mpr = Of(15, 15),
    Ftr = Of(15, 20),
};

} // namespace ZYN::StdfKinds

/// Codes of results, as in `EN_ZYN_RESULT`.
namespace ZYN::StdfCodes {

enum : int {
    Aborted = -5,
    Failed = -1,
    NotTested = 0,
    Passed = 1,
    Done = 6, ///< without a verdict
};

} // namespace ZYN::StdfCodes
