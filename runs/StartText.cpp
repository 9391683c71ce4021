#include "StartText.h"

#include "NumberText.h"

#include <chrono>

namespace ZYN {

namespace {

/// Takes a time apart from its front.
class Cursor {
public:
    explicit Cursor(std::string_view text)
        : m_text(text)
    {
    }

    bool AtEnd() const { return m_text.empty(); }
    bool Take(std::string_view anyOf)
    {
        if (AtEnd() || anyOf.find(m_text.front()) == std::string_view::npos)
            return false;
        m_text.remove_prefix(1);
        return true;
    }
    /// A number of exactly so many digits, not above `most`.
    bool Digits(int count, int most, int* number)
    {
        *number = 0;
        for (int i = 0; i < count; ++i) {
            if (!Digit(number))
                return false;
        }
        return *number <= most;
    }
    bool Digit(int* number)
    {
        if (AtEnd() || m_text.front() < '0' || m_text.front() > '9')
            return false;
        *number = *number * 10 + (m_text.front() - '0');
        m_text.remove_prefix(1);
        return true;
    }

private:
    std::string_view m_text;
};

/// Milliseconds of a fraction of a second, rounded.
bool TakeFraction(Cursor& text, int* ms)
{
    int digit = 0;
    if (!text.Digits(1, 9, &digit))
        return false;
    *ms = digit * 100;
    constexpr int weights[] = {10, 1};
    for (const int weight : weights) {
        if (!text.Digits(1, 9, &digit))
            return true;
        *ms += digit * weight;
    }
    if (text.Digits(1, 9, &digit))
        *ms += digit >= 5;
    while (text.Digits(1, 9, &digit))
        continue;
    return true;
}

bool TakeOffset(Cursor& text, std::optional<int>* offset)
{
    if (text.Take("Zz")) {
        *offset = 0;
        return true;
    }
    const bool isEast = text.Take("+");
    if (!isEast && !text.Take("-"))
        return text.AtEnd();
    int hours = 0;
    int minutes = 0;
    if (!text.Digits(2, 23, &hours))
        return false;
    if (text.Take(":") || !text.AtEnd()) {
        if (!text.Digits(2, 59, &minutes))
            return false;
    }
    *offset = (isEast ? 1 : -1) * (hours * 60 + minutes);
    return true;
}

} // namespace

std::optional<StartTime> ReadStartTime(std::string_view text)
{
    using namespace std::chrono;
    Cursor cursor(NumberText::Trimmed(text));
    int year = 0;
    int month = 0;
    int day = 0;
    if (!cursor.Digits(4, 9999, &year) || !cursor.Take("-") || !cursor.Digits(2, 12, &month) ||
        !cursor.Take("-") || !cursor.Digits(2, 31, &day))
        return std::nullopt;
    const year_month_day date{std::chrono::year(year), std::chrono::month{unsigned(month)},
                              std::chrono::day{unsigned(day)}};
    if (!date.ok())
        return std::nullopt;

    int hour = 0;
    int minute = 0;
    int second = 0;
    int ms = 0;
    StartTime time;
    if (!cursor.AtEnd()) {
        if (!cursor.Take("Tt ") || !cursor.Digits(2, 23, &hour) || !cursor.Take(":") ||
            !cursor.Digits(2, 59, &minute))
            return std::nullopt;
        // 60 is a leap second.
        if (cursor.Take(":") &&
            (!cursor.Digits(2, 60, &second) || (cursor.Take(".,") && !TakeFraction(cursor, &ms))))
            return std::nullopt;
        if (!TakeOffset(cursor, &time.utcOffset) || !cursor.AtEnd())
            return std::nullopt;
    }
    const milliseconds local = sys_days(date).time_since_epoch() + hours(hour) + minutes(minute) +
                               seconds(second) + milliseconds(ms);
    time.ms = (local - minutes(time.utcOffset.value_or(0))).count();
    return time;
}

} // namespace ZYN
