#pragma once

#include "runs/RunsGlobal.h"

#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// \file
/// One program executed on one unit, once, as plain data: no object of the model, nothing of Qt. Whatever
/// knows results (a report, a lot file, the model) makes runs; whatever asks about results takes them. Texts
/// are UTF-8.

namespace ZYN {

/// What a component of a program is.
enum class ComponentKind : std::uint8_t { Group = 2, Step = 3, Parameter = 4, Measurement = 7 };

/// A group, step, parameter or measurement of a program.
struct RunComponent {
    ComponentKind kind = ComponentKind::Measurement;
    int parent = -1; ///< position of the group or step that it belongs to; -1 for a group
    std::string ident;
    std::string name;
    /// Ids and names of group, step and measurement: equal in two runs if and only if it is the same
    /// component. One that stands twice in a program ends in "#2".
    std::string identity;
    std::string path;           ///< the names joined by " / ", "#2" included
    int dataType = 0;           ///< `EN_ZYN_ADDRESS`: 7 integer, 8 real, 9 text; 0 for groups and steps
    std::string unit;           ///< of the number that stands in a run: without prefix
    int unitCode = 0;           ///< code of the unit; 25 hexadecimal, 26 binary
    int factor = 0;             ///< power of ten of the prefix that people see it with
    std::uint64_t hash[2] = {}; ///< of kind, identity, data type and unit; see `SetHash`
};

ZYNRUNS_EXPORT void SetHash(RunComponent* component);

/// What stands at which position of a run's arrays, in walk order; shared by all runs of a version of a
/// program.
struct RunLayout {
    std::string program; ///< its name
    std::string programIdent;
    std::string version;
    std::vector<RunComponent> components;
    std::string hash; ///< SHA-256 of all this, 32 bytes
};

/// Limits by position, shared by all runs that were judged by the same. NaN: no limit, no nominal value.
struct RunLimits {
    std::vector<double> lower;
    std::vector<double> upper;
    std::vector<std::string>
        lowerOperator; ///< "<=" for lower <= value, "==", ...; empty where there is no limit
    std::vector<std::string> upperOperator;
    std::vector<double> nominal;
    std::vector<bool> inverted; ///< good is what lies outside
    /// Limits that are texts, or numbers that a double cannot hold: position and text; sorted by position.
    std::vector<std::pair<std::uint32_t, std::string>> lowerTexts;
    std::vector<std::pair<std::uint32_t, std::string>> upperTexts;
    std::string hash; ///< SHA-256 of all this, 32 bytes
};

struct Run {
    /// In `codes`: the run has no result at this position.
    static constexpr std::int16_t NoCode = std::numeric_limits<std::int16_t>::min();
    using Texts = std::vector<std::pair<std::uint32_t, std::string>>; ///< by position, sorted

    // The unit.
    std::string product; ///< name of the product type
    std::string lot;
    std::string serial;
    std::string ident;
    std::string wafer;
    bool isPanel = false; ///< of the panel itself, which is no unit

    // When and where.
    std::string startText;             ///< as written
    std::optional<std::int64_t> start; ///< ms since 1970, UTC; none if it cannot be read
    std::optional<int> utcOffset;      ///< minutes, as written; without one the start is taken as it stands
    int runIndex = 0;                  ///< order of the runs of one unit in one report, from 0
    int testIndex = 0;
    std::optional<double> duration; ///< seconds
    std::string station;            ///< the session's machine, else the station's description
    std::string operatorName;
    std::string panel;           ///< serial, else ident, of the panel that the unit is an item of
    std::string source;          ///< file that it was read from
    std::optional<int> position; ///< on the panel
    std::optional<int> site, x, y, hardBin, softBin; ///< of a lot file

    // What came out.
    int code = 0; ///< verdict: the program's result in the set, else the unit's; passed above 0
    std::string comment;
    std::shared_ptr<const RunLayout> layout; ///< never null
    std::shared_ptr<const RunLimits>
        limits; ///< null where nothing has limits; its arrays are as long as the layout

    // By position; each as long as the layout.
    std::vector<double> values;      ///< in the unit of the component; NaN where there is no number
    std::vector<std::int16_t> codes; ///< `EN_ZYN_RESULT` or `NoCode`
    std::vector<float> seconds;      ///< duration; NaN where none is known
    /// Values that are no finite number or that a double does not hold exactly ("nan", "inf", a text, an
    /// integer beyond 2^53 in decimal digits).
    Texts texts;
    Texts comments;
    Texts attributes;
};

/// What a lot calls one of its bins.
struct LotBin {
    std::string product, lot, program; ///< as its runs have them
    bool isSoft = false;
    int number = 0;
    char verdict = ' '; ///< 'P' or 'F' for units that passed or failed
    std::string name;   ///< empty where the lot only counts it
};

} // namespace ZYN
