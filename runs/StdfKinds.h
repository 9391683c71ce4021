#pragma once

namespace ZYN::StdfKinds {

/// Record type and subtype as one number.
constexpr int Of(int type, int subType)
{
    return type << 8 | subType;
}

constexpr int Far = Of(0, 10);
constexpr int Mir = Of(1, 10);
constexpr int Mrr = Of(1, 20);
constexpr int Hbr = Of(1, 40);
constexpr int Sbr = Of(1, 50);
constexpr int Pmr = Of(1, 60);
constexpr int Sdr = Of(1, 80);
constexpr int Wir = Of(2, 10);
constexpr int Wrr = Of(2, 20);
constexpr int Pir = Of(5, 10);
constexpr int Prr = Of(5, 20);
constexpr int Tsr = Of(10, 30);
constexpr int Ptr = Of(15, 10);
constexpr int Mpr = Of(15, 15);
constexpr int Ftr = Of(15, 20);

} // namespace ZYN::StdfKinds

/// Codes of results, as in `EN_ZYN_RESULT`.
namespace ZYN::StdfCodes {

constexpr int Aborted = -5;
constexpr int Failed = -1;
constexpr int NotTested = 0;
constexpr int Passed = 1;
constexpr int Done = 6; ///< without a verdict

} // namespace ZYN::StdfCodes
