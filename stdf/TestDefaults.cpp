#include "TestDefaults.h"

namespace ZYN::Stdf {

namespace {

constexpr uint scaleFromFirst = 1U << 0;
constexpr uint lowFromFirst = 1U << 4;
constexpr uint highFromFirst = 1U << 5;
constexpr uint noLow = 1U << 6;
constexpr uint noHigh = 1U << 7;

std::optional<float> Limit(const QVariant& value, const std::optional<float>& byDefault, bool none,
                           bool fromFirst)
{
    if (none)
        return std::nullopt;
    return fromFirst || !value.isValid() ? byDefault : std::optional(value.toFloat());
}

} // namespace

TestSettings TestDefaults::Complete(const Record& test)
{
    const uint number = test.Number("TEST_NUM");
    const std::pair key{number, test.Text("TEST_TXT")};
    const auto known = first.find(key);
    TestSettings settings = known != first.end() ? *known : TestSettings{.text = key.second};

    const QVariant flags = test.Value("OPT_FLAG");
    if (flags.isValid() && !test.Is("FTR")) {
        const uint set = flags.toUInt();
        settings.isGiven = true;
        settings.lowLimit = Limit(test.Value("LO_LIMIT"), settings.lowLimit, set & noLow, set & lowFromFirst);
        settings.highLimit =
            Limit(test.Value("HI_LIMIT"), settings.highLimit, set & noHigh, set & highFromFirst);
        const QVariant scale = test.Value("RES_SCAL");
        if (scale.isValid() && !(set & scaleFromFirst))
            settings.resultScale = scale.toInt();
        if (const QString unit = test.Text("UNITS"); !unit.isEmpty())
            settings.unit = unit;
    }
    if (known == first.end() && first.size() < MaximumTests) {
        if (const std::pair unnamed{number, QString()}; !first.contains(unnamed))
            first.insert(unnamed, settings);
        first.insert(key, settings);
    } else if (known != first.end() && !known->isGiven) {
        *known = settings;
    }
    return settings;
}

} // namespace ZYN::Stdf
