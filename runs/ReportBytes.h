#pragma once

#include <cstddef>

namespace ZYN {

/// The bytes of a report as its parser wants them, piece by piece.
///
/// The control character 0x12 is removed: some testers let it through from a bar code, and a parser rejects
/// the whole document for it. So is the indentation behind the end of an element, half of a report and a
/// fifth of a parser's work: the line feed in front of it stays. Indentation that may belong to a text is
/// left as it is, and so is all that comes behind the first comment or section.
class ReportBytes {
public:
    /// \param keepIndentation for columns that are right
    explicit ReportBytes(bool keepIndentation)
        : m_keepsIndentation(keepIndentation)
    {
    }

    /// Works in place on the next piece.
    /// \return how many bytes are left
    std::size_t Clean(char* bytes, std::size_t size);

private:
    std::size_t RemoveStray(char* bytes, std::size_t size) const;
    std::size_t RemoveIndentation(char* bytes, std::size_t size) const;
    bool HasDeclaration(const char* bytes, std::size_t size) const;

    bool m_keepsIndentation;
    bool m_isFirst = true;
    bool m_isWide = false; ///< UTF-16, where a byte is half of some letter
    char m_last = '\0';    ///< byte of the piece before
};

} // namespace ZYN
