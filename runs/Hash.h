#pragma once

#include <QtCore/QCryptographicHash>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace ZYN {

/// SHA-256 of a series of texts and numbers. Each is told apart from the next.
class Hash {
public:
    void Add(std::string_view text)
    {
        Add(std::int64_t(text.size()));
        AddBytes(text.data(), text.size());
    }
    void Add(std::int64_t number) { AddBytes(&number, sizeof number); }
    /// All that is no number counts as the same.
    void AddNumbers(const std::vector<double>& numbers)
    {
        Add(std::int64_t(numbers.size()));
        for (double number : numbers) {
            if (std::isnan(number))
                number = std::numeric_limits<double>::quiet_NaN();
            AddBytes(&number, sizeof number);
        }
    }
    /// 32 bytes.
    std::string Result() const { return m_hash.result().toStdString(); }

private:
    void AddBytes(const void* bytes, std::size_t size)
    {
        m_hash.addData(QByteArrayView(static_cast<const char*>(bytes), qsizetype(size)));
    }

    QCryptographicHash m_hash{QCryptographicHash::Sha256};
};

} // namespace ZYN
