#include "StdfTests.h"

#include "NumberText.h"
#include "StdfKinds.h"

#include <charconv>
#include <cmath>
#include <cstring>

namespace ZYN {

namespace {

// OPT_FLAG
constexpr int scaleFromFirst = 1 << 0;
constexpr int lowFromFirst = 1 << 4;
constexpr int highFromFirst = 1 << 5;
constexpr int noLow = 1 << 6;
constexpr int noHigh = 1 << 7;
// PARM_FLG
constexpr int lowIsGood = 1 << 6;
constexpr int highIsGood = 1 << 7;

/// Of one test there are hardly ever two.
constexpr std::size_t mostVariants = 16;

std::string KeyOf(int kind, std::uint32_t number, std::string_view text)
{
    std::string key(sizeof number + 1, char(kind & 0xff));
    std::memcpy(key.data(), &number, sizeof number);
    return key.append(text);
}

std::optional<float> Limit(const std::optional<float>& given, const std::optional<float>& first, int flags,
                           int none, int fromFirst)
{
    if (flags & none)
        return std::nullopt;
    return flags & fromFirst || !given ? first : given;
}

bool IsLimit(const std::optional<float>& limit)
{
    return limit && std::isfinite(*limit);
}

/// A unit of this project's own lots, which has it in ASCII.
StdfUnit OwnUnit(std::string_view latin1, int scale)
{
    constexpr int hexadecimal = 25, binary = 26; // codes of units
    StdfUnit unit{StdfText(latin1), -scale, -scale, 0};
    if (unit.text == "Ohm")
        unit.text = "\u03A9";
    else if (unit.text == "degC")
        unit.text = "\u00B0C";
    else
        unit.code = unit.text == "hex" ? hexadecimal : unit.text == "bin" ? binary : 0;
    return unit;
}

/// Exact powers of ten end at 22.
double Moved(double number, int power)
{
    constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const auto size = std::size_t(power < 0 ? -power : power);
    if (size >= std::size(powers))
        return number * std::pow(10.0, power);
    return power < 0 ? number / powers[size] : number * powers[size];
}

} // namespace

StdfTests::StdfTests(Outlook outlook)
    : m_outlook(std::move(outlook))
{
}

void StdfTests::Begin(bool isOwn)
{
    m_isOwn = isOwn;
    m_tests.clear();
    m_components.clear();
    m_known.clear();
    m_first.clear();
    m_pins.clear();
}

void StdfTests::SetPin(int index, std::string name)
{
    m_pins.try_emplace(index, std::move(name));
}

std::uint32_t StdfTests::Make(int kind, std::uint32_t number, std::string_view text)
{
    const auto index = std::uint32_t(m_tests.size());
    StdfTest& test = m_tests.emplace_back();
    test.kind = kind;
    test.number = number;
    test.text = text;
    test.next = None;
    test.isFirst = m_first.try_emplace(std::uint64_t(kind) << 32 | number, index).second;
    return index;
}

std::uint32_t StdfTests::Find(int kind, std::uint32_t number, std::string_view text, std::uint32_t last)
{
    // Mostly it is the one that followed before.
    const std::uint32_t expected = last == None ? (m_tests.empty() ? None : 0) : m_tests[last].next;
    if (expected != None) {
        const StdfTest& test = m_tests[expected];
        if (test.number == number && test.kind == kind && (text.empty() ? test.isFirst : test.text == text))
            return expected;
    }
    std::uint32_t found = None;
    if (text.empty()) {
        const auto first = m_first.find(std::uint64_t(kind) << 32 | number);
        found = first == m_first.end() ? None : first->second;
    }
    if (found == None) {
        const auto [known, isNew] = m_known.try_emplace(KeyOf(kind, number, text), None);
        if (isNew)
            known->second = Make(kind, number, text);
        found = known->second;
    }
    if (last != None)
        m_tests[last].next = found;
    return found;
}

double StdfTests::InBaseUnit(float number, int power) const
{
    if (!m_isOwn)
        return power == 0 ? double(number) : Moved(double(number), power);
    // The number that was written is the shortest decimal near this one that gives the same record again.
    if (!std::isfinite(number))
        return double(number);
    const auto multiplier = float(std::pow(0.1, power));
    const auto decimal = [](float of, int shift) {
        char digits[32];
        const char* const end = std::to_chars(std::begin(digits), std::end(digits), of).ptr;
        return NumberText::ToReal(std::string_view(digits, std::size_t(end - digits)), shift).value_or(0);
    };
    const double nearest = decimal(number, power);
    const auto single = float(nearest);
    for (const float candidate : {single, std::nextafter(single, 0.0F), std::nextafter(single, 2 * single)}) {
        if (candidate * multiplier == number)
            return decimal(candidate, 0);
    }
    return nearest;
}

RunItemLimits StdfTests::LimitsOf(const StdfTest& test, std::optional<float> low, std::optional<float> high,
                                  int power) const
{
    RunItemLimits limits;
    if (IsLimit(low)) {
        limits.lower = InBaseUnit(*low, power);
        limits.lowerOperator = test.isLowGood ? "<=" : "<";
        if (m_isOwn && !IsLimit(high) && !m_outlook.mayExceed(test.text))
            limits.lowerOperator = "==";
    }
    if (IsLimit(high)) {
        limits.upper = InBaseUnit(*high, power);
        limits.upperOperator = test.isHighGood ? "<=" : "<";
    }
    return limits;
}

std::uint32_t StdfTests::VariantOf(std::uint32_t test, const StdfUnit& unit, std::string_view rawUnit,
                                   int scale, std::string_view pins)
{
    for (const std::uint32_t index : m_tests[test].variants)
        if (m_tests[index].unit.text == unit.text && m_tests[index].pins == pins)
            return index;
    if (m_tests[test].variants.size() >= mostVariants)
        return test;
    const auto index = std::uint32_t(m_tests.size());
    m_tests[test].variants.push_back(index);
    StdfTest made = m_tests[test];
    made.variants.clear();
    made.components.clear();
    made.isFirst = false;
    made.rawUnit = rawUnit;
    made.scale = scale;
    made.unit = unit;
    made.pins = pins;
    made.limits = LimitsOf(made, made.low, made.high, unit.power);
    m_tests.push_back(std::move(made));
    return index;
}

StdfReading StdfTests::Read(std::uint32_t index, const StdfSettings& given, int parameterFlags)
{
    const int flags = given.flags;
    const bool isNew = !m_tests[index].hasSettings;
    StdfTest* test = &m_tests[index];
    if (!given.hasFlags && !isNew && given.pins.empty())
        return {index, test->unit.power, false, {}};

    const bool hasScale = given.scale && (m_isOwn || !(flags & scaleFromFirst));
    const int scale = hasScale ? *given.scale : test->scale;
    const std::string_view rawUnit = given.unit.empty() ? std::string_view(test->rawUnit) : given.unit;
    const std::string_view pins = given.pins.empty() ? std::string_view(test->pins) : given.pins;
    StdfUnit unit = test->unit;
    if (isNew || rawUnit != test->rawUnit || scale != test->scale) {
        unit = m_isOwn ? OwnUnit(rawUnit, scale) : ReadStdfUnit(rawUnit, scale);
    }
    const std::optional<float> low = Limit(given.low, test->low, flags, noLow, lowFromFirst);
    const std::optional<float> high = Limit(given.high, test->high, flags, noHigh, highFromFirst);
    if (isNew) {
        test->hasSettings = given.hasFlags;
        test->scale = scale;
        test->rawUnit = rawUnit;
        test->unit = unit;
        test->pins = pins;
        test->low = low;
        test->high = high;
        test->isLowGood = m_isOwn || parameterFlags & lowIsGood;
        test->isHighGood = m_isOwn || parameterFlags & highIsGood;
        test->limits = LimitsOf(*test, low, high, unit.power);
    } else if (unit.text != test->unit.text || pins != test->pins) {
        index = VariantOf(index, unit, std::string(rawUnit), scale, std::string(pins));
        test = &m_tests[index];
    }
    // Limits stand in the unit of their record, also where they are those of the first one.
    StdfReading reading{
        index, unit.power, low != test->low || high != test->high || unit.power != test->unit.power, {}};
    if (reading.ownLimits)
        reading.limits = LimitsOf(*test, low, high, unit.power);
    return reading;
}

std::string StdfTests::NameOf(const StdfTest& test) const
{
    std::string name = StdfText(test.text);
    if (name.empty())
        name = m_outlook.nameOf(test.number);
    return name.empty() ? std::to_string(test.number) : name;
}

std::string StdfTests::PinName(const StdfTest& test, int pin) const
{
    std::uint16_t index = 0;
    if (std::size_t(pin + 1) * sizeof index > test.pins.size())
        return std::to_string(pin + 1);
    std::memcpy(&index, test.pins.data() + std::size_t(pin) * sizeof index, sizeof index);
    const auto name = m_pins.find(index);
    return name == m_pins.end() || name->second.empty() ? std::to_string(index) : name->second;
}

/// "[ident] measurement - step - group", or "[ident] step - group" where the measurement is called as the
/// step.
void StdfTests::TakeApart(std::string_view text, StdfComponent* component)
{
    constexpr std::string_view line = " - ";
    const std::size_t bracket = text.find("] ");
    if (!text.starts_with('[') || bracket == std::string_view::npos)
        return;
    component->ident = text.substr(1, bracket - 1);
    text.remove_prefix(bracket + 2);
    component->name = text;
    const std::size_t last = text.rfind(line);
    if (last == std::string_view::npos)
        return;
    component->group = text.substr(last + line.size());
    text = text.substr(0, last);
    const std::size_t first = text.find(line);
    component->name = text.substr(0, first);
    component->step = first == std::string_view::npos ? text : text.substr(first + line.size());
}

std::uint32_t StdfTests::ComponentOf(std::uint32_t index, int pin)
{
    StdfTest& test = m_tests[index];
    const auto place = std::size_t(pin + 1);
    if (place < test.components.size() && test.components[place] != None)
        return test.components[place];
    test.components.resize(std::max(test.components.size(), place + 1), None);
    const auto made = std::uint32_t(m_components.size());
    test.components[place] = made;
    StdfComponent& component = m_components.emplace_back();
    component.test = index;
    component.ident = std::to_string(test.number);
    component.name = NameOf(test);
    if (pin >= 0)
        component.name += " / " + PinName(test, pin);
    if (m_isOwn)
        TakeApart(StdfText(test.text), &component);
    return made;
}

} // namespace ZYN
