#pragma once

#include "StdfUnits.h"

#include "runs/RunBuilder.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZYN {

/// What a record of a test may say beside its result; what it leaves out holds as in the test's first one.
struct StdfSettings {
    bool hasFlags = false; ///< it has an OPT_FLAG
    int flags = 0;         ///< OPT_FLAG
    std::optional<int> scale;
    std::optional<float> low, high;
    std::string_view unit;
    std::string_view pins; ///< RTN_INDX, as two bytes each in the order of this machine
};

/// A measurement of a test: of a PTR or FTR the only one, of an MPR one for each pin.
struct StdfComponent {
    std::uint32_t test = 0;
    std::string ident;
    std::string name;
    std::string group; ///< of this project's own lots
    std::string step;
};

/// A test: what has the same kind of record, number and text, and measures in the same unit at the same pins.
struct StdfTest {
    int kind = 0;
    std::uint32_t number = 0;
    std::string text;    ///< as in the file
    bool isFirst = true; ///< of its number and kind
    bool hasSettings = false;
    int scale = 0;
    std::string rawUnit;
    StdfUnit unit;
    std::optional<float> low, high; ///< as in the file
    bool isLowGood = false;         ///< a value at the limit passes
    bool isHighGood = false;
    RunItemLimits limits;                  ///< in the base unit
    std::string pins;                      ///< indexes of PMRs, two bytes each
    std::vector<std::uint32_t> components; ///< first the test as a whole, then its pins; `StdfTests::None`
    std::vector<std::uint32_t> variants;   ///< the same in other units or at other pins
    std::uint32_t next = 0;                ///< the test that followed last
};

/// What a record's value is to be read with.
struct StdfReading {
    std::uint32_t test = 0;
    int power = 0;          ///< of ten, that the file's number is multiplied with
    bool ownLimits = false; ///< other ones than the test's
    RunItemLimits limits;   ///< then these
};

/// The tests of a lot, as their records come.
class StdfTests {
public:
    static constexpr std::uint32_t None = 0xffffffff;
    static constexpr const char* NoIdent = "0"; ///< as reports have it
    /// A small compressed file could hold any number.
    static constexpr std::size_t MostComponents = 200'000;

    /// What only the whole file tells.
    struct Outlook {
        std::function<std::string(std::uint32_t)>
            nameOf; ///< of a test without text, by its number; may be empty
        /// Of this project's own lots: whether a value above a test's only limit, the low one, passed; else
        /// the limit is what the value has to be equal to. By the test's text.
        std::function<bool(const std::string&)> mayExceed;
    };
    explicit StdfTests(Outlook outlook);

    /// Forgets everything, for the next stream of a file.
    /// \param isOwn whether it is a lot of this project, whose numbers are scaled and whose texts are made of
    ///        ident, measurement, step and group
    void Begin(bool isOwn);
    void SetPin(int index, std::string name);

    /// The test of a record.
    /// \param last the one before it at the same site, or None
    std::uint32_t Find(int kind, std::uint32_t number, std::string_view text, std::uint32_t last);
    /// How to read a record of the test: of another variant of it, where unit or pins are others.
    /// \param parameterFlags PARM_FLG
    StdfReading Read(std::uint32_t test, const StdfSettings& settings, int parameterFlags);
    /// \param pin from 0 for a pin of an MPR; -1 for the test as a whole
    std::uint32_t ComponentOf(std::uint32_t test, int pin);

    const StdfTest& Test(std::uint32_t test) const { return m_tests[test]; }
    const StdfComponent& Component(std::uint32_t component) const { return m_components[component]; }
    /// Whether there are more tests than any tester has.
    bool IsFull() const { return m_components.size() + m_tests.size() > MostComponents; }
    bool IsOwn() const { return m_isOwn; }

    /// A number of the file in the base unit.
    /// \param power of ten
    double InBaseUnit(float number, int power) const;

private:
    std::uint32_t Make(int kind, std::uint32_t number, std::string_view text);
    std::uint32_t VariantOf(std::uint32_t test, const StdfUnit& unit, std::string_view rawUnit, int scale,
                            std::string_view pins);
    RunItemLimits LimitsOf(const StdfTest& test, std::optional<float> low, std::optional<float> high,
                           int power) const;
    std::string NameOf(const StdfTest& test) const;
    std::string PinName(const StdfTest& test, int pin) const;
    static void TakeApart(std::string_view text, StdfComponent* component);

    Outlook m_outlook;
    bool m_isOwn = false;
    std::vector<StdfTest> m_tests;
    std::vector<StdfComponent> m_components;
    std::unordered_map<std::string, std::uint32_t> m_known;   ///< by kind, number and text
    std::unordered_map<std::uint64_t, std::uint32_t> m_first; ///< by kind and number
    std::map<int, std::string> m_pins;                        ///< names, by index
};

} // namespace ZYN
