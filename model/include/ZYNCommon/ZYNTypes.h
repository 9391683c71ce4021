#pragma once

/// \file
/// The numeric codes of the model. Every enumeration has `int` as its base, so that a code that this
/// version does not know (from a newer tester, from a file) is kept as a number and never lost.

namespace ZYN {

/// Outcome of a test component, of a whole unit or of a panel item. Negative codes are failures.
enum EN_ZYN_RESULT : int {
    ZYN_RESULT_ABORTED = -5,   ///< stopped by the operator or by the tester
    ZYN_RESULT_ERROR = -3,     ///< the tester itself failed; nothing is known about the unit
    ZYN_RESULT_FAILED = -1,    ///< measured and outside its limits
    ZYN_RESULT_NOT_TESTED = 0, ///< not executed
    ZYN_RESULT_PASSED = 1,     ///< measured and inside its limits
    ZYN_RESULT_DONE = 6        ///< executed, without a verdict
};

/// Kind of a test group.
enum EN_ZYN_GROUP : int {
    ZYN_GROUP_USER = 0,   ///< the tests themselves
    ZYN_GROUP_SETUP = 1,  ///< runs before the user groups
    ZYN_GROUP_CLEANUP = 2 ///< runs after the user groups, also after an abort
};

/// Address code of a component: which kind of component it is or, for measurements and parameters,
/// which data type its value has. A boolean is an integer of value 1 or 0.
enum EN_ZYN_ADDRESS : int {
    ZYN_ADDRESS_NONE = 0,
    ZYN_ADDRESS_PROGRAM = 1,
    ZYN_ADDRESS_GROUP = 2,
    ZYN_ADDRESS_STEP = 3,
    ZYN_ADDRESS_PARAMETER = 4,
    ZYN_ADDRESS_INTEGER = 7,
    ZYN_ADDRESS_REAL = 8,
    ZYN_ADDRESS_STRING = 9
};

} // namespace ZYN
