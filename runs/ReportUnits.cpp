#include "ReportUnits.h"

#include <utility>

namespace ZYN::ReportUnits {

std::string_view WithoutPrefix(std::string_view unit, int factor)
{
    static constexpr std::pair<int, std::string_view> prefixes[] = {
        {-12, "p"}, {-9, "n"}, {-6, "u"}, {-6, "\u00B5"}, {-6, "\u03BC"},
        {-3, "m"},  {3, "k"},  {6, "M"},  {9, "G"},       {12, "T"},
    };
    bool isKnown = factor == 0;
    for (const auto& [power, prefix] : prefixes) {
        isKnown = isKnown || power == factor;
        if (power == factor && unit.starts_with(prefix))
            return unit.substr(prefix.size());
    }
    // What a power without a prefix of its own is shown with.
    return !isKnown && unit.starts_with('#') ? unit.substr(1) : unit;
}

} // namespace ZYN::ReportUnits
