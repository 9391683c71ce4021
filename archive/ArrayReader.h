#pragma once

#include <QtCore/QByteArray>

#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ZYN {

/// Reads the items of an array as it is stored, one after the other: "[1.5,null,-3]" or "{1.5,NULL,-3}",
/// numbers or quoted texts. Borrows the bytes.
class ArrayReader {
public:
    explicit ArrayReader(const QByteArray& array)
        : m_at(array.constData())
        , m_end(m_at + array.size())
    {
        if (m_at != m_end)
            ++m_at;
    }

    bool IsAtEnd() const { return m_at == m_end || *m_at == ']' || *m_at == '}'; }
    void Skip();
    /// Of numbers. \return NaN for null
    double Number();
    /// Of codes. \return none for null
    std::optional<int> Integer()
    {
        // Most codes are one digit.
        if (m_end - m_at > 1 && m_at[1] == ',' && *m_at >= '0' && *m_at <= '9') {
            const int digit = *m_at - '0';
            m_at += 2;
            return digit;
        }
        return LongInteger();
    }
    /// Of texts. \return an empty text for null
    std::string Text();

private:
    std::optional<int> LongInteger();
    bool IsNull() const { return *m_at == 'n' || *m_at == 'N'; }
    void PassComma()
    {
        if (m_at != m_end && *m_at == ',')
            ++m_at;
    }

    const char* m_at;
    const char* m_end;
};

std::vector<double> NumbersOf(const QByteArray& array);
std::vector<std::string> TextsOf(const QByteArray& array);
/// Of "1" and "0", or "t" and "f".
std::vector<bool> FlagsOf(const QByteArray& array);

/// Of a text that is a finite number and nothing else; none for others.
std::optional<double> NumberOfText(std::string_view text);

/// Texts by position, from a JSON object {"3":"nan"}; those that are numbers: NaN for others.
std::vector<std::pair<int, double>> NumbersByPosition(const QByteArray& object);

} // namespace ZYN
