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
    const QString text = test.Text("TEST_TXT");
    const auto known = first.constFind(number);
    const bool sameTest = known != first.constEnd() && (text.isEmpty() || text == known->text);
    TestSettings settings = sameTest ? *known : TestSettings{text, {}, {}, 0, {}};

    const QVariant flags = test.Value("OPT_FLAG");
    if (flags.isValid() && !test.Is("FTR")) {
        const uint set = flags.toUInt();
        settings.lowLimit = Limit(test.Value("LO_LIMIT"), settings.lowLimit, set & noLow, set & lowFromFirst);
        settings.highLimit =
            Limit(test.Value("HI_LIMIT"), settings.highLimit, set & noHigh, set & highFromFirst);
        const QVariant scale = test.Value("RES_SCAL");
        if (scale.isValid() && !(set & scaleFromFirst))
            settings.resultScale = scale.toInt();
        if (const QString unit = test.Text("UNITS"); !unit.isEmpty())
            settings.unit = unit;
    }
    if (known == first.constEnd() && first.size() < MaximumTests)
        first.insert(number, settings);
    return settings;
}

} // namespace ZYN::Stdf
