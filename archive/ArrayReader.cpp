#include "archive/ArrayReader.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace ZYN {

void ArrayReader::Skip()
{
    const void* const comma = std::memchr(m_at, ',', std::size_t(m_end - m_at));
    m_at = comma ? static_cast<const char*>(comma) + 1 : m_end;
}

double ArrayReader::Number()
{
    double number = std::numeric_limits<double>::quiet_NaN();
    if (IsNull()) {
        Skip();
        return number;
    }
    m_at = std::from_chars(m_at, m_end, number).ptr;
    PassComma();
    return number;
}

std::optional<int> ArrayReader::LongInteger()
{
    if (IsNull()) {
        Skip();
        return std::nullopt;
    }
    int number = 0;
    m_at = std::from_chars(m_at, m_end, number).ptr;
    PassComma();
    return number;
}

std::string ArrayReader::Text()
{
    std::string text;
    if (*m_at != '"') { // null, or an array of PostgreSQL, which quotes only where it must
        const char* const end =
            std::find_if(m_at, m_end, [](char c) { return c == ',' || c == ']' || c == '}'; });
        if (!IsNull())
            text.assign(m_at, end);
        m_at = end;
    } else {
        for (++m_at; m_at != m_end && *m_at != '"'; ++m_at) {
            if (*m_at == '\\' && m_at + 1 != m_end)
                ++m_at;
            text.push_back(*m_at);
        }
        m_at = m_at == m_end ? m_end : m_at + 1;
    }
    PassComma();
    return text;
}

std::vector<double> NumbersOf(const QByteArray& array)
{
    std::vector<double> numbers;
    for (ArrayReader reader(array); !reader.IsAtEnd();)
        numbers.push_back(reader.Number());
    return numbers;
}

std::vector<std::string> TextsOf(const QByteArray& array)
{
    std::vector<std::string> texts;
    for (ArrayReader reader(array); !reader.IsAtEnd();)
        texts.push_back(reader.Text());
    return texts;
}

std::vector<bool> FlagsOf(const QByteArray& array)
{
    std::vector<bool> flags;
    for (ArrayReader reader(array); !reader.IsAtEnd();) {
        const std::string flag = reader.Text();
        flags.push_back(flag == "1" || flag == "t");
    }
    return flags;
}

std::optional<double> NumberOfText(std::string_view text)
{
    double number = 0;
    const std::from_chars_result read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber =
        read.ec == std::errc() && read.ptr == text.data() + text.size() && std::isfinite(number);
    return isNumber ? std::optional(number) : std::nullopt;
}

std::vector<std::pair<int, double>> NumbersByPosition(const QByteArray& object)
{
    std::vector<std::pair<int, double>> numbers;
    const QJsonObject texts = QJsonDocument::fromJson(object).object();
    for (auto text = texts.begin(); text != texts.end(); ++text) {
        const QByteArray digits = text.value().toString().toLatin1();
        const std::optional<double> number = NumberOfText({digits.constData(), std::size_t(digits.size())});
        numbers.emplace_back(text.key().toInt(), number.value_or(std::numeric_limits<double>::quiet_NaN()));
    }
    return numbers;
}

} // namespace ZYN
